#pragma once
// The desktop's dialogs, pictures and pointer for the program, with Qt. The
// window host adds what needs its windows: the form at a point, popup menus.

#include "platform/Desktop.h"
#include "platform/qt/QtSystemTray.h"

namespace yarvo {

class QtDesktop : public Desktop {
 public:
  void MsgBox(const std::string& prompt, const std::string& title) override;
  std::string GetOpenFileName(const OpenFileRequest& request) override;
  std::string BrowseForFolder(const std::string& title) override;
  void OpenWebPage(const std::string& url) override;
  TwipsSize ScreenSize() const override;
  ScreenRect WorkArea() const override;
  SystemTray& Tray() override { return tray_; }
  void DoEvents() override;
  ScreenPoint CursorPos() const override;
  Picture LoadPicture(const std::string& path) override;

 private:
  QtSystemTray tray_;
};

}  // namespace yarvo
