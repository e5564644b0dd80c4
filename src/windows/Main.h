#pragma once
// The main window. Besides what it shows, its labels hold the playback state
// that the director and the engines share (LbFileName(0), StarePlayer,
// LbStatus(0) ...), so they exist whether or not the window shows.

#include "core/form/ControlArray.h"
#include "core/form/Label.h"
#include "core/form/PictureBox.h"
#include "core/form/TextBox.h"
#include "core/form/Timer.h"
#include "windows/Butoane.h"
#include "windows/SkinnedForm.h"
#include "windows/TitleBar.h"
#include "windows/ctlScrollbar.h"

namespace yarvo {

class Main : public SkinnedForm {
 public:
  Main();

  // Working labels: state of the playing file, never shown.
  ControlArray<Label> LbFileName{this, "LbFileName", 1, std::string()};
  ControlArray<Label> LbStatus{this, "LbStatus", 1, std::string()};
  ControlArray<Label> LbResult{this, "LbResult", 1, std::string("Result calling Function is : ")};
  ControlArray<Label> LbActualCx{this, "LbActualCx", 1, std::string("-1")};
  ControlArray<Label> LbActualCy{this, "LbActualCy", 1, std::string()};
  ControlArray<Label> LbCurrentCx{this, "LbCurrentCx", 1, std::string()};
  ControlArray<Label> LbCurrentCy{this, "LbCurrentCy", 1, std::string()};
  ControlArray<Label> LbCurrentRate{this, "LbCurrentRate", 1, std::string("0")};
  ControlArray<Label> LbCurrPos{this, "LbCurrPos", 1, std::string()};
  ControlArray<Label> LbProgress{this, "LbProgress", 1, std::string()};
  Label StartMoveSlider{this, "StartMoveSlider", "False"};
  Label FullScreenSec{this, "FullScreenSec", "0"};
  Label PiesaCurenta{this, "PiesaCurenta", "-"};
  Label PozInTop{this, "PozInTop", "0"};
  ControlArray<TextBox> txtFrom{this, "txtFrom", 1, std::string()};
  ControlArray<TextBox> TxtTo{this, "TxtTo", 1, std::string()};

  // What the window shows, from the bottom up above the frame: the title
  // bar, the panels and what stands on them. Coordinates of controls inside a panel
  // count from the panel's corner.
  // The menu bar: plates and their captions.
  PictureBox Meniu1{this, "Meniu1"}, Meniu2{this, "Meniu2"}, Meniu3{this, "Meniu3"};
  Label Label1{this, "Label1", "File"}, Label3{this, "Label3", "Options"},
      Label4{this, "Label4", "Help"};
  Label LabelVideo{this, "LabelVideo", ""};
  PictureBox MinimizeButton{this, "MinimizeButton"};
  PictureBox CloseButton{this, "CloseButton"};

  // 1 the main panel, 0 working labels outside the window.
  ControlArray<PictureBox> MainFrame{this, "MainFrame", 2};
  PictureBox Image1{this, "Image1"};  // the panel's picture
  Label TSec{this, "TSec", "00:00"};
  Label TotalTime{this, "TotalTime", "00:00"};
  Label StarePlayer{this, "StarePlayer", "Waiting"};
  Label labBitRate{this, "labBitRate", "0 Kbps"};
  Label Titlu{this, "Titlu", "Yarvo Player"};
  Label InfoIDTag{this, "InfoIDTag", "No media"};
  PictureBox Visualisation{this, "Visualisation"};
  // The six small buttons: 1 next visualisation, 2 equalizer on/off, 3
  // presets, 4 to 6 the playlist, media library and options windows.
  PictureBox ImgButton1{this, "ImgButton1"}, ImgButton2{this, "ImgButton2"},
      ImgButton3{this, "ImgButton3"}, ImgButton4{this, "ImgButton4"},
      ImgButton5{this, "ImgButton5"}, ImgButton6{this, "ImgButton6"};
  Label MultimediaInfoLabel{this, "MultimediaInfoLabel", "Multimedia info"};
  Label labSize{this, "labSize", "Size: 0"};
  Label labLength{this, "labLength", "Length: 0"};
  Label labLayer{this, "labLayer", "Not playing"};
  Label labFreqChan{this, "labFreqChan", "0 Frequency"};
  // Equalizer bands 0-9 and the reverb 10; 0 at the top.
  ControlArray<ctlScrollbar> sldEQR{this, "sldEQR", 11, 0, 100.0, 10.0};

