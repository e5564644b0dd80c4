#pragma once

// A fresh folder under the system's temporary folder, removed with its
// content when the object dies.

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

namespace yarvo::test {

class TempFolder {
 public:
  TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder();

  const std::filesystem::path& path() const noexcept { return path_; }

  // Writes a file in the folder and returns its path.
  std::filesystem::path write(std::string_view name, const std::vector<std::uint8_t>& bytes) const;

 private:
  std::filesystem::path path_;
};

std::vector<std::uint8_t> readAll(const std::filesystem::path& file);

}  // namespace yarvo::test
