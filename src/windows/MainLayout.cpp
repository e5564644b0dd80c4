// Where the main window's controls stand when it is made, in twips. The
// resize handler moves the edges from here; the skin fills in the pictures.

#include "windows/Main.h"

namespace yarvo {

namespace {

void LayTitleBar(Main& main) {
  main.Meniu1.Move(240, 0, 735, 255);
  main.Meniu2.Move(1080, 0, 855, 255);
  main.Meniu3.Move(2040, 0, 855, 255);
  main.Label1.Move(360, 0, 375, 255);
  main.Label3.Move(1200, 0, 615, 255);
  main.Label4.Move(2160, 0, 615, 255);
  for (Label* caption : {&main.Label1, &main.Label3, &main.Label4})
    caption->Align = Alignment::Center;
  main.LabelVideo.Move(2985, 30, 1815, 195);
  main.LabelVideo.Align = Alignment::Center;
  MakeImage(main.MinimizeButton, false);
  MakeImage(main.CloseButton, false);
  main.MinimizeButton.Move(5040, 0, 330, 255);
  main.CloseButton.Move(5400, 0, 330, 255);
}

void MainPanel(Main& main) {
  auto& panel = main.MainFrame(1);
  panel.Move(120, 360, 4695, 3015);
  MakeImage(main.Image1, false);
  main.Image1.Move(0, 0, 4695, 3015);
  Control* inside[] = {
      &main.Image1,     &main.TSec,       &main.TotalTime,           &main.StarePlayer,
      &main.labBitRate, &main.Titlu,      &main.InfoIDTag,           &main.Visualisation,
      &main.ImgButton1, &main.ImgButton2, &main.ImgButton3,          &main.ImgButton4,
      &main.ImgButton5, &main.ImgButton6, &main.MultimediaInfoLabel, &main.labSize,
      &main.labLength,  &main.labLayer,   &main.labFreqChan};
  for (Control* control : inside) control->SetContainer(&panel);
  main.TSec.Move(240, 75, 975, 255);
  main.TSec.FontSize = 12;
  main.TSec.FontBold = true;
  main.TotalTime.Move(1335, 105, 495, 210);
  main.StarePlayer.Move(120, 450, 915, 255);
  main.StarePlayer.FontBold = true;
  main.labBitRate.Move(1080, 450, 810, 195);
  main.labBitRate.FontSize = 7;
  main.Titlu.Move(2040, 120, 2535, 255);
  main.Titlu.FontBold = true;
  main.InfoIDTag.Move(2040, 480, 2535, 240);
  main.Visualisation.Move(2040, 720, 2535, 615);
  for (PictureBox* button : {&main.ImgButton1, &main.ImgButton2, &main.ImgButton3, &main.ImgButton4,
                             &main.ImgButton5, &main.ImgButton6})
    MakeImage(*button, false);
  main.ImgButton5.Move(120, 840, 615, 255);
  main.ImgButton4.Move(960, 840, 615, 255);
  main.ImgButton2.Move(120, 1080, 615, 255);
  main.ImgButton3.Move(960, 1080, 615, 255);
  main.ImgButton1.Visible = false;
  main.ImgButton6.Visible = false;
  main.MultimediaInfoLabel.Move(120, 1425, 1455, 255);
  main.MultimediaInfoLabel.FontBold = true;
  main.labSize.Move(120, 1665, 1800, 195);
  main.labLength.Move(120, 1845, 1800, 195);
  main.labLayer.Move(120, 2040, 1800, 195);
  main.labFreqChan.Move(120, 2265, 1800, 195);
  for (Label* fact : {&main.labSize, &main.labLength, &main.labLayer, &main.labFreqChan})
    fact->FontSize = 7;
  for (int band = 0; band < main.sldEQR.Count(); ++band) {
    auto& slider = main.sldEQR(band);
    slider.SetContainer(&panel);
    slider.Move(band < 10 ? 2160 + 240 * band : 1680, 1440, 210, 1215);
  }
}

void RightColumn(Main& main) {
  main.RightFrame.Move(4920, 360, 1095, 2175);
  main.Butoane1.SetContainer(&main.RightFrame);
  main.Butoane1.Move(60, 120, 975, 930);
  for (Control* inside :
       {static_cast<Control*>(&main.Image3), static_cast<Control*>(&main.Image4),
        static_cast<Control*>(&main.InfoLabel), static_cast<Control*>(&main.PlaylistLabel)})
    inside->SetContainer(&main.RightFrame);
  MakeImage(main.Image3, true);
  MakeImage(main.Image4, true);
  main.Image3.Move(0, 1200, 1095, 240);
  main.InfoLabel.Move(0, 1200, 1095, 240);
  main.Image4.Move(0, 1440, 1095, 240);
  main.PlaylistLabel.Move(0, 1440, 1095, 240);
  for (Label* caption : {&main.InfoLabel, &main.PlaylistLabel}) {
    caption->Align = Alignment::Center;
    caption->FontSize = 7;
  }
  MakeImage(main.Logo, false);
  main.Logo.Move(4920, 2760, 1095, 585);
}

void BottomRow(Main& main) {
  main.FrameVideo(0).Move(120, 4080, 5175, 3045);
  main.SliderMoveMultimedia(0).Move(120, 3480, 3135, 255);
  MakeImage(main.ImagineVolum, false);
  main.ImagineVolum.Move(3240, 3480, 195, 165);
  main.Volum.Move(3480, 3480, 1395, 255);
  main.ResizeArea.Move(6360, 3720, 195, 195);
  main.ResizeArea.FontSize = 7;
  main.ResizeArea.FontName = "Marlett";
}

}  // namespace

void Main::LayOutControls() {
  for (PictureBox* plate : {&Meniu1, &Meniu2, &Meniu3}) MakeImage(*plate, true);
  LayTitleBar(*this);
  MainPanel(*this);
  RightColumn(*this);
  BottomRow(*this);
}

}  // namespace yarvo
