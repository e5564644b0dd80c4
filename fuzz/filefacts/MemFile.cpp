#include "MemFile.h"

#include <sys/mman.h>
#include <unistd.h>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace yarvo::fuzz {

MemFile::MemFile(std::span<const std::uint8_t> content) {
  fd_ = ::memfd_create("fuzz-input", MFD_CLOEXEC);
  if (fd_ < 0) fail("memfd_create");
  std::size_t done = 0;
  while (done < content.size()) {
    const ssize_t n = ::write(fd_, content.data() + done, content.size() - done);
    if (n <= 0) fail("write to memfd");
    done += static_cast<std::size_t>(n);
  }
  path_ = "/proc/self/fd/" + std::to_string(fd_);
}

std::vector<std::uint8_t> MemFile::content() const {
  std::vector<std::uint8_t> bytes;
  std::uint8_t buffer[4096];
  for (off_t at = 0;;) {
    const ssize_t n = ::pread(fd_, buffer, sizeof buffer, at);
    if (n < 0) fail("read from memfd");
    if (n == 0) return bytes;
    bytes.insert(bytes.end(), buffer, buffer + n);
    at += n;
  }
}

MemFile::~MemFile() { ::close(fd_); }

void fail(const char* what) {
  std::fprintf(stderr, "fuzz invariant broken: %s\n", what);
  std::abort();
}

}  // namespace yarvo::fuzz
