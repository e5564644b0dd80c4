#pragma once
// The media library window: the tag editor, the MPEG facts and the ranking.
// Its controls are shared state whether or not it shows: the ranking lives in
// Song/CountPlayed and the waiting list, the current tag in Text1T..Combo1T.

#include "core/form/ControlArray.h"
#include "core/form/Label.h"
#include "core/form/ListBox.h"
#include "core/form/PictureBox.h"
#include "core/form/TextBox.h"
#include "core/form/Timer.h"
#include "windows/SkinnedForm.h"

namespace yarvo {

class MediaLibrary : public SkinnedForm {
 public:
  MediaLibrary();

  PictureBox CloseButton{this, "CloseButton"};

  // The three pages; one shows at a time.
  PictureBox FrameIDTag{this, "FrameIDTag"};
  PictureBox FrameTop10{this, "FrameTop10"};
  PictureBox FrameLibrary{this, "FrameLibrary"};
  Label Label7{this, "Label7", "Yarvo Player - Intelligent playback"};

  // Tag page.
  TextBox Text1T{this, "Text1T"};
  TextBox Text2T{this, "Text2T"};
  TextBox Text3T{this, "Text3T"};
  TextBox Text4T{this, "Text4T"};
  TextBox Text5T{this, "Text5T"};
  ListBox Combo1T{this, "Combo1T"};
  Label ID3Path{this, "ID3Path", "Path:"};
  ControlArray<Label> LbTotalFrames{this, "LbTotalFrames", 1, std::string("0")};
  ControlArray<Label> LbTotalTime{this, "LbTotalTime", 1, std::string("0")};
  ControlArray<Label> LbFramesPerSecond{this, "LbFramesPerSecond", 1, std::string("0")};
  ControlArray<Label> LbCurrentTime{this, "LbCurrentTime", 1, std::string("0")};
  Label labCRC{this, "labCRC", ""};
  Label labCopy{this, "labCopy", ""};
  Label labOriginal{this, "labOriginal", ""};
  Label labEmphasis{this, "labEmphasis", ""};

  // Ranking page: place p is Song(p - 1).
  ControlArray<Label> TopLabel{this, "TopLabel", 20, std::string()};
  ControlArray<Label> Song{this, "Song", 20, std::string()};
  ControlArray<Label> CountPlayed{this, "CountPlayed", 20, std::string("0")};
  ListBox ListaAsteptare{this, "ListaAsteptare"};
  Timer TimerClasament{this, "TimerClasament", 100, false};
};

}  // namespace yarvo
