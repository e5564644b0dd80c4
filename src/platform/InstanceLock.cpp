#include "platform/InstanceLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace yarvo {

namespace {

// FNV-1a, 64 bits: a short, stable name for a folder's path.
std::string PathHash(const std::string& path) {
  std::uint64_t hash = 14695981039346656037u;
  for (const char c : path) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
  char text[17];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash));
  return text;
}

}  // namespace

std::string InstanceLock::LockFileOf(const std::string& programFolder) {
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  std::string folder =
      runtime && *runtime ? runtime : "/tmp/yarvo-player-" + std::to_string(getuid());
  ::mkdir(folder.c_str(), 0700);  // exists already in the usual case
  return folder + "/yarvo-player-" + PathHash(programFolder) + ".lock";
}

InstanceLock::InstanceLock(const std::string& lockFile) {
  fd_ = ::open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (fd_ < 0) return;  // no runtime folder: every instance counts as the first
  if (::flock(fd_, LOCK_EX | LOCK_NB) != 0) another_ = true;
  // Keep a shared lock for our lifetime; another instance's exclusive check
  // may hold the file for an instant, so wait for it.
  ::flock(fd_, LOCK_SH);
}

InstanceLock::~InstanceLock() {
  if (fd_ >= 0) ::close(fd_);
}

}  // namespace yarvo
