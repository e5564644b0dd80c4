#pragma once
// Whole-file reads and crash-safe writes.

#include <optional>
#include <string>
#include <string_view>

namespace yarvo {

// An open file descriptor, closed when the object goes.
class FileDescriptor {
 public:
  explicit FileDescriptor(int fd = -1) noexcept : fd_(fd) {}
  ~FileDescriptor();
  FileDescriptor(FileDescriptor&& other) noexcept : fd_(other.Release()) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept;
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  int get() const noexcept { return fd_; }
  explicit operator bool() const noexcept { return fd_ >= 0; }
  // Gives the descriptor up to the caller, who closes it.
  int Release() noexcept;
  // Closes now; false when the system reports a failure (a delayed write
  // error, for one).
  bool Close() noexcept;

 private:
  int fd_;
};

// Opens a regular file without waiting on it: a FIFO, a device or a folder
// is refused the way a missing file is, so that no read of a path the user
// gave can hang the program. `accessFlags` is O_RDONLY or O_RDWR; the
// descriptor is blocking (for its regular file) and closed on exec.
FileDescriptor OpenRegularFile(const std::string& path, int accessFlags);

// The bytes of the file, or nothing when it cannot be opened or read or is
// not a regular file.
std::optional<std::string> ReadWholeFile(const std::string& path);

// How far a save goes before it counts as done.
enum class Durability {
  // Flushed to the disk before it replaces the old file: it survives a
  // power cut too. For everything the user would miss.
  Disk,
  // Replaces the old file whole, but may still be in the system's cache: a
  // crash of the program never leaves a short file. For copies the program
  // makes again from other data at every start.
  Cache,
};

// Replaces `path` with `bytes` so that no crash or failure leaves a short
// file: the bytes go to a temporary file beside the target and the
// temporary file is renamed over the target. A symbolic link is followed and
// its target replaced; the replaced file keeps its permissions and, where
// the system allows, its owner. A file that nobody may write (the user made
// it read-only), or that is not a regular file, is left alone. On failure
// the old file stays as it was and false is returned.
//
// While it is written the temporary file is named "<name>.partial-save-<pid>"
// and locked; a save cut short by a crash leaves it behind for
// RemoveLeftoverSaves.
bool WriteFileAtomically(const std::string& path, std::string_view bytes,
                         Durability durability = Durability::Disk);

// Removes the temporary files of saves that were cut short in `folder` (not
// below it). A save still running in another process holds its file locked
// and keeps it.
void RemoveLeftoverSaves(const std::string& folder);

}  // namespace yarvo
