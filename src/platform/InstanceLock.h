#pragma once
// Tells one running instance of the program from another, across processes.
//
// Instances are of one program when they share their program folder, the
// files they load and save; players with folders of their own do not stand
// in each other's way. Every instance holds a shared lock on one file in the
// user's runtime folder ($XDG_RUNTIME_DIR, else /tmp/yarvo-player-<uid>),
// named after its program folder, for its whole life. At start an instance
// first tries the exclusive lock: if that is refused, another instance holds
// the file. The kernel drops a lock when its process ends, so a crashed
// instance never blocks the next one.

#include <string>

namespace yarvo {

class InstanceLock {
 public:
  // Takes the lock on `lockFile`.
  explicit InstanceLock(const std::string& lockFile);
  ~InstanceLock();
  InstanceLock(const InstanceLock&) = delete;
  InstanceLock& operator=(const InstanceLock&) = delete;

  bool AnotherInstanceRunning() const { return another_; }

  // The lock file of the instances whose program folder is `programFolder`.
  static std::string LockFileOf(const std::string& programFolder);

 private:
  int fd_ = -1;
  bool another_ = false;
};

}  // namespace yarvo
