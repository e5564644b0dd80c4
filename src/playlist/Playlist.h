#pragma once
// The playlist window: the visible titles PicList, row for row with the paths
// in DataForm.ListaCale, its scroll bar and its row count caption.

#include "core/form/Label.h"
#include "core/form/ListBox.h"
#include "core/form/PictureBox.h"
#include "core/form/Timer.h"
#include "windows/SkinnedForm.h"
#include "windows/ctlScrollbar.h"

namespace yarvo {

class Playlist : public SkinnedForm {
 public:
  Playlist();

  // The title bar: menu plates and captions, and the close button.
  PictureBox Meniu1{this, "Meniu1"}, Meniu2{this, "Meniu2"}, Meniu3{this, "Meniu3"};
  Label Label1{this, "Label1", "File"}, Label3{this, "Label3", "Options"};
  PictureBox CloseButton{this, "CloseButton"};
  ListBox PicList{this, "PicList"};
  ListBox L1{this, "L1"};  // dropped paths, hidden
  ListBox L2{this, "L2"};
  PictureBox FrameScroll{this, "FrameScroll"};
  ctlScrollbar ScrollBar{this, "ScrollBar", 0, 100.0, 10.0};
  Label ItemsLabel{this, "ItemsLabel", "Total items:"};
  PictureBox Shape1{this, "Shape1"};  // the line above the row count
  Label ResizeArea{this, "ResizeArea", "o"};
  Timer ScrollTimer{this, "ScrollTimer", 1000, true};

  void BindFrame();
  void BindRows();
  void ShowRowMenu(const MouseEvent& e);
  // Lays the window out to its size, kept within its limits.
  void ResizePlaylist();
  void ScrollBarMoved();
  void Playlist_Form_Activate();

  // The row a row drag started from; true while the grip is held.
  int OldRow = -1;
  bool ResizeHeld = false;

  // Thumb and row count follow the list once a second.
  void Playlist_ScrollTimer_Timer();
  // A row clicked: its tag shows on the tag page.
  void Playlist_PicList_Click();
  // A row double-clicked: it plays, and next and previous step from it.
  void Playlist_PicList_DblClick();

 private:
  bool dragging_ = false;
};

// Moves row `pintOldRow` to `pintNewRow`; the rows between shift by one.
void ListRowMove(StringList& pobjLB, int pintOldRow, int pintNewRow);

}  // namespace yarvo
