// What the desktop's media controls are told of the player, read from the
// form models while songs play on the fake audio library.

#include "host/mpris/MprisModel.h"

#include <gtest/gtest.h>

#include <string>

#include "director/DirectorFixture.h"
#include "host/mpris/MprisCommands.h"
#include "playlist/Id3Tag.h"

namespace yarvo {
namespace {

using test::DirectorFixture;

class MprisModelTest : public DirectorFixture {
 protected:
  MprisModel model;
  MprisCommands commands{model};
};

// A file whose last 128 bytes are an ID3v1 tag with these fields.
void WriteTaggedFile(const std::string& path, const std::string& title, const std::string& artist,
                     const std::string& album) {
  Id3Tag tag;
  tag.Title = title;
  tag.Artist = artist;
  tag.Album = album;
  const auto bytes = id3TagBytes(tag);
  test::WriteBytes(path, std::string(1000, '\x55') + std::string(bytes.begin(), bytes.end()));
}

TEST_F(MprisModelTest, ASongIsTheDesktopsFromItsStartThroughPauseAndStop) {
  MprisFacts facts = model.Read();
  EXPECT_EQ(facts.playbackStatus, "Stopped");
  EXPECT_EQ(facts.track, MprisTrack{}) << "nothing played yet";
  EXPECT_TRUE(facts.canPlay) << "the playlist has rows";
  EXPECT_FALSE(facts.canPause);
  EXPECT_FALSE(facts.canSeek);
  EXPECT_EQ(model.PositionSeconds(), 0);

  DoubleClick(1);
  clock.Advance(2500);
  facts = model.Read();
  EXPECT_EQ(facts.playbackStatus, "Playing");
  EXPECT_EQ(facts.track.path, "/m/b.mp3");
  EXPECT_EQ(facts.track.title, "b") << "no tag: the title of the file name";
  EXPECT_EQ(facts.track.artist, "");
  EXPECT_EQ(facts.track.length, 8'000'000);
  EXPECT_TRUE(facts.canPause);
  EXPECT_TRUE(facts.canSeek);
  EXPECT_DOUBLE_EQ(model.PositionSeconds(), 2.5);

  ClsMain().Pause();
  clock.Advance(1000);
  EXPECT_EQ(model.Read().playbackStatus, "Paused");
  EXPECT_DOUBLE_EQ(model.PositionSeconds(), 2.5) << "a paused song's clock stands";
  EXPECT_EQ(model.Read().track, facts.track) << "the same song, by the same id";

  ClsMain().SStop();
  facts = model.Read();
  EXPECT_EQ(facts.playbackStatus, "Stopped");
  EXPECT_EQ(facts.track.path, "/m/b.mp3") << "the song played last stays named";
  EXPECT_FALSE(facts.canSeek);
}

TEST_F(MprisModelTest, EachNewSongHasANewIdAndItsLengthStaysThroughItsSilentEnd) {
  DoubleClick(3);  // 5 s
  const MprisTrack first = model.Read().track;
  EXPECT_EQ(first.length, 5'000'000);
  clock.Advance(2000);  // the engine lets go of the song in its last seconds
  EXPECT_EQ(bass.PlayingFile(), "");
  EXPECT_EQ(model.Read().track.length, 5'000'000);
  EXPECT_DOUBLE_EQ(model.PositionSeconds(), 2) << "where the engine let go of it";
  EXPECT_EQ(PlayUntilNext(), "/m/a.mp3");
  const MprisTrack second = model.Read().track;
  EXPECT_NE(second.id, first.id);
  EXPECT_EQ(second.title, "a");
  EXPECT_EQ(second.length, 10'000'000);
}

TEST_F(MprisModelTest, TheTagNamesTheSong) {
  struct Case {
    std::string title;
    std::string artist;
    std::string album;
    std::string shownTitle;
  };
  const Case cases[] = {{"Concert A", "Tuning Fork", "Test Tones", "Concert A"},
                        {"  Spaced  ", "", "", "Spaced"},
                        {std::string("Zero\0padded", 11), "A", "B", "Zero"},
                        {"", "Only Artist", "", "tagged"}};
  for (const auto& [title, artist, album, shownTitle] : cases) {
    SCOPED_TRACE(shownTitle);
    const std::string path = folder / "tagged.mp3";
    WriteTaggedFile(path, title, artist, album);
    bass.AddFile(path, 3);
    P().DataForm().ListaCale.SetList(0, path);
    DoubleClick(0);
    const MprisTrack track = model.Read().track;
    EXPECT_EQ(track.title, shownTitle);
    EXPECT_EQ(track.artist, artist);
    EXPECT_EQ(track.album, album);
    ClsMain().SStop();
    P().DataForm().ListaCale.SetList(0, "/m/a.mp3");
    DoubleClick(0);  // another path: the next reading is a new song
    model.Read();
  }
}

TEST_F(MprisModelTest, TheStateWordsOfBothEnginesMapToTheProtocolsThree) {
  struct Case {
    const char* starePlayer;
    const char* lbStatus;
    const char* status;
  };
  // Without the audio engine's song, the media service's mode rules, in its
  // lower-case words; the audio engine's "Playing" left behind is none.
  for (const auto& [stare, mode, status] : {Case{"Playing", "playing", "Playing"},
                                            {"paused", "paused", "Paused"},
                                            {"Playing", "Playing", "Stopped"},
                                            {"", "stopped", "Stopped"},
                                            {"Waiting", "", "Stopped"}}) {
    SCOPED_TRACE(std::string(stare) + " / " + mode);
    P().Main().StarePlayer.Caption = stare;
    P().Main().LbStatus(0).Caption = mode;
    EXPECT_EQ(model.Read().playbackStatus, status);
  }
  // While the audio engine has the song, its own word rules; a file it could
  // not open has no channel and plays nothing.
  DoubleClick(0);
  P().Main().LbStatus(0).Caption = "paused";
  EXPECT_EQ(model.Read().playbackStatus, "Playing");
  P().frmBass().Chan = "0";
  EXPECT_EQ(model.Read().playbackStatus, "Stopped");
}

TEST_F(MprisModelTest, NextAndPreviousNeedRowsAndTheQueueIsANextToo) {
  auto& store = P().DataForm();
  P().Playlist().PicList.Clear();
  store.ListaCale.Clear();
  MprisFacts facts = model.Read();
  EXPECT_FALSE(facts.canGoNext);
  EXPECT_FALSE(facts.canGoPrevious);
  EXPECT_FALSE(facts.canPlay) << "nothing to start";
  store.ListaProgramate.AddItem("a");
  facts = model.Read();
  EXPECT_TRUE(facts.canGoNext);
  EXPECT_FALSE(facts.canGoPrevious);
}

TEST_F(MprisModelTest, VolumeAndShuffleAreTheBarsAndTheOrderModes) {
  P().Main().Volum.value = 40;
  P().Options().Option2.Value = true;
  MprisFacts facts = model.Read();
  EXPECT_DOUBLE_EQ(facts.volume, 0.4);
  EXPECT_TRUE(facts.shuffle);
  P().Options().Option3.Value = true;  // play the best is no shuffle
  EXPECT_FALSE(model.Read().shuffle);
}

}  // namespace
}  // namespace yarvo
