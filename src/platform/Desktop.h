#pragma once
// What the program asks of the desktop: message boxes, the standard dialogs,
// popup menus, pictures from files and where the pointer is. Implemented with
// Qt for the app and by a recorder in the tests. All calls come from the
// interface thread; the dialogs and menus block until the user answers, while
// timers keep running behind them.

#include <string>

#include "core/form/Picture.h"
#include "core/form/ScreenRect.h"

namespace yarvo {

class Form;
class Menu;
class SystemTray;

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
  // The part of that screen that windows may cover, in pixels: the screen
  // less the desktop's panels and docks.
  virtual ScreenRect WorkArea() const = 0;
  // The notification area, for the program's icon there.
  virtual SystemTray& Tray() = 0;
  // Runs the events that are waiting, once, and returns.
  virtual void DoEvents() = 0;

  // Where the pointer is, and which of the program's windows shows at a
  // point of the screen (nullptr: none of them).
  virtual ScreenPoint CursorPos() const = 0;
  virtual const Form* FormAt(ScreenPoint point) const = 0;

  // The picture of a BMP or JPEG file; raises FileNotFound when the file
  // can't be read as a picture.
  virtual Picture LoadPicture(const std::string& path) = 0;

  // Pops `menu` up with its top left corner at (x, y) twips from the top left
  // corner of `form`, and returns when it closes; the chosen item's Click has
  // run by then.
  virtual void PopupMenu(const Form& form, Menu& menu, int x, int y) = 0;

  // Moves (hit code 2) or sizes by its bottom right corner (hit code 17) the
  // window of `form` with the pointer, and returns when the mouse button is
  // let go; the form's Moving or Sizing sees every step.
  virtual void DragWindow(Form& form, int hitCode) = 0;
};

}  // namespace yarvo
