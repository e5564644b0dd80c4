#pragma once
// What the program asks of the desktop: message boxes and the standard
// dialogs. Implemented with Qt for the app and by a recorder in the tests.
// All calls come from the interface thread and block until the user answers,
// while timers keep running behind them.

#include <string>

namespace yarvo {

// The open-file dialog: title, one filter row (a description and its
// ";"-separated patterns), the default extension; single selection of an
// existing file, hidden read-only box.
struct OpenFileRequest {
  std::string title;
  std::string filterDescription;
  std::string filterPattern;
  std::string defaultExtension;
};

// A size in twips (15 to a pixel).
struct TwipsSize {
  int width = 0;
  int height = 0;
};

class Desktop {
 public:
  virtual ~Desktop() = default;
  // A message with an OK button.
  virtual void MsgBox(const std::string& prompt, const std::string& title) = 0;
  // The chosen path, or "" when the user cancelled.
  virtual std::string GetOpenFileName(const OpenFileRequest& request) = 0;
  // The chosen folder, or "" when the user cancelled.
  virtual std::string BrowseForFolder(const std::string& title) = 0;
  virtual void OpenWebPage(const std::string& url) = 0;
  // The size of the screen the program's windows are on.
  virtual TwipsSize ScreenSize() const = 0;
  // Runs the events that are waiting, once, and returns.
  virtual void DoEvents() = 0;
};

}  // namespace yarvo
