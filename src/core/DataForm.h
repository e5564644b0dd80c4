#pragma once
// The shared store: the one hidden form whose slots every module reads and
// writes directly by name. Values are text: "True"/"False", "1"/"0", decimal
// numbers; each reader compares or parses the text itself.

#include "core/form/FileListBox.h"
#include "core/form/Form.h"
#include "core/form/Picture.h"
#include "core/form/StringList.h"
#include "core/form/TextBox.h"

namespace yarvo {

class DataForm : public Form {
 public:
  DataForm();

  // Where the next Play takes its file: "True" from the cursor of ListaCale,
  // "False" from Main.LbFileName(0).
  StringField FromPlaylist{"True"};
  // Row of Playlist.PicList that next and previous step from; "-1" for none.
  StringField SongNumber{"-1"};
  StringField FullScreenStat{"False"};
  StringField MainMode{"Full"};  // "Full" or "Small"
  StringField MiniMode{"False"};
  StringField PlaylistON{"1"};
  StringField MediaOn{"0"};
  // Rectangle of Main kept while in full screen, twips.
  StringField VideoSizeLeft{"0"};
  StringField VideoSizeTop{"0"};
  StringField VideoSizeWidth{"0"};
  StringField VideoSizeHeight{"0"};
  // Size of Main while it shows video, twips; saved with the settings.
  StringField VideoSizeWidth2{"0"};
  StringField VideoSizeHeight2{"0"};
  // Offsets of Playlist and MediaLibrary from the window just activated.
  StringField Sn1{"0"};
  StringField Sn2{"0"};
  StringField Sn3{"0"};
  StringField Sn4{"0"};
  StringField Magnet{"0"};
  StringField NrFisier{"0"};    // next row of File1 during a folder walk
  StringField AddToIndex{"0"};  // row that dropped files go in at

  StringList ListaCale;                  // paths, row for row with Playlist.PicList
  StringList ListaProgramate;            // queued titles, oldest first
  StringList ListaClasament;             // image of Data/top.data
  StringList MSettings;                  // image of settings.ini
  StringList SkinSettings;               // lines of the skin's skin.ini
  StringList SkinValues;                 // value parts of those lines
  StringList KeyboardSettings;           // image of Data/keyboard.data
  StringList LangList;                   // lines of the language file
  StringList CaleYarvoPlayer;            // the program folder: one row, selected
  StringList Foldere;                    // folders still to walk
  StringList ListaManelisti;             // blocked names
  StringList lstFoundWords;              // hits of one blocked name
  FileListBox File1{kMediaFilePattern};  // files of the folder being walked

  TextBox CuvinteCheieManele{this, "CuvinteCheieManele"};

  // Pictures the skin loader keeps for hover swaps.
  Property<yarvo::Picture> MeniuNormal, MeniuHover, MinimizeNormal, MinimizeFocus, CloseNormal,
      CloseFocus, ImgButton, ImgButtonFocus;
  Property<yarvo::Picture> ImgButton1, ImgButton2, ImgButton3, ImgButton4, ImgButton5, ImgButton6;
  Property<yarvo::Picture> ImgButton1Hover, ImgButton2Hover, ImgButton3Hover, ImgButton4Hover,
      ImgButton5Hover, ImgButton6Hover;
  Property<yarvo::Picture> ImgButton1b, ImgButton2b, ImgButton3b, ImgButton4b, ImgButton5b,
      ImgButton6b;

  // The program folder joined with `relative`, a path that begins with "/".
  std::string ProgramPath(const std::string& relative) const;
};

}  // namespace yarvo
