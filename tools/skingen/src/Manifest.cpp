#include "Manifest.h"

#include "Layout.h"

namespace skingen {

std::vector<SkinFile> SkinManifest() {
  namespace L = layout;
  using S = SkinFile::Stretch;
  std::vector<SkinFile> files = {
      {"top-left.bmp", L::kTopCorner},
      {"top-right.bmp", L::kTopCorner},
      {"top.bmp", L::kTopStrip, S::Horizontal},
      {"left.bmp", L::kSideStrip, S::Vertical},
      {"right.bmp", L::kSideStrip, S::Vertical},
      {"bottom-left.bmp", L::kBottomCorner},
      {"bottom-right.bmp", L::kBottomCorner},
      {"bottom.bmp", L::kBottomStrip, S::Horizontal},
      {"menu-normal.bmp", L::kMenuPlate, S::Horizontal},
      {"menu-hover.bmp", L::kMenuPlate, S::Horizontal},
      {"minimize-normal.bmp", L::kTitleButton},
      {"minimize-hover.bmp", L::kTitleButton},
      {"close-normal.bmp", L::kTitleButton},
      {"close-hover.bmp", L::kTitleButton},
      {"button.bmp", L::kLabelPlate},
      {"button-focus.bmp", L::kLabelPlate},
      {"logo.bmp", L::kLogo},
      {"vol-pic.bmp", L::kSpeakerSize},
      {"h-scrollbar-background.bmp", L::kHTrackTile, S::Horizontal},
      {"h-scrollbar-left.bmp", L::kHEnd},
      {"h-scrollbar-right.bmp", L::kHEnd},
      {"h-scrollbar-thumb.bmp", L::kHThumb},
      {"h-scrollbar-thumb-focus.bmp", L::kHThumb},
      {"v-scrollbar-background.bmp", L::kVTrackTile, S::Vertical},
      {"v-scrollbar-up.bmp", L::kVEnd},
      {"v-scrollbar-down.bmp", L::kVEnd},
      {"v-scrollbar-thumb.bmp", L::kVThumb},
      {"v-scrollbar-thumb-focus.bmp", L::kVThumb},
      {"playlist-thumb.bmp", L::kListThumb},
      {"playlist-thumb-focus.bmp", L::kListThumb},
      {"yarvoplayer.bmp", L::kIdle},
      {"main.jpg", L::kPanel},
      {"main-mini.jpg", L::kMiniPanel},
      {"controls-background.bmp", L::kTransport},
      {"play-hover.bmp", L::kPlay.size()},
      {"play-mousedown.bmp", L::kPlay.size()},
      {"pause-hover.bmp", L::kPause.size()},
      {"pause-mousedown.bmp", L::kPause.size()},
      {"stop-hover.bmp", L::kStop.size()},
      {"stop-mousedown.bmp", L::kStop.size()},
      {"back-hover.bmp", L::kBack.size()},
      {"back-mousedown.bmp", L::kBack.size()},
      {"next-hover.bmp", L::kNext.size()},
      {"next-mousedown.bmp", L::kNext.size()},
  };
  for (int n = 1; n <= 6; ++n) {
    for (const char* suffix : {"", "f", "b"}) {
      files.push_back(
          {QStringLiteral("button%1%2.bmp").arg(n).arg(QLatin1String(suffix)), L::kSmallButton});
    }
  }
  return files;
}

}  // namespace skingen
