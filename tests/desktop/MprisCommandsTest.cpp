// What the desktop's media controls make the player do: the director's own
// operations, with the few differences the protocol asks for, on the fake
// audio library and a fake media service.

#include "host/mpris/MprisCommands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

#include "director/DirectorFixture.h"
#include "host/mpris/MprisModel.h"
#include "support/FakeMciService.h"
#include "windows/FormMeniuri.h"

namespace yarvo {
namespace {

class MprisCommandsTest : public test::DirectorFixture {
 protected:
  std::string Status() { return model.Read().playbackStatus; }
  int Streams() { return bass.Calls("BASS_StreamCreateFile"); }

  MprisModel model;
  MprisCommands commands{model};
};

TEST_F(MprisCommandsTest, PlayAndPauseNeitherRestartNorToggleBack) {
  commands.Play();  // nothing chosen yet: the playlist starts, as next starts it
  EXPECT_EQ(bass.PlayingFile(), "/m/a.mp3");
  EXPECT_EQ(SongNumber(), "0");
  clock.Advance(1500);
  commands.Play();
  EXPECT_EQ(Streams(), 1) << "a playing song is not started again";
  EXPECT_DOUBLE_EQ(model.PositionSeconds(), 1.5);

  commands.Pause();
  EXPECT_EQ(Status(), "Paused");
  commands.Pause();
  EXPECT_EQ(Status(), "Paused") << "a second pause is no resume";
  commands.PlayPause();
  EXPECT_EQ(Status(), "Playing");
  EXPECT_EQ(Streams(), 1) << "resumed where it stood";
  commands.PlayPause();
  EXPECT_EQ(Status(), "Paused");

  commands.Stop();
  EXPECT_EQ(Status(), "Stopped");
  EXPECT_EQ(bass.PlayingFile(), "");
  commands.Play();
  EXPECT_EQ(bass.PlayingFile(), "/m/a.mp3") << "the row under the cursor plays again";
  EXPECT_EQ(Streams(), 2);
}

TEST_F(MprisCommandsTest, NothingToPlayIsNoDialogAndNoMessage) {
  P().Playlist().PicList.Clear();
  P().DataForm().ListaCale.Clear();
  commands.Play();
  commands.Next();
  commands.Previous();
  EXPECT_EQ(Status(), "Stopped");
  EXPECT_TRUE(desktop.messages.empty());
  EXPECT_EQ(Streams(), 0);
}

TEST_F(MprisCommandsTest, NextAndPreviousStepThroughTheListAndLeaveAPausedSong) {
  commands.Next();
  commands.Next();
  EXPECT_EQ(bass.PlayingFile(), "/m/b.mp3");
  commands.Pause();
  commands.Previous();
  EXPECT_EQ(bass.PlayingFile(), "/m/a.mp3");
  EXPECT_EQ(Status(), "Playing") << "the paused song was stopped, not resumed";
  commands.Previous();
  EXPECT_EQ(bass.PlayingFile(), "/m/d.wav") << "row 0 wraps to the last row";
}

TEST_F(MprisCommandsTest, SeeksStayInsideTheSongAndPastItsEndComesTheNext) {
  DoubleClick(0);  // 10 s
  clock.Advance(1000);
  const std::string id = model.Read().track.id;
  EXPECT_EQ(commands.SetPosition("/org/yarvo_player/track/other", 5'000'000), std::nullopt);
  EXPECT_EQ(commands.SetPosition(id, 11'000'000), std::nullopt) << "behind the end";
  EXPECT_EQ(commands.SetPosition(id, -1), std::nullopt);
  EXPECT_DOUBLE_EQ(model.PositionSeconds(), 1) << "none of them moved the song";

  EXPECT_EQ(commands.SetPosition(id, 5'000'000), 5'000'000);
  EXPECT_DOUBLE_EQ(model.PositionSeconds(), 5);
  EXPECT_EQ(commands.Seek(2'500'000), 7'500'000);
  EXPECT_EQ(commands.Seek(-60'000'000), 0) << "before the start is the start";
  clock.Advance(500);
  EXPECT_EQ(commands.Seek(30'000'000), std::nullopt);
  EXPECT_EQ(bass.PlayingFile(), "/m/b.mp3") << "behind the end is the next song";

  commands.Stop();
  EXPECT_EQ(commands.Seek(1'000'000), std::nullopt) << "a stopped player has nothing to seek";
}

TEST_F(MprisCommandsTest, TheVolumeGoesThroughTheVolumeBarToTheEngine) {
  DoubleClick(0);
  commands.SetVolume(0.25);
  EXPECT_DOUBLE_EQ(P().Main().Volum.value, 25);
  EXPECT_EQ(bass.volume, 2500u);
  commands.SetVolume(3);
  EXPECT_EQ(bass.volume, 10000u);
  commands.SetVolume(-1);
  EXPECT_EQ(bass.volume, 0u);
  commands.SetVolume(std::numeric_limits<double>::quiet_NaN());
  EXPECT_DOUBLE_EQ(P().Main().Volum.value, 0);
}

TEST_F(MprisCommandsTest, ShuffleIsTheRandomOrderModeAsTheMenuSetsIt) {
  auto& options = P().Options();
  auto& menus = P().FormMeniuri();
  commands.SetShuffle(true);
  EXPECT_TRUE(options.Option2.Value);
  EXPECT_TRUE(menus.ShuffleOnMenu.Checked) << "the menu's tick moves with it";
  EXPECT_FALSE(menus.ShuffleOfMenu.Checked);
  commands.SetShuffle(false);
  EXPECT_TRUE(options.Option1.Value);
  EXPECT_TRUE(menus.ShuffleOfMenu.Checked);
  options.Option3.Value = true;
  commands.SetShuffle(false);
  EXPECT_TRUE(options.Option3.Value) << "play the best is no shuffle to turn off";
}

TEST_F(MprisCommandsTest, AMediaServiceFileThatIsPausedIsNotResumedByPause) {
  test::FakeMciService service;
  P().Main().LbStatus(0).Caption = "paused";
  auto resumes = [&] {
    return std::count_if(service.sent.begin(), service.sent.end(),
                         [](const std::string& c) { return c.starts_with("Resume "); });
  };
  commands.Pause();
  EXPECT_EQ(resumes(), 0);
  commands.PlayPause();
  EXPECT_EQ(resumes(), 1);
}

TEST_F(MprisCommandsTest, AnOpenedFileReplacesAPausedSongAsAFileOutsideThePlaylist) {
  DoubleClick(0);
  commands.Pause();
  commands.OpenFile("/m/c.ogg");
  EXPECT_EQ(bass.PlayingFile(), "/m/c.ogg");
  EXPECT_EQ(P().DataForm().FromPlaylist.get(), "False");
  EXPECT_EQ(P().Main().Titlu.Caption.get(), "c");
  EXPECT_EQ(SongNumber(), "0") << "next goes on from the playlist's row";
}

}  // namespace
}  // namespace yarvo
