#pragma once
// Whole files as bytes, for tests that put media files in a TempDir.

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace yarvo::test {

inline std::filesystem::path writeFile(const std::filesystem::path& file,
                                       const std::vector<std::uint8_t>& bytes) {
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  return file;
}

inline std::vector<std::uint8_t> readAll(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace yarvo::test
