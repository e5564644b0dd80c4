#pragma once
// The skin loader: a skin is the folder Skins/<name>/ of the program folder,
// with a 17-line skin.ini of colours and numbers (the meaning of a line is
// its place) and a fixed set of bitmaps named by convention. ApplySkin pours
// the current skin into the windows and the store's picture slots.
//
// Every step is guarded on its own: a missing file or a line that does not
// read leaves its targets as they were, and nothing is reported.

#include <string>

#include "core/form/Picture.h"

namespace yarvo {

class SkinnedForm;
class ctlScrollbar;

// The colour the last colour name set; 0 at the start.
struct SkinState {
  Colour SkinColor = 0;
};
Colour& SkinColor();

// Sets SkinColor from the selected row of DataForm.SkinValues when it is one
// of the colour names (exact case); any other text leaves it as it was.
void ParseSkinColor();

// Rebuilds SkinValues from SkinSettings, then colours and pictures of Main,
// Playlist, MediaLibrary, Options, the scroll bars and DataForm.
void ApplySkin();

// The file `name` (beginning with "/") of the current skin's folder.
std::string SkinFile(const std::string& name);

// The skin's picture `name`, loaded from disk now.
Picture LoadSkinPicture(const std::string& name);

// The idle picture of the visualisation area, loaded from the current skin.
void ShowIdlePicture();

// The skin's eight edge pictures into the frame of `form`, one load each.
void LoadEdgePictures(SkinnedForm& form);

// The ten pictures of a bar, one load per picture: "v" or "h" bars, whose
// buttons are "down"/"up" or "right"/"left", and whose thumb files are given.
void LoadBarPictures(ctlScrollbar& bar, char kind, const std::string& thumb,
                     const std::string& thumbFocus);

}  // namespace yarvo
