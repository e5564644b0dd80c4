#pragma once

// A regular file opened for byte access, closed when the object dies.
//
// Only regular files open: a playlist may name a FIFO, a device or a folder,
// and reading one of those could block the user interface thread or never end.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>

namespace yarvo {

class ByteFile {
 public:
  enum class Access { Read, ReadWrite };

  // nullopt when the path can't be opened with that access, isn't a regular
  // file, or holds a zero byte.
  static std::optional<ByteFile> open(const std::string& path, Access access) noexcept;

  ByteFile(ByteFile&& other) noexcept;
  ByteFile& operator=(ByteFile&& other) noexcept;
  ByteFile(const ByteFile&) = delete;
  ByteFile& operator=(const ByteFile&) = delete;
  ~ByteFile();

  // Size in bytes when the file was opened.
  std::uint64_t size() const noexcept { return size_; }

  // Reads into out from offset; returns the number of bytes read, fewer than
  // out.size() at the end of the file or on an error.
  std::size_t readAt(std::uint64_t offset, std::span<std::uint8_t> out) noexcept;

  // Writes all of data at offset; false if any of it could not be written.
  bool writeAt(std::uint64_t offset, std::span<const std::uint8_t> data) noexcept;

  // Cuts or extends the file to length bytes.
  bool truncate(std::uint64_t length) noexcept;

 private:
  ByteFile(int fd, std::uint64_t size) noexcept : fd_(fd), size_(size) {}

  int fd_ = -1;
  std::uint64_t size_ = 0;
};

}  // namespace yarvo
