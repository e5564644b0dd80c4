#pragma once
// The settings dialog, and at the same time the live store of the
// preferences: the rest of the program reads its check boxes, option buttons
// and lists directly, shown or not.

#include "core/form/CheckBox.h"
#include "core/form/ControlArray.h"
#include "core/form/Form.h"
#include "core/form/Label.h"
#include "core/form/ListBox.h"
#include "core/form/OptionButton.h"
#include "core/form/PictureBox.h"
#include "core/form/Slider.h"
#include "core/form/TextBox.h"

namespace yarvo {

class Options : public Form {
 public:
  Options();

  Label Fr{this, "Fr", "General"};  // the page on top
  PictureBox CloseButton{this, "CloseButton"};

  // General: visualisation on/off and its type.
  OptionGroup Visualisations;
  OptionButton Option4{this, "Option4", "On", Visualisations, true};
  OptionButton Option5{this, "Option5", "Off", Visualisations, false};
  OptionGroup EqualizerType;
  OptionButton Option8{this, "Option8", "Spectrum analizer", EqualizerType, true};
  OptionButton Option9{this, "Option9", "Wave", EqualizerType, false};
  OptionButton Option10{this, "Option10", "Wave image", EqualizerType, false};
  OptionButton Option11{this, "Option11", "Oscilloscope", EqualizerType, false};
  CheckBox Check1{this, "Check1", "Show title in taskbar when minimized", 0};
  CheckBox Check2{this, "Check2", "Allow running multiple player instances", 1};
  CheckBox Check4{this, "Check4", "Add / open only supported files", 1};
  CheckBox Check6{this, "Check6", "Check for updates", 1};
  CheckBox Check7{this, "Check7", "Show YarvoPlayer in System Tray", 1};

  // Playlist: order mode, font, titles, scroll bar.
  OptionGroup PlaybackOptions;
  OptionButton Option1{this, "Option1", "La rand din lista", PlaybackOptions, true};
  OptionButton Option2{this, "Option2", "Aleatoriu", PlaybackOptions, false};
  OptionButton Option3{this, "Option3", "Dupa preferintele tale", PlaybackOptions, false};
  ListBox PlaylistFontSize{this, "PlaylistFontSize"};  // rows "8" to "18"
  CheckBox Check3{this, "Check3", "Bold", 0};
  OptionGroup TitleFormating;
  OptionButton Option15{this, "Option15", "Show file name", TitleFormating, true};
  OptionButton Option18{this, "Option18", "Show IDTag: 'Artist - Song name'", TitleFormating,
                        false};
  OptionButton Option19{this, "Option19", "Show IDTag: 'Song name - Artist'", TitleFormating,
                        false};
  CheckBox Check8{this, "Check8", "Show standard scrollbar (for better performance)", 0};

  // Audio: the equalizer on or off.
  OptionGroup Equalizer;
  OptionButton Option12{this, "Option12", "On", Equalizer, true};
  OptionButton Option13{this, "Option13", "Off", Equalizer, false};

  // Video: aspect and subtitles.
  OptionGroup VideoAspect;
  OptionButton Option14{this, "Option14", "Stretch video to window size", VideoAspect, true};
  OptionButton Option16{this, "Option16", "Original size", VideoAspect, false};
  OptionButton Option17{this, "Option17", "Original size x 2", VideoAspect, false};
  CheckBox Check5{this, "Check5", "Show subtitles if available", 1};
  TextBox SubDelay{this, "SubDelay", "0"};

  // File association.
  ListBox TpfAudio{this, "TpfAudio"};
  ListBox TpfVideo{this, "TpfVideo"};
  ListBox FAudio{this, "FAudio"};
  ListBox FVideo{this, "FVideo"};
  CheckBox Check17{this, "Check17", "Associate with all audio files", 0};
  CheckBox Check18{this, "Check18", "Associate with all video files", 0};

  // Skins and transparency.
  ListBox SkinSelector{this, "SkinSelector"};
  TextBox SkinName{this, "SkinName", "Default"};
  Slider Slider1{this, "Slider1", 0, 100, 0};
  OptionGroup Transparency;
  OptionButton Option6{this, "Option6", "Enabled", Transparency, false};
  OptionButton Option7{this, "Option7", "Disabled", Transparency, true};

  // Language: rows "English" and "Romana".
  ListBox LanguageSelector{this, "LanguageSelector"};

  // Keyboard shortcuts: the key code of action i, and the key's text.
  ControlArray<TextBox> AsciBox{this, "AsciBox", 10, std::string("0")};
  ControlArray<TextBox> AsciText{this, "AsciText", 10, std::string("0")};

  TextBox Readme{this, "Readme", "Readme"};

  // Adds the folders under `currPath`, each after its own subfolders, to
  // SkinSelector; raises PathNotFound when it can't be listed.
  void GetSubDirs(const std::string& currPath);

  // The code page of ID3 tag text: rows "latin1", "cp1250", "cp1251".
  ListBox TagCodePage{this, "TagCodePage"};

 private:
  void Options_Form_Load();
  void ChooseSkin();
  int pressedSkin_ = -1;
};

}  // namespace yarvo
