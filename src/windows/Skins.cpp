#include "windows/Skins.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/Program.h"
#include "platform/Desktop.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

struct ColourName {
  std::string_view name;
  Colour value;
};

// 0x00BBGGRR; "gray" is the platform's button face.
constexpr std::array<ColourName, 9> kColourNames = {{{"black", 0x000000},
                                                     {"white", 0xFFFFFF},
                                                     {"blue", 0xFF0000},
                                                     {"cyan", 0xFFFF00},
                                                     {"green", 0x00FF00},
                                                     {"magenta", 0xFF00FF},
                                                     {"red", 0x0000FF},
                                                     {"yellow", 0x00FFFF},
                                                     {"gray", 0x8000000F}}};

// A control whose text colour a skin line sets.
template <class... Controls>
void SetTextColour(Colour colour, Controls&... controls) {
  (ResumeNext([&] { controls.ForeColor = colour; }), ...);
}

// Selects row `line` of SkinValues and reads its colour name; a row that
// isn't there leaves the selection, and so the colour, where it was.
Colour LineColour(int line) {
  ResumeNext([&] { program().DataForm().SkinValues.Selected(line); });
  ParseSkinColor();
  return SkinColor();
}

void ApplyTextColours() {
  auto& p = program();
  auto& main = p.Main();
  auto& playlist = p.Playlist();
  // The playlist's count stands on the frame the menu captions stand on, so
  // it takes their colour (a fixed grey read under 4.5:1 on both skins).
  SetTextColour(LineColour(1), main.Label1, main.Label3, main.Label4, playlist.Label1,
                playlist.Label3, playlist.ItemsLabel);
  SetTextColour(LineColour(2), main.TSec, main.TotalTime, main.Titlu, main.StarePlayer,
                main.InfoIDTag, main.LabelVideo, main.labBitRate);
  SetTextColour(LineColour(3), main.MultimediaInfoLabel, main.labSize, main.labLength,
                main.labLayer, main.labFreqChan, main.ResizeArea, playlist.ResizeArea);
  SetTextColour(LineColour(4), main.InfoLabel, main.PlaylistLabel);
  const Colour rows = LineColour(5);
  ResumeNext([&] { playlist.PicList.BackColor = rows; });
  const Colour text = LineColour(6);
  ResumeNext([&] { playlist.PicList.ForeColor = text; });
}

// Lines 13 to 15 as whole numbers: a line that doesn't read counts as 0.
int ColourPart(int line) {
  int part = 0;
  ResumeNext([&] {
    auto& values = program().DataForm().SkinValues;
    values.Selected(line);
    part = CInt(values.Text());
  });
  return part;
}

void ApplyBackground() {
  const int red = ColourPart(13);
  const int green = ColourPart(14);
  const int blue = ColourPart(15);
  Colour colour = 0;
  ResumeNext([&] {
    if (red < 0 || green < 0 || blue < 0) throw err::InvalidProcedureCall();
    colour = static_cast<Colour>(std::min(red, 255) | std::min(green, 255) << 8 |
                                 std::min(blue, 255) << 16);
  });
  auto& p = program();
  auto& main = p.Main();
  auto& playlist = p.Playlist();
  for (Form* form : {static_cast<Form*>(&main), static_cast<Form*>(&playlist)})
    ResumeNext([&] { form->BackColor = colour; });
  for (Control* control :
       {static_cast<Control*>(&main.RightFrame), static_cast<Control*>(&playlist.FrameScroll),
        static_cast<Control*>(&main.FrameVideo(0)), static_cast<Control*>(&main.MainFrame(1))})
    ResumeNext([&] { control->BackColor = colour; });
}

void ApplyScrollBarLine() {
  auto& p = program();
  bool hidden = false;
  ResumeNext([&] {
    auto& values = p.DataForm().SkinValues;
    values.Selected(16);
    hidden = values.Text() == "true";
  });
  p.Playlist().ScrollBar.Visible = !hidden;
  p.Playlist().FrameScroll.Visible = !hidden;
}

