#include "engines/audio/BufferedFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "platform/Files.h"

namespace yarvo::audio {
namespace {

// What read() returns when the file has no more for it: the bytes it has,
// or the error if it has none.
ssize_t finish(std::size_t done, ssize_t last) noexcept {
  return done == 0 && last < 0 ? -1 : static_cast<ssize_t>(done);
}

}  // namespace

std::unique_ptr<BufferedFile> BufferedFile::open(const std::string& path) {
  FileDescriptor file = OpenRegularFile(path, O_RDONLY);
  if (!file) return nullptr;
  return std::unique_ptr<BufferedFile>(new BufferedFile(file.Release()));
}

BufferedFile::BufferedFile(int fd)
    : fd_(fd), buffer_(std::make_unique<unsigned char[]>(kBufferBytes)) {}

BufferedFile::~BufferedFile() { ::close(fd_); }

ssize_t BufferedFile::readFile(void* to, std::size_t bytes) noexcept {
  ssize_t got = -1;
  do {
    got = ::read(fd_, to, bytes);
  } while (got < 0 && errno == EINTR);
  if (got > 0) fileOffset_ += got;
  return got;
}

ssize_t BufferedFile::read(void* to, std::size_t bytes) noexcept {
  auto* out = static_cast<unsigned char*>(to);
  std::size_t done = 0;
  while (done < bytes) {
    if (begin_ == end_) {
      // A request as large as the buffer gains nothing from going through it.
      if (bytes - done >= kBufferBytes) {
        // The buffer no longer holds the bytes just before the descriptor.
        begin_ = end_ = 0;
        const ssize_t got = readFile(out + done, bytes - done);
        if (got <= 0) return finish(done, got);
        done += static_cast<std::size_t>(got);
        continue;
      }
      const ssize_t got = readFile(buffer_.get(), kBufferBytes);
      if (got <= 0) return finish(done, got);
      begin_ = 0;
      end_ = static_cast<std::size_t>(got);
    }
    const std::size_t run = std::min(bytes - done, end_ - begin_);
    std::memcpy(out + done, buffer_.get() + begin_, run);
    begin_ += run;
    done += run;
  }
  return static_cast<ssize_t>(done);
}

off_t BufferedFile::offset() const noexcept {
  return fileOffset_ - static_cast<off_t>(end_ - begin_);
}

off_t BufferedFile::seek(off_t offset, int whence) noexcept {
  off_t target = -1;
  if (whence == SEEK_SET) {
    target = offset;
  } else if (whence == SEEK_CUR) {
    target = this->offset() + offset;
  } else {
    // The end is the descriptor's business; the buffer starts over.
    const off_t at = ::lseek(fd_, offset, whence);
    if (at < 0) return -1;
    fileOffset_ = at;
    begin_ = end_ = 0;
    return at;
  }
  if (target < 0) return -1;
  // Within the buffered bytes the cursor moves and nothing is read again.
  const off_t bufferStart = fileOffset_ - static_cast<off_t>(end_);
  if (target >= bufferStart && target <= fileOffset_) {
    begin_ = static_cast<std::size_t>(target - bufferStart);
    return target;
  }
  if (::lseek(fd_, target, SEEK_SET) < 0) return -1;
  fileOffset_ = target;
  begin_ = end_ = 0;
  return target;
}

}  // namespace yarvo::audio
