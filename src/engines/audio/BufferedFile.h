#pragma once
// A file read through a buffer of its own, with POSIX read and lseek
// semantics, for decoders that ask for a few bytes at a time: mpg123 reads
// every frame's header and body in separate calls, two system calls a frame
// when it reads the file itself.

#include <sys/types.h>

#include <cstddef>
#include <memory>
#include <string>

namespace yarvo::audio {

class BufferedFile {
 public:
  // nullptr when the file cannot be opened for reading or is not a regular
  // file (see OpenRegularFile).
  static std::unique_ptr<BufferedFile> open(const std::string& path);
  ~BufferedFile();
  BufferedFile(const BufferedFile&) = delete;
  BufferedFile& operator=(const BufferedFile&) = delete;

  // Up to `bytes`, fewer only at the end of the file or on an error; -1 when
  // nothing could be read because of an error.
  ssize_t read(void* to, std::size_t bytes) noexcept;
  // The new offset, or -1 (the offset unchanged).
  off_t seek(off_t offset, int whence) noexcept;

 private:
  static constexpr std::size_t kBufferBytes = 64 * 1024;

  explicit BufferedFile(int fd);
  ssize_t readFile(void* to, std::size_t bytes) noexcept;
  [[nodiscard]] off_t offset() const noexcept;

  int fd_;
  std::unique_ptr<unsigned char[]> buffer_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  // Where the file descriptor stands: just past the buffered bytes.
  off_t fileOffset_ = 0;
};

}  // namespace yarvo::audio
