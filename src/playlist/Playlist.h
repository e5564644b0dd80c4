#pragma once
// The playlist window: the visible titles PicList, row for row with the paths
// in DataForm.ListaCale, its scroll bar and its row count caption.

#include "core/form/Form.h"
#include "core/form/Label.h"
#include "core/form/ListBox.h"
#include "core/form/PictureBox.h"
#include "core/form/Slider.h"
#include "core/form/Timer.h"

namespace yarvo {

class Playlist : public Form {
 public:
  Playlist();

  ListBox PicList{this, "PicList"};
  ListBox L1{this, "L1"};  // dropped paths, hidden
  ListBox L2{this, "L2"};
  PictureBox FrameScroll{this, "FrameScroll"};
  Slider ScrollBar{this, "ScrollBar", 0, 0, 0};
  Label ItemsLabel{this, "ItemsLabel", "Total items:"};
  Timer ScrollTimer{this, "ScrollTimer", 1000, true};

  // Thumb and row count follow the list once a second.
  void Playlist_ScrollTimer_Timer();
  // A row clicked: its tag shows on the tag page.
  void Playlist_PicList_Click();
  // A row double-clicked: it plays, and next and previous step from it.
  void Playlist_PicList_DblClick();
};

}  // namespace yarvo
