#pragma once
// Whole-file reads and crash-safe writes.

#include <optional>
#include <string>
#include <string_view>

namespace yarvo {

// The bytes of the file, or nothing when it cannot be opened or read.
std::optional<std::string> ReadWholeFile(const std::string& path);

// How far a save goes before it counts as done.
enum class Durability {
  // Flushed to the disk before it replaces the old file: it survives a
  // power cut too. For everything the user would miss.
  Disk,
  // Replaces the old file whole, but may still be in the system's cache: a
  // crash of the program never leaves a short file. For copies the program
  // makes again from other data at every start.
  Cache,
};

// Replaces `path` with `bytes` so that no crash or failure leaves a short
// file: the bytes go to a temporary file beside the target and the
// temporary file is renamed over the target. On failure the old file stays as
// it was and false is returned.
bool WriteFileAtomically(const std::string& path, std::string_view bytes,
                         Durability durability = Durability::Disk);

}  // namespace yarvo
