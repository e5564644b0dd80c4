#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace yarvo {

// One "[section]" / "key=value" profile file, read and written with the rules
// of the classic private-profile calls: section and key names compare without
// regard to case, blanks around names and values do not count, a value in
// matching double quotes loses them, lines starting with ';' are comments.
// Every call opens, reads or writes, and closes the file; nothing is cached.
class ProfileIni {
 public:
  // Longest value `read` returns: a 255-character buffer less its NUL.
  static constexpr std::size_t kMaxValueLength = 254;

  explicit ProfileIni(std::filesystem::path file);

  // The value of `key` in `section`, cut to kMaxValueLength characters, or
  // `fallback` when the file, the section or the key is missing.
  std::string read(std::string_view section, std::string_view key, std::string_view fallback) const;

  // Sets `key` to `value` in `section`, adding the key, the section, the file
  // and its folder as needed. The new content goes to a temporary file beside
  // the target, is flushed to disk and renamed over it, so a reader sees the
  // old file or the new one, never a half-written one. Returns false, and
  // leaves the file as it was, when anything refuses; it never throws.
  bool write(std::string_view section, std::string_view key, std::string_view value) const;

  const std::filesystem::path& file() const { return file_; }

 private:
  std::filesystem::path file_;
};

// Where the media service's driver table lives: system.ini in the folder
// "yarvo-player" under $XDG_CONFIG_HOME, or under ~/.config when that is
// unset or not an absolute path.
std::filesystem::path systemIniPath();

}  // namespace yarvo
