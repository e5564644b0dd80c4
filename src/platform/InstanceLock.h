#pragma once
// Tells one running instance of the program from another, across processes.
//
// Every instance holds a shared lock on one file in the user's runtime folder
// ($XDG_RUNTIME_DIR, else /tmp/yarvo-player-<uid>) for its whole life. At start
// an instance first tries the exclusive lock: if that is refused, another
// instance holds the file. The kernel drops a lock when its process ends, so a
// crashed instance never blocks the next one.

#include <string>

namespace yarvo {

class InstanceLock {
 public:
  // Takes the lock on `lockFile`; "" means the default file.
  explicit InstanceLock(std::string lockFile = {});
  ~InstanceLock();
  InstanceLock(const InstanceLock&) = delete;
  InstanceLock& operator=(const InstanceLock&) = delete;

  bool AnotherInstanceRunning() const { return another_; }

  static std::string DefaultLockFile();

 private:
  int fd_ = -1;
  bool another_ = false;
};

}  // namespace yarvo
