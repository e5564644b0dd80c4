// The road of songs through the director: a double click starts a row, the
// audio engine's clock finds its end, and the queue or the order mode picks
// the next, all on the manual clock with the fake audio library.

#include <gtest/gtest.h>

#include "director/DirectorFixture.h"
#include "playlist/MediaLibrary.h"

namespace yarvo {
namespace {

using test::DirectorFixture;

TEST_F(DirectorFixture, ADoubleClickedRowPlaysToItsEndAndTheNextRowFollows) {
  DoubleClick(0);
  auto& main = P().Main();
  EXPECT_EQ(bass.PlayingFile(), "/m/a.mp3");
  EXPECT_EQ(P().frmBass().BassON.get(), "True");
  EXPECT_EQ(main.StarePlayer.Caption.get(), "Playing");
  EXPECT_EQ(SongNumber(), "0");

  clock.Advance(1000);
  EXPECT_EQ(main.TSec.Caption.get(), "0:01");
  EXPECT_EQ(main.TotalTime.Caption.get(), "0:10");
  EXPECT_EQ(main.PiesaCurenta.Caption.get(), "a");

  // The tick within three seconds of the end frees the channel; the next one
  // finds it inactive and moves on.
  clock.Advance(6000);
  EXPECT_EQ(bass.PlayingFile(), "") << "silent from 7 s";
  clock.Advance(1000);
  EXPECT_EQ(bass.PlayingFile(), "/m/b.mp3");
  EXPECT_EQ(SongNumber(), "1");
  EXPECT_EQ(main.PiesaCurenta.Caption.get(), "a")
      << "the title follows at the new song's first tick";
  clock.Advance(1000);
  EXPECT_EQ(main.PiesaCurenta.Caption.get(), "b");
}

TEST_F(DirectorFixture, InListOrderTheListWrapsBothWays) {
  DoubleClick(3);
  EXPECT_EQ(PlayUntilNext(), "/m/a.mp3");
  EXPECT_EQ(SongNumber(), "0");
  ClsMain().PlayPrevious();
  EXPECT_EQ(bass.PlayingFile(), "/m/d.wav");
  EXPECT_EQ(SongNumber(), "3");
}

TEST_F(DirectorFixture, QueuedTitlesPlayFirstThenTheOrderGoesOnFromTheLastOfThem) {
  auto& queue = P().DataForm().ListaProgramate;
  queue.AddItem("c");
  queue.AddItem("a");
  DoubleClick(1);
  ClsMain().PlayNext();
  EXPECT_EQ(bass.PlayingFile(), "/m/c.ogg") << "next takes the queue first";
  EXPECT_EQ(SongNumber(), "2");
  EXPECT_EQ(PlayUntilNext(), "/m/a.mp3");
  EXPECT_EQ(SongNumber(), "0");
  EXPECT_EQ(queue.ListCount(), 0);
  EXPECT_EQ(PlayUntilNext(), "/m/b.mp3") << "in list order from the last queued row";
}

TEST_F(DirectorFixture, InRandomOrderTheEndDrawsARowAndNextDrawsToo) {
  P().Options().Option2.Value = true;
  DoubleClick(0);
  random.Next(2, 4);
  EXPECT_EQ(PlayUntilNext(), "/m/c.ogg");
  EXPECT_EQ(SongNumber(), "0") << "a random pick does not move SongNumber";
  random.Next(3, 4);
  ClsMain().PlayNext();
  EXPECT_EQ(bass.PlayingFile(), "/m/d.wav");
  EXPECT_GE(random.randomizes, 2) << "the generator restarts for every pick";
}

TEST_F(DirectorFixture, PlayTheBestDrawsByTheRankingAtTheEndButNextStepsInOrder) {
  P().Options().Option3.Value = true;
  P().MediaLibrary().Song(0).Caption = "c";
  P().MediaLibrary().CountPlayed(0).Caption = "5";
  DoubleClick(0);
  random.Next(12, 70);  // r = 13: place 1
  EXPECT_EQ(PlayUntilNext(), "/m/c.ogg");
  EXPECT_EQ(SongNumber(), "0") << "a draw by the ranking does not move SongNumber";
  ClsMain().PlayNext();
  EXPECT_EQ(bass.PlayingFile(), "/m/b.mp3") << "next steps in list order in this mode";
}

TEST_F(DirectorFixture, PlayResumesAPausedFileButNextStartsTheNextRow) {
  DoubleClick(0);
  clock.Advance(2000);
  ClsMain().Pause();
  EXPECT_EQ(P().Main().StarePlayer.Caption.get(), "Paused");
  EXPECT_EQ(bass.PlayingFile(), "");
  clock.Advance(20000);
  EXPECT_EQ(P().frmBass().BassON.get(), "True") << "a paused song does not end";
  const int opened = bass.Calls("BASS_StreamCreateFile");
  ClsMain().Play();
  EXPECT_EQ(bass.PlayingFile(), "/m/a.mp3");
  EXPECT_EQ(bass.Calls("BASS_StreamCreateFile"), opened);
  EXPECT_EQ(P().MediaLibrary().CountPlayed(0).Caption.get(), "1") << "not counted again";
  ClsMain().Pause();
  ClsMain().PlayNext();
  EXPECT_EQ(bass.PlayingFile(), "/m/b.mp3");
  EXPECT_EQ(P().Main().StarePlayer.Caption.get(), "Playing");
}

TEST_F(DirectorFixture, AFileTheAudioEngineCannotOpenEndsAtItsFirstTick) {
  P().DataForm().ListaCale.SetList(0, "/m/broken.mp3");  // no such file in the fake
  DoubleClick(0);
  EXPECT_EQ(bass.PlayingFile(), "");
  EXPECT_TRUE(desktop.messages.empty()) << "the audio route fails silently";
  clock.Advance(1000);
  EXPECT_EQ(bass.PlayingFile(), "/m/b.mp3");
}

TEST_F(DirectorFixture, NextAndPreviousOnAnEmptyPlaylistDoNothing) {
  P().DataForm().ListaCale.Clear();
  P().Playlist().PicList.Clear();
  ClsMain().PlayNext();
  ClsMain().PlayPrevious();
  EXPECT_EQ(bass.PlayingFile(), "");
  EXPECT_EQ(SongNumber(), "-1");
}

TEST_F(DirectorFixture, ASongNumberBehindTheEndCountsAsTheLastRow) {
  P().DataForm().SongNumber = "9";
  ClsMain().PlayNext();
  EXPECT_EQ(bass.PlayingFile(), "/m/a.mp3");
  P().DataForm().SongNumber = "9";
  ClsMain().PlayPrevious();
  EXPECT_EQ(bass.PlayingFile(), "/m/d.wav");
}

TEST_F(DirectorFixture, NextAfterAFileFromOutsideThePlaylistMovesOnInThePlaylist) {
  bass.AddFile("/elsewhere/x.mp3", 30);
  desktop.fileAnswers.push_back("/elsewhere/x.mp3");
  DoubleClick(1);
  ClsMain().OpenAndPlayFile();
  EXPECT_EQ(bass.PlayingFile(), "/elsewhere/x.mp3");
  EXPECT_EQ(SongNumber(), "1") << "the dialog's file leaves SongNumber alone";
  ClsMain().PlayNext();
  EXPECT_EQ(bass.PlayingFile(), "/m/c.ogg");
}

TEST_F(DirectorFixture, TheEngineIsChosenByTheLastFourCharactersOnly) {
  bass.AddFile("/m/LOUD.MP3", 5);
  bass.AddFile("/m/trail.mp3 ", 5);
  auto& main = P().Main();
  P().DataForm().FromPlaylist = "False";
  main.LbFileName(0).Caption = "/m/LOUD.MP3";
  ClsMain().Play();
  EXPECT_EQ(bass.PlayingFile(), "/m/LOUD.MP3") << "capitals go by their lower-case form";
  main.LbFileName(0).Caption = "/m/trail.mp3 ";
  ClsMain().Play();
  EXPECT_EQ(bass.PlayingFile(), "") << "a trailing blank sends the name to the media service";
  EXPECT_EQ(P().frmBass().BassON.get(), "False");
}

class CommandLine : public test::ProgramFixture {};

TEST_F(CommandLine, TheWholeCommandLineIsOnePathAsTheFileSystemSpellsIt) {
  test::WriteBytes(folder / "My Song.mp3", "");
  bass.AddFile(folder / "My Song.mp3", 30);
  process.commandLine = folder / "my song.MP3";  // arguments joined by blanks
  Start();
  EXPECT_EQ(bass.PlayingFile(), folder / "My Song.mp3");
  EXPECT_EQ(P().DataForm().FromPlaylist.get(), "False");
  EXPECT_EQ(P().Main().PiesaCurenta.Caption.get(), "My Song");
}

TEST_F(CommandLine, APathThatDoesNotExistPlaysNothingAndSaysNothing) {
  process.commandLine = folder / "gone.mp3";
  Start();
  EXPECT_EQ(P().Main().LbFileName(0).Caption.get(), "");
  EXPECT_EQ(bass.PlayingFile(), "");
  EXPECT_TRUE(desktop.messages.empty());
}

}  // namespace
}  // namespace yarvo
