#pragma once
// The desktop's dialogs for the program, with Qt widgets.

#include "platform/Desktop.h"

namespace yarvo {

class QtDesktop final : public Desktop {
 public:
  void MsgBox(const std::string& prompt, const std::string& title) override;
  std::string GetOpenFileName(const OpenFileRequest& request) override;
  std::string BrowseForFolder(const std::string& title) override;
  void OpenWebPage(const std::string& url) override;
  TwipsSize ScreenSize() const override;
  void DoEvents() override;
};

}  // namespace yarvo
