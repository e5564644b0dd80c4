#include "playlist/MediaLibrary.h"

#include "playlist/Id3Genres.h"
#include "playlist/Top10.h"

namespace yarvo {

MediaLibrary::MediaLibrary() : SkinnedForm("MediaLibrary") {
  Caption = "Yarvo Player - Intelligent playback";
  Move(1200, 5400, 7725, 5025);
  MakeImage(CloseButton, false);
  CloseButton.Move(7725 - 750, 0, 330, 255);
  AnchorFrame();
  FrameLibrary.Visible = false;
  FrameTop10.Visible = false;
  ListaAsteptare.Visible = false;
  TimerClasament.Tick = MoveUpInTop;
  // The genre choice holds the table in order: a tag's genre byte is its row.
  for (const auto genre : kId3Genres) Combo1T.AddItem(std::string(genre));
  for (int i = 0; i < 20; ++i) {
    TopLabel(i).Caption = std::to_string(i + 1) + ".";
    const int column = i / 10;
    const int row = i % 10;
    TopLabel(i).Move(240 + column * 3720, 1200 + row * 300, 400, 255);
    Song(i).Move(660 + column * 3720, 1200 + row * 300, 2700, 255);
    Song(i).ForeColor = 0xFFFFFF;
    CountPlayed(i).Move(3360 + column * 3720, 1200 + row * 300, 300, 255);
  }
}

}  // namespace yarvo
