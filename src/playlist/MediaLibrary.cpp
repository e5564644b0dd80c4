#include "playlist/MediaLibrary.h"

#include "core/DataForm.h"
#include "director/Program.h"
#include "playlist/Id3Genres.h"
#include "playlist/Top10.h"
#include "windows/Resize.h"

namespace yarvo {

MediaLibrary::MediaLibrary() : SkinnedForm("MediaLibrary") {
  Caption = "Yarvo Player - Intelligent playback";
  Move(1200, 5400, 7725, 5025);
  MakeImage(CloseButton, false);
  CloseButton.Move(7725 - 750, 0, 330, 255);
  AnchorFrame();
  // The three pages fill the window inside its frame; one shows at a time.
  for (PictureBox* page : {&FrameIDTag, &FrameTop10, &FrameLibrary}) {
    page->Transparent = true;
    page->Move(165, 285, 7725 - 330, 5025 - 450);
  }
  FrameLibrary.Visible = false;
  FrameTop10.Visible = false;
  for (Control* tag : {static_cast<Control*>(&Text1T), static_cast<Control*>(&Text2T),
                       static_cast<Control*>(&Text3T), static_cast<Control*>(&Text4T),
                       static_cast<Control*>(&Text5T), static_cast<Control*>(&Combo1T),
                       static_cast<Control*>(&ID3Path), static_cast<Control*>(&labCRC),
                       static_cast<Control*>(&labCopy), static_cast<Control*>(&labOriginal),
                       static_cast<Control*>(&labEmphasis)})
    tag->SetContainer(&FrameIDTag);
  for (Control* working :
       {static_cast<Control*>(&ListaAsteptare), static_cast<Control*>(&LbTotalFrames(0)),
        static_cast<Control*>(&LbTotalTime(0)), static_cast<Control*>(&LbFramesPerSecond(0)),
        static_cast<Control*>(&LbCurrentTime(0)), static_cast<Control*>(&Label7)})
    working->Visible = false;
  CloseButton.Click = [this] {
    Hide();
    program().DataForm().MediaOn = "0";
  };
  for (PictureBox* edge : {&ImgTopLeft, &ImgTopCenter, &ImgTopRight, &ImgLeft, &ImgRight,
                           &ImgBottomLeft, &ImgBottomCenter, &ImgBottomRight})
    edge->MouseDown = [this](const MouseEvent&) { FormMove(*this); };
  TimerClasament.Tick = MoveUpInTop;
  // The genre choice holds the table in order: a tag's genre byte is its row.
  for (const auto genre : kId3Genres) Combo1T.AddItem(std::string(genre));
  for (int i = 0; i < 20; ++i) {
    TopLabel(i).Caption = std::to_string(i + 1) + ".";
    const int column = i / 10;
    const int row = i % 10;
    for (Control* cell : {static_cast<Control*>(&TopLabel(i)), static_cast<Control*>(&Song(i)),
                          static_cast<Control*>(&CountPlayed(i))})
      cell->SetContainer(&FrameTop10);
    TopLabel(i).Move(75 + column * 3720, 915 + row * 300, 400, 255);
    Song(i).Move(495 + column * 3720, 915 + row * 300, 2700, 255);
    CountPlayed(i).Move(3195 + column * 3720, 915 + row * 300, 300, 255);
  }
}

}  // namespace yarvo
