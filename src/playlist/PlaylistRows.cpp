// The rows of the playlist window: a row dragged to a new place, the menu of
// a right click, and the list kept with the paths row for row.

#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "core/form/Twips.h"
#include "director/Program.h"
#include "platform/Desktop.h"
#include "playlist/AddMedia.h"
#include "playlist/Playlist.h"
#include "windows/FormMeniuri.h"

namespace yarvo {

void ListRowMove(StringList& pobjLB, int pintOldRow, int pintNewRow) {
  if (pintOldRow == pintNewRow) return;
  const std::string moved = pobjLB.List(pintOldRow);
  if (pintOldRow < pintNewRow) {
    for (int row = pintOldRow; row < pintNewRow; ++row) pobjLB.SetList(row, pobjLB.List(row + 1));
  } else {
    for (int row = pintOldRow; row > pintNewRow; --row) pobjLB.SetList(row, pobjLB.List(row - 1));
  }
  pobjLB.SetList(pintNewRow, moved);
}

// A drag with the left button picks the row it starts on up, the selection
// follows the pointer, and the drop moves the row and its path together.
void Playlist::BindRows() {
  PicList.MouseMove = [this](const MouseEvent& e) {
    if (e.button != MouseButton::Left || ResizeHeld) return;
    ResumeNext([&] {
      const int row = ListRowCalc(PicList, e.y, PicList.RowHeight());
      if (!dragging_) {
        OldRow = row;
        dragging_ = true;
      }
      PicList.SetListIndex(row);
    });
  };
  PicList.MouseUp = [this](const MouseEvent& e) {
    if (e.button == MouseButton::Right) {
      ShowRowMenu(e);
      return;
    }
    if (!std::exchange(dragging_, false)) return;
    // A drop outside the list is no drop.
    if (e.x < 0 || e.y < 0 || e.x >= PicList.Width || e.y >= PicList.Height) return;
    ResumeNext([&] {
      const int target = ListRowCalc(PicList, e.y, PicList.RowHeight());
      ListRowMove(PicList, OldRow, target);
      ListRowMove(program().DataForm().ListaCale, OldRow, target);
      PicList.Selected(target);
    });
  };
}

// The row at the pointer is chosen where there is one; the menu comes in any
// case.
void Playlist::ShowRowMenu(const MouseEvent& e) {
  ResumeNext([&] {
    const int row = PicList.TopIndex +
                    static_cast<int>(e.y / kTwipsPerPixel) / std::max(1, PicList.RowHeight());
    if (row < PicList.ListCount()) PicList.Selected(row);
  });
  auto& p = program();
  p.desktop().PopupMenu(*this, p.FormMeniuri().MeniuPlaylist,
                        PicList.FormLeft() + static_cast<int>(e.x),
                        PicList.FormTop() + static_cast<int>(e.y));
}

}  // namespace yarvo
