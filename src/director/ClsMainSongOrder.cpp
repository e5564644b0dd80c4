// Which song follows: the queue first, then the order mode.
//
// Two situations are the director's own choice:
// - Next or previous after a file opened outside the playlist: they move on
//   in the playlist (FromPlaylist becomes "True"), rather than starting the
//   outside file again while the list's cursor moves.
// - An empty playlist: next and previous do nothing. A SongNumber behind the
//   end (rows were deleted after it was set) counts as the last row, so next
//   wraps to row 0 and previous plays the row above the last.

#include <algorithm>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/RandomSource.h"
#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "engines/frmBass.h"
#include "playlist/Playlist.h"
#include "playlist/Top10.h"
#include "settings/Options.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

// Moves both playlist cursors to `row`.
void SelectRow(int row) {
  auto& p = program();
  p.Playlist().PicList.SetListIndex(row);
  p.DataForm().ListaCale.SetListIndex(row);
}

bool PausedEngine() { return program().Main().StarePlayer.Caption == "Paused"; }

}  // namespace

void ClsMain::PlayRandomRow() {
  auto& p = program();
  p.random().Randomize();
  SelectRow(p.random().Below(p.Playlist().PicList.ListCount()));
}

// The oldest queued title plays next, on a freshly started audio engine.
void ClsMain::QueueStep() {
  auto& p = program();
  auto& queue = p.DataForm().ListaProgramate;
  auto& picList = p.Playlist().PicList;
  p.UnloadfrmBass();
  p.frmBass();
  queue.Selected(0);
  picList.SetText(queue.Text());
  p.DataForm().ListaCale.SetListIndex(picList.ListIndex());
  p.Main().LbStatus(0).Caption = "";
  queue.RemoveItem(0);
  Play();
  p.DataForm().SongNumber = std::to_string(picList.ListIndex());
}

void ClsMain::EndOfSong() {
  auto& p = program();
  auto& options = p.Options();
  ResumeNext([&] { SStop(); });
  ResumeNext([&] { p.DataForm().FromPlaylist = "True"; });
  ResumeNext([&] {
    if (p.DataForm().FullScreenStat == "True") SwitchToFullScreen();
  });
  if (p.DataForm().ListaProgramate.ListCount() > 0) {
    ResumeNext([&] { QueueStep(); });
    return;
  }
  ResumeNext([&] {
    if (options.Option1.Value) PlayNext();
  });
  ResumeNext([&] {
    if (!options.Option2.Value) return;
    PlayRandomRow();
    if (!p.Playlist().PicList.Text().empty()) {
      Play();
    } else {
      SStop();
    }
  });
  ResumeNext([&] {
    if (options.Option3.Value) PlayTheBest();
  });
}

void ClsMain::PlayNext() {
  auto& p = program();
  auto& store = p.DataForm();
  if (PausedEngine()) SStop();
  if (store.ListaProgramate.ListCount() > 0) {
    QueueStep();
    return;
  }
  const int count = p.Playlist().PicList.ListCount();
  if (count == 0) return;
  store.FromPlaylist = "True";
  if (p.Options().Option1.Value || p.Options().Option3.Value) {
    int row = CInt(store.SongNumber.get());
    if (row >= count - 1) row = -1;  // the list wraps from its last row to row 0
    ++row;
    store.SongNumber = std::to_string(row);
    SelectRow(row);
    Play();
  }
  if (p.Options().Option2.Value) {
    PlayRandomRow();  // SongNumber stays: previous steps from the last row in order
    Play();
  }
}

void ClsMain::PlayPrevious() {
  auto& p = program();
  auto& store = p.DataForm();
  if (PausedEngine()) SStop();
  const int count = p.Playlist().PicList.ListCount();
  if (count == 0) return;
  int row = CInt(store.SongNumber.get());
  if (row <= 0 || row > count) row = count;  // row 0 wraps to the last row
  --row;
  store.SongNumber = std::to_string(row);
  store.FromPlaylist = "True";
  SelectRow(row);
  Play();
}

}  // namespace yarvo
