#include "windows/Resize.h"

#include "core/DataForm.h"
#include "core/form/Form.h"
#include "director/Program.h"
#include "platform/Desktop.h"

namespace yarvo {

namespace {
constexpr int kHitCaption = 2;
constexpr int kHitBottomRight = 17;
}  // namespace

void FormMove(Form& frm) {
  auto& p = program();
  if (frm.WindowState != WindowState::Normal || p.DataForm().FullScreenStat != "False") return;
  p.desktop().DragWindow(frm, kHitCaption);
}

void SizeFromCorner(Form& frm) { program().desktop().DragWindow(frm, kHitBottomRight); }

}  // namespace yarvo
