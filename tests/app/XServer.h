#pragma once
// An X server of a test's own (Xvfb), and what a test asks of its windows.

#include <sys/types.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace yarvo::test {

class ChildProcess;

// An Xvfb server on a display number of its own, for the life of the object.
class XServer {
 public:
  XServer();
  ~XServer();
  XServer(const XServer&) = delete;
  XServer& operator=(const XServer&) = delete;

  const std::string& display() const { return display_; }
  bool ready() const { return ready_; }

  // Whether a window manager has taken the screen (_NET_SUPPORTING_WM_CHECK).
  bool Managed() const;

  // Whether a dialog window (a message box) is mapped on the screen.
  bool DialogShown() const;

  // A top-level window: where it is, whether it shows, whether the window
  // manager leaves it alone (popup menus), its title.
  struct Window {
    unsigned long id = 0;
    std::string name;
    int x = 0, y = 0, width = 0, height = 0;
    bool mapped = false;
    bool popup = false;
  };
  // Whether openbox is installed.
  static bool HasWindowManager();
  // Runs openbox on this server for the life of the object, and waits until
  // it manages the screen; false when it does not.
  bool StartWindowManager();

  // The top-level windows, bottom first.
  std::vector<Window> Windows() const;
  // The window with this title, if there is one.
  std::optional<Window> Find(const std::string& name) const;
  // The player's main window (titled "Yarvo Player…", full width) and its
  // playlist window, shown or not.
  std::optional<Window> PlayerMain() const;
  std::optional<Window> PlayerList() const { return Find("Yarvo Player - Playlist"); }
  // The topmost popup window that shows.
  std::optional<Window> Popup() const;

 private:
  std::string display_;
  std::unique_ptr<ChildProcess> windowManager_;
  pid_t pid_ = -1;
  bool ready_ = false;
};

}  // namespace yarvo::test