// One load into one target; a file that can't be read leaves the target.
template <class Target>
void Load(Target& target, const std::string& name) {
  ResumeNext([&] { target = LoadSkinPicture(name); });
}

void LoadWindowPictures() {
  auto& p = program();
  auto& main = p.Main();
  auto& store = p.DataForm();
  Load(main.Image1.Picture, "/main.jpg");
  Load(store.MeniuNormal, "/menu-normal.bmp");
  for (PictureBox* plate : {&main.Meniu1, &main.Meniu2, &main.Meniu3})
    ResumeNext([&] { plate->Picture = store.MeniuNormal.get(); });
  Load(store.MeniuHover, "/menu-hover.bmp");
  Load(store.MinimizeNormal, "/minimize-normal.bmp");
  ResumeNext([&] { main.MinimizeButton.Picture = store.MinimizeNormal.get(); });
  Load(store.MinimizeFocus, "/minimize-hover.bmp");
  Load(store.CloseNormal, "/close-normal.bmp");
  for (PictureBox* close :
       {&main.CloseButton, &p.Playlist().CloseButton, &p.MediaLibrary().CloseButton})
    ResumeNext([&] { close->Picture = store.CloseNormal.get(); });
  Load(store.CloseFocus, "/close-hover.bmp");
  Load(main.Image3.Picture, "/button.bmp");
  Load(main.Image4.Picture, "/button.bmp");
  ResumeNext([&] { store.ImgButton = main.Image3.Picture.get(); });
  Load(store.ImgButtonFocus, "/button-focus.bmp");
}

constexpr std::array<std::pair<PictureBox SkinnedForm::*, const char*>, 8> kEdges = {
    {{&SkinnedForm::ImgTopLeft, "/top-left.bmp"},
     {&SkinnedForm::ImgTopCenter, "/top.bmp"},
     {&SkinnedForm::ImgTopRight, "/top-right.bmp"},
     {&SkinnedForm::ImgRight, "/right.bmp"},
     {&SkinnedForm::ImgBottomRight, "/bottom-right.bmp"},
     {&SkinnedForm::ImgBottomCenter, "/bottom.bmp"},
     {&SkinnedForm::ImgBottomLeft, "/bottom-left.bmp"},
     {&SkinnedForm::ImgLeft, "/left.bmp"}}};

// Loaded into Main; the playlist and the library copy Main's.
void LoadFramePictures() {
  auto& p = program();
  auto& main = p.Main();
  LoadEdgePictures(main);
  for (const auto& [edge, file] : kEdges) {
    for (SkinnedForm* other :
         {static_cast<SkinnedForm*>(&p.Playlist()), static_cast<SkinnedForm*>(&p.MediaLibrary())})
      ResumeNext([&] { (other->*edge).Picture = (main.*edge).Picture.get(); });
  }
  Load(main.Logo.Picture, "/logo.bmp");
  Load(main.ImagineVolum.Picture, "/vol-pic.bmp");
}

void LoadScrollBarPictures() {
  auto& p = program();
  auto& main = p.Main();
  LoadBarPictures(main.Volum, 'h', "/h-scrollbar-thumb.bmp", "/h-scrollbar-thumb-focus.bmp");
  CopyBarPictures(main.Volum, main.SliderMoveMultimedia(0));
  for (int band = 0; band < main.sldEQR.Count(); ++band)
    LoadBarPictures(main.sldEQR(band), 'v', "/v-scrollbar-thumb.bmp",
                    "/v-scrollbar-thumb-focus.bmp");
  LoadBarPictures(p.Playlist().ScrollBar, 'v', "/playlist-thumb.bmp", "/playlist-thumb-focus.bmp");
}

