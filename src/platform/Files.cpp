#include "platform/Files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <utility>

namespace yarvo {

namespace {

constexpr std::string_view kPartialSaveMarker = ".partial-save-";

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t n = ::write(fd, bytes.data(), bytes.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(n));
  }
  return true;
}

std::string FolderOf(const std::string& path) {
  const auto slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

// The file a path finally names, through any chain of symbolic links; the
// path itself when it is no link (or does not exist yet).
std::string FollowLinks(std::string path) {
  for (int hop = 0; hop < 40; ++hop) {
    char target[PATH_MAX];
    const ssize_t n = ::readlink(path.c_str(), target, sizeof target);
    if (n <= 0 || n == static_cast<ssize_t>(sizeof target)) return path;
    std::string next(target, static_cast<std::size_t>(n));
    path = next.front() == '/' ? next : FolderOf(path) + "/" + next;
  }
  return path;
}

// A file that no one may write was made read-only on purpose; root could
// still replace it, so the permission bits are asked as well as the system.
bool ReadOnly(const std::string& path, const struct stat& info) {
  return (info.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0 || ::access(path.c_str(), W_OK) != 0;
}

// Creates the locked temporary file of a save. The lock tells a starting
// program (RemoveLeftoverSaves) that this file is being written; a file the
// remover took between our create and our lock has no name left, and is
// made again.
FileDescriptor CreateLockedTemporary(const std::string& temporary, mode_t mode) {
  for (int attempt = 0; attempt < 3; ++attempt) {
    FileDescriptor fd(
        ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode));
    if (!fd && errno == EEXIST) {
      // Our own process id: the leftover of an earlier process that had it.
      ::unlink(temporary.c_str());
      continue;
    }
    if (!fd) return fd;
    struct stat info {};
    if (::flock(fd.get(), LOCK_EX) != 0 || ::fstat(fd.get(), &info) != 0) return FileDescriptor();
    if (info.st_nlink > 0) return fd;
  }
  return FileDescriptor();
}

// The replaced file's permissions and owner pass to its successor.
void TakeOverAttributes(int fd, const struct stat& old) {
  // Only root may give a file away; where that fails the file stays ours,
  // as the old one was in the usual case.
  [[maybe_unused]] const int given = ::fchown(fd, old.st_uid, old.st_gid);
  ::fchmod(fd, old.st_mode & 07777);
}

void FlushFolder(const std::string& folder) {
  const FileDescriptor fd(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (fd) ::fsync(fd.get());
}

}  // namespace

FileDescriptor::~FileDescriptor() {
  if (fd_ >= 0) ::close(fd_);
}

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept {
  if (this != &other) {
    if (fd_ >= 0) ::close(fd_);
    fd_ = other.Release();
  }
  return *this;
}

int FileDescriptor::Release() noexcept { return std::exchange(fd_, -1); }

bool FileDescriptor::Close() noexcept { return fd_ < 0 || ::close(Release()) == 0; }

FileDescriptor OpenRegularFile(const std::string& path, int accessFlags) {
  // A zero byte would end the name early and open some other file.
  if (path.find('\0') != std::string::npos) return FileDescriptor();
  // O_NONBLOCK keeps open() from waiting for a FIFO's writer.
  int fd = -1;
  do {
    fd = ::open(path.c_str(), accessFlags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
  } while (fd < 0 && errno == EINTR);
  FileDescriptor file(fd);
  struct stat info {};
  if (!file || ::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) return FileDescriptor();
  ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
  return file;
}

std::optional<std::string> ReadWholeFile(const std::string& path) {
  const FileDescriptor fd = OpenRegularFile(path, O_RDONLY);
  if (!fd) return std::nullopt;
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
  const std::string target = FollowLinks(path);
  struct stat old {};
  const bool replacing = ::stat(target.c_str(), &old) == 0;
  if (replacing && (!S_ISREG(old.st_mode) || ReadOnly(target, old))) return false;

  const std::string temporary =
      target + std::string(kPartialSaveMarker) + std::to_string(::getpid());
  // A new file gets the usual permissions (the umask applies); a replaced
  // one stays private until it has taken over the old file's.
  FileDescriptor fd = CreateLockedTemporary(temporary, replacing ? 0600 : 0666);
  if (!fd) return false;
  if (replacing) TakeOverAttributes(fd.get(), old);
  // The bytes reach the disk before the rename makes them the file's. The
  // lock is held until the rename is done.
  const bool landed = WriteAll(fd.get(), bytes) &&
                      (durability == Durability::Cache || ::fsync(fd.get()) == 0) &&
                      ::rename(temporary.c_str(), target.c_str()) == 0;
  if (!landed) ::unlink(temporary.c_str());
  if (!fd.Close() || !landed) return false;
  if (durability == Durability::Disk) FlushFolder(FolderOf(target));
  return true;
}

void RemoveLeftoverSaves(const std::string& folder) {
  const FileDescriptor dirFd(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!dirFd) return;
  DIR* dir = ::fdopendir(::dup(dirFd.get()));
  if (!dir) return;
  while (const dirent* entry = ::readdir(dir)) {
    const std::string_view name = entry->d_name;
    if (name.find(kPartialSaveMarker) == std::string_view::npos) continue;
    const FileDescriptor file(
        ::openat(dirFd.get(), entry->d_name, O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
    if (!file || ::flock(file.get(), LOCK_EX | LOCK_NB) != 0) continue;
    // Only the file we hold may go: the name might have been taken again.
    struct stat held {}, named {};
    if (::fstat(file.get(), &held) == 0 &&
        ::fstatat(dirFd.get(), entry->d_name, &named, AT_SYMLINK_NOFOLLOW) == 0 &&
        held.st_ino == named.st_ino && held.st_dev == named.st_dev && S_ISREG(held.st_mode))
      ::unlinkat(dirFd.get(), entry->d_name, 0);
  }
  ::closedir(dir);
}

}  // namespace yarvo
