#include "platform/InstanceLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

namespace yarvo {

std::string InstanceLock::DefaultLockFile() {
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  std::string folder =
      runtime && *runtime ? runtime : "/tmp/yarvo-player-" + std::to_string(getuid());
  ::mkdir(folder.c_str(), 0700);  // exists already in the usual case
  return folder + "/yarvo-player.lock";
}

InstanceLock::InstanceLock(std::string lockFile) {
  if (lockFile.empty()) lockFile = DefaultLockFile();
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
