#pragma once
// The desktop as the program sees it, with what only the window host knows:
// which of its windows lies at a point, its popup menus, and the move and
// size of its windows by the pointer.

#include <functional>

#include "platform/qt/QtDesktop.h"

namespace yarvo {

class FormHost;

class HostDesktop final : public QtDesktop {
 public:
  // `hostOf` finds the window of a form (null for a form without one).
  explicit HostDesktop(std::function<FormHost*(const Form&)> hostOf) : hostOf_(std::move(hostOf)) {}

  // Asks the X server only while the pointer is in one of the windows: the
  // slider asks at every redraw.
  ScreenPoint CursorPos() const override;
  const Form* FormAt(ScreenPoint point) const override;
  void PopupMenu(const Form& form, Menu& menu, int x, int y) override;
  void DragWindow(Form& form, int hitCode) override;

 private:
  std::function<FormHost*(const Form&)> hostOf_;
  mutable ScreenPoint lastPointer_{-1, -1};
};

}  // namespace yarvo
