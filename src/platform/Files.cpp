#include "platform/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace yarvo {

namespace {

class Fd {
 public:
  explicit Fd(int fd) : fd_(fd) {}
  ~Fd() {
    if (fd_ >= 0) ::close(fd_);
  }
  Fd(const Fd&) = delete;
  Fd& operator=(const Fd&) = delete;
  int get() const { return fd_; }
  bool Close() {
    const int fd = fd_;
    fd_ = -1;
    return ::close(fd) == 0;
  }

 private:
  int fd_;
};

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t n = ::write(fd, bytes.data(), bytes.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(n));
  }
  return true;
}

}  // namespace

std::optional<std::string> ReadWholeFile(const std::string& path) {
  Fd fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (fd.get() < 0) return std::nullopt;
  struct stat info {};
  if (::fstat(fd.get(), &info) != 0 || S_ISDIR(info.st_mode)) return std::nullopt;
  std::string bytes;
  char buffer[65536];
  for (;;) {
    const ssize_t n = ::read(fd.get(), buffer, sizeof buffer);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return std::nullopt;
    if (n == 0) return bytes;
    bytes.append(buffer, static_cast<std::size_t>(n));
  }
}

bool WriteFileAtomically(const std::string& path, std::string_view bytes, Durability durability) {
  const std::string temporary = path + ".tmp-" + std::to_string(::getpid());
  Fd fd(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644));
  if (fd.get() < 0) return false;
  // The bytes reach the disk before the rename makes them the file's.
  const bool written = WriteAll(fd.get(), bytes) &&
                       (durability == Durability::Cache || ::fsync(fd.get()) == 0) && fd.Close();
  if (!written || ::rename(temporary.c_str(), path.c_str()) != 0) {
    ::unlink(temporary.c_str());
    return false;
  }
  return true;
}

}  // namespace yarvo
