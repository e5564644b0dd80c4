#pragma once
// Writes a picture of the form models as a PNG file (8-bit RGB, no
// interlace), scaled up by a whole factor so that a small picture can be
// looked at. Throws std::runtime_error when the file cannot be written.

#include <filesystem>

#include "core/form/Picture.h"

namespace yarvo::test {

void WritePng(const std::filesystem::path& path, const Image& image, int scale = 1);

}  // namespace yarvo::test