void LoadButtonPictures() {
  auto& p = program();
  auto& main = p.Main();
  auto& store = p.DataForm();
  PictureBox* buttons[] = {&main.ImgButton1, &main.ImgButton2, &main.ImgButton3,
                           &main.ImgButton4, &main.ImgButton5, &main.ImgButton6};
  Property<Picture>* plain[] = {&store.ImgButton1, &store.ImgButton2, &store.ImgButton3,
                                &store.ImgButton4, &store.ImgButton5, &store.ImgButton6};
  Property<Picture>* hover[] = {&store.ImgButton1Hover, &store.ImgButton2Hover,
                                &store.ImgButton3Hover, &store.ImgButton4Hover,
                                &store.ImgButton5Hover, &store.ImgButton6Hover};
  Property<Picture>* second[] = {&store.ImgButton1b, &store.ImgButton2b, &store.ImgButton3b,
                                 &store.ImgButton4b, &store.ImgButton5b, &store.ImgButton6b};
  for (int i = 0; i < 6; ++i) {
    const std::string n = std::to_string(i + 1);
    Load(buttons[i]->Picture, "/button" + n + ".bmp");
    ResumeNext([&] { *plain[i] = buttons[i]->Picture.get(); });
  }
  for (int i = 0; i < 6; ++i) Load(*hover[i], "/button" + std::to_string(i + 1) + "f.bmp");
  for (int i = 0; i < 6; ++i) Load(*second[i], "/button" + std::to_string(i + 1) + "b.bmp");
}

}  // namespace

Colour& SkinColor() { return program().State<SkinState>().SkinColor; }

void ParseSkinColor() {
  const std::string& value = program().DataForm().SkinValues.Text();
  for (const auto& colour : kColourNames) {
    if (value == colour.name) SkinColor() = colour.value;
  }
}

void ApplySkin() {
  auto& p = program();
  auto& store = p.DataForm();
  store.SkinValues.Clear();
  for (const std::string& line : store.SkinSettings.Items()) {
    const auto equals = line.rfind('=');
    store.SkinValues.AddItem(equals == std::string::npos ? line : line.substr(equals + 1));
  }
  ResumeNext([&] { store.SkinValues.Selected(0); });
  ApplyTextColours();
  ApplyBackground();
  ApplyScrollBarLine();
  LoadWindowPictures();
  LoadFramePictures();
  LoadScrollBarPictures();
  LoadButtonPictures();
  ResumeNext([&] { p.Options().CloseButton.Picture = store.CloseNormal.get(); });
  ShowIdlePicture();
  auto& main = p.Main();
  ResumeNext([&] { main.MainFrame(1).Width = main.Image1.Width.get(); });
}

std::string SkinFile(const std::string& name) {
  auto& p = program();
  return p.DataForm().ProgramPath("/Skins/" + p.Options().SkinName.Text.get() + name);
}

Picture LoadSkinPicture(const std::string& name) {
  return program().desktop().LoadPicture(SkinFile(name));
}

void LoadBarPictures(ctlScrollbar& bar, char kind, const std::string& thumb,
                     const std::string& thumbFocus) {
  const std::string prefix = std::string("/") + kind + "-scrollbar-";
  const std::string down = prefix + (kind == 'v' ? "down.bmp" : "right.bmp");
  const std::string up = prefix + (kind == 'v' ? "up.bmp" : "left.bmp");
  Load(bar.BackgroundPicture, prefix + "background.bmp");
  Load(bar.DownButtonNormal, down);
  Load(bar.DownButtonHover, down);
  Load(bar.DownButtonDown, down);
  Load(bar.UpButtonNormal, up);
  Load(bar.UpButtonHover, up);
  Load(bar.UpButtonDown, up);
  Load(bar.ThumbButtonNormal, thumb);
  Load(bar.ThumbButtonHover, thumbFocus);
  Load(bar.ThumbButtonDown, thumbFocus);
}

void LoadEdgePictures(SkinnedForm& form) {
  for (const auto& [edge, file] : kEdges) Load((form.*edge).Picture, file);
}

void ShowIdlePicture() {
  auto& visualisation = program().Main().Visualisation;
  ResumeNext([&] { visualisation.Picture = LoadSkinPicture("/yarvoplayer.bmp"); });
}

}  // namespace yarvo