  PictureBox RightFrame{this, "RightFrame"};
  Butoane Butoane1{this, "Butoane1"};
  PictureBox Image3{this, "Image3"};
  PictureBox Image4{this, "Image4"};
  Label InfoLabel{this, "InfoLabel", "Info"};
  Label PlaylistLabel{this, "PlaylistLabel", "Playlist"};
  PictureBox Logo{this, "Logo"};

  ControlArray<PictureBox> FrameVideo{this, "FrameVideo", 1};
  ControlArray<ctlScrollbar> SliderMoveMultimedia{this, "SliderMoveMultimedia", 1, 1, 100.0, 1.0};
  PictureBox ImagineVolum{this, "ImagineVolum"};
  ctlScrollbar Volum{this, "Volum", 1, 100.0, 5.0};
  Label ResizeArea{this, "ResizeArea", "o"};
  // Holds the keyboard focus for the shortcuts; moved outside the window.
  TextBox KeyFocus{this, "KeyFocus"};

  ControlArray<Timer> TimerMisc{this, "TimerMisc", 1, 500, false};
  Timer TimeCounter{this, "TimeCounter", 1000, true};
  Timer ScrollTextTimer{this, "ScrollTextTimer", 300, true};
  Timer FullScreenTimer{this, "FullScreenTimer", 1000, false};
  Timer FixWindows{this, "FixWindows", 100, true};
  Timer FixImages{this, "FixImages", 1000, true};
  Timer VersionCheck{this, "VersionCheck", 1000, false};

  // Runs the video part of the resize handler for the current size mode.
  void AdjustVideo();
  // Lays the video out by the size mode; the rest of the resize belongs to
  // the skinned layout.
  void Main_Form_Resize();
  void AnchorEdges();
  void Main_LbActualCx_Change();
  // MainVideo.cpp: the video panel's input, full screen's quiet seconds,
  // the size modes.
  void BindVideo();
  void Main_FullScreenTimer_Timer();
  void QuietenFullScreen();
  void WakeFullScreen(bool click);
  void VideoSizeModeChanged();
  void Main_TimeCounter_Timer();
  void Main_FixWindows_Timer();
  void Main_FixImages_Timer();
  // A press on the player's icon in the notification area (`at`, pixels of
  // the screen): while the window is minimised the left button brings it
  // back and the right one pops up SysTrayMenu there.
  void Main_SysTray_MouseDown(MouseButton button, ScreenPoint at);
  void Main_ScrollTextTimer_Timer();
  void Main_TimerMisc_Timer();
  void RotateTagLine();

  // The equalizer (MainEqualizer.cpp): every slider to the channel; the
  // on/off state of Options.Option12 to the button's picture and the channel.
  void UpdateEqualizer();
  void OnOffEq();
  void Main_ImgButton2_Click();
  void BindEqualizer();

  // The tag line rotation of the media engine's clock; zeroed at load.
  Property<int> tagTick{0};
  // The mini window gave way to a video and is to come back after it.
  bool ReturnToMini = false;

  void Main_Form_Load();
  // The design-time places of the controls.
  void LayOutControls();
  // The frame's events: drag, menu bar, resize grip, close button.
  void BindFrame();
  // The hover looks (MainHover.cpp) and the clicks (MainClicks.cpp).
  void BindHover();
  void BindClicks();
  const Property<yarvo::Picture>& RestingPicture(int button);
  PictureBox& SmallButton(int button);
  void HoverSmallButton(int button);
  void RestSmallButtons();
  TitleBar Bar();
  void HoverMenuPlate(int plate);
  void TogglePlaylist();
  void Main_MinimizeButton_Click();
  void Main_Form_Activate();
  void RepairMediaDrivers();
  void VolumChange();
  void VolumFocus();

  // The seek bar: pressed, dragged, let go, and left.
  void ScrollbarFocus();
  void ScrollbarScroll();
  void ScrollbarLostFocus();
  // Where the focus goes after the bars: the volume bar, then the keys.
  void FocusVolume();
  void FocusKeys();
  void Main_Form_QueryUnload();
  void Main_Form_Unload();
};

}  // namespace yarvo
