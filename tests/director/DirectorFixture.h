#pragma once
// A program with a playlist of short audio files that the fake audio library
// plays on the manual clock, ready to be started by a double click.

#include <string>
#include <vector>

#include "core/DataForm.h"
#include "director/ClsMain.h"
#include "engines/frmBass.h"
#include "playlist/ClsPl.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "support/ProgramFixture.h"
#include "windows/Main.h"

namespace yarvo::test {

class DirectorFixture : public ProgramFixture {
 protected:
  // Rows "a", "b", "c", "d": files of 10, 8, 6 and 5 seconds.
  void SetUp() override {
    Start();
    const std::vector<std::pair<std::string, double>> files = {
        {"/m/a.mp3", 10}, {"/m/b.mp3", 8}, {"/m/c.ogg", 6}, {"/m/d.wav", 5}};
    for (const auto& [path, seconds] : files) {
      bass.AddFile(path, seconds);
      P().DataForm().ListaCale.AddItem(path);
    }
    ListNoChar(P().Playlist().PicList, P().DataForm().ListaCale);
  }

  void DoubleClick(int row) {
    P().Playlist().PicList.SetListIndex(row);
    P().Playlist().Playlist_PicList_DblClick();
  }

  // Runs the clock until another file plays (the last seconds of a song are
  // silent), at most `limitMs`; the new file, "" if none plays by then.
  std::string PlayUntilNext(int limitMs = 20000) {
    const std::string now = bass.PlayingFile();
    for (int t = 0; t < limitMs; t += 100) {
      clock.Advance(100);
      const std::string playing = bass.PlayingFile();
      if (!playing.empty() && playing != now) return playing;
    }
    return bass.PlayingFile();
  }

  std::string SongNumber() { return P().DataForm().SongNumber; }
};

}  // namespace yarvo::test
