#pragma once
// A fresh folder under the system's temporary folder, removed with everything
// in it when the object goes.

#include <filesystem>
#include <string_view>

namespace yarvo::test {

class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(std::string_view relative) const { return path_ / relative; }

 private:
  std::filesystem::path path_;
};

}  // namespace yarvo::test
