#pragma once
// An X server of a test's own (Xvfb), and what a test asks of its windows.

#include <sys/types.h>

#include <string>

namespace yarvo::test {

// An Xvfb server on a display number of its own, for the life of the object.
class XServer {
 public:
  XServer();
  ~XServer();
  XServer(const XServer&) = delete;
  XServer& operator=(const XServer&) = delete;

  const std::string& display() const { return display_; }
  bool ready() const { return ready_; }

  // Whether a dialog window (a message box) is mapped on the screen.
  bool DialogShown() const;

 private:
  std::string display_;
  pid_t pid_ = -1;
  bool ready_ = false;
};

}  // namespace yarvo::test
