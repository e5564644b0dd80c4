#include "playlist/ByteFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <limits>
#include <string>
#include <utility>

#include "platform/Files.h"

namespace yarvo {
namespace {

bool fitsOffset(std::uint64_t offset, std::size_t count) noexcept {
  constexpr auto kMax = static_cast<std::uint64_t>(std::numeric_limits<off_t>::max());
  return offset <= kMax && count <= kMax - offset;
}

}  // namespace

std::optional<ByteFile> ByteFile::open(const std::string& path, Access access) noexcept {
  FileDescriptor file = OpenRegularFile(path, access == Access::Read ? O_RDONLY : O_RDWR);
  struct stat st {};
  if (!file || ::fstat(file.get(), &st) != 0 || st.st_size < 0) return std::nullopt;
  return ByteFile(file.Release(), static_cast<std::uint64_t>(st.st_size));
}

ByteFile::ByteFile(ByteFile&& other) noexcept
    : fd_(std::exchange(other.fd_, -1)), size_(other.size_) {}

ByteFile& ByteFile::operator=(ByteFile&& other) noexcept {
  if (this != &other) {
    if (fd_ >= 0) ::close(fd_);
    fd_ = std::exchange(other.fd_, -1);
    size_ = other.size_;
  }
  return *this;
}

ByteFile::~ByteFile() {
  if (fd_ >= 0) ::close(fd_);
}

std::size_t ByteFile::readAt(std::uint64_t offset, std::span<std::uint8_t> out) noexcept {
  std::size_t done = 0;
  while (done < out.size() && fitsOffset(offset, done)) {
    const ssize_t n =
        ::pread(fd_, out.data() + done, out.size() - done, static_cast<off_t>(offset + done));
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) break;
    done += static_cast<std::size_t>(n);
  }
  return done;
}

bool ByteFile::writeAt(std::uint64_t offset, std::span<const std::uint8_t> data) noexcept {
  if (!fitsOffset(offset, data.size())) return false;
  std::size_t done = 0;
  while (done < data.size()) {
    const ssize_t n =
        ::pwrite(fd_, data.data() + done, data.size() - done, static_cast<off_t>(offset + done));
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    done += static_cast<std::size_t>(n);
  }
  return true;
}

bool ByteFile::truncate(std::uint64_t length) noexcept {
  if (!fitsOffset(length, 0)) return false;
  int rc = -1;
  do {
    rc = ::ftruncate(fd_, static_cast<off_t>(length));
  } while (rc != 0 && errno == EINTR);
  return rc == 0;
}

}  // namespace yarvo
