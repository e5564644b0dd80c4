#pragma once

// A file that lives in memory (memfd) and has a path, so that the readers'
// file functions run on fuzzer input without touching the disk.

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace yarvo::fuzz {

class MemFile {
 public:
  // Aborts if the system refuses a memfd: a fuzz run without it proves nothing.
  explicit MemFile(std::span<const std::uint8_t> content);
  MemFile(const MemFile&) = delete;
  MemFile& operator=(const MemFile&) = delete;
  ~MemFile();

  const std::filesystem::path& path() const noexcept { return path_; }

  // The file's whole present content.
  std::vector<std::uint8_t> content() const;

 private:
  int fd_ = -1;
  std::filesystem::path path_;
};

// Ends the process with a message: libFuzzer reports it as a finding.
[[noreturn]] void fail(const char* what);

}  // namespace yarvo::fuzz
