// Files the audio engine does not take: the director's route through the
// media service, its clock, the failure path, and the scrolling title.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "director/DirectorFixture.h"
#include "director/DoctorYarvo.h"
#include "engines/media/MciSendString.h"
#include "playlist/MediaLibrary.h"

namespace yarvo {
namespace {

// A media service that plays one 4 s video of 320 by 240 at 25 frames a
// second; the test says when it has reached its end.
class FakeVideoService {
 public:
  explicit FakeVideoService(std::string path) : path_(std::move(path)) {
    setMciCommandHook(
        [this](std::string_view command, std::span<char> reply) { return Answer(command, reply); });
  }
  ~FakeVideoService() { setMciCommandHook({}); }
  FakeVideoService(const FakeVideoService&) = delete;
  FakeVideoService& operator=(const FakeVideoService&) = delete;

  bool Sent(const std::string& command) const {
    return std::find(sent.begin(), sent.end(), command) != sent.end();
  }

  std::string mode = "playing";
  std::vector<std::string> sent;

 private:
  std::optional<std::uint32_t> Answer(std::string_view command, std::span<char> reply) {
    const std::string& c = sent.emplace_back(command);
    if (c.starts_with("open " + path_ + " type MPEGVideo Alias movie")) open_ = true;
    if (!open_ || c.find("movie") == std::string::npos) return 263;  // nothing open by that name
    if (c.starts_with("set movie time format ")) ms_ = c.ends_with(" ms");
    if (c == "Close movie") open_ = false;
    const std::map<std::string, std::string> replies = {
        {"status movie length", ms_ ? "4000" : "100"},
        {"status movie position", mode == "stopped" ? "100" : "50"},
        {"status movie mode", mode},
        {"status movie speed", "1000"},
        {"Where movie destination", "0 0 320 240"}};
    if (const auto it = replies.find(c); it != replies.end() && !reply.empty()) {
      reply[it->second.copy(reply.data(), reply.size() - 1)] = '\0';
    }
    return 0;
  }

  std::string path_;
  bool open_ = false;
  bool ms_ = false;
};

class MediaRoute : public test::DirectorFixture {};

TEST_F(MediaRoute, AVideoPlaysInTheVideoLayoutAndItsEndWaitsWhileTheSeekBarIsHeld) {
  const std::string video = folder / "film.avi";
  test::WriteBytes(video, "RIFF....AVI ");  // the service needs a file that exists
  P().DataForm().ListaCale.SetList(1, video);
  FakeVideoService service(video);
  DoubleClick(1);
  auto& main = P().Main();
  auto& library = P().MediaLibrary();
  EXPECT_EQ(P().frmBass().BassON.get(), "False");
  EXPECT_EQ(main.LbResult(0).Caption.get(), "Result calling Function is : Success");
  EXPECT_EQ(main.LbActualCx(0).Caption.get(), "320");
  EXPECT_EQ(library.LbFramesPerSecond(0).Caption.get(), "25");
  EXPECT_EQ(library.LbTotalFrames(0).Caption.get(), "100");
  EXPECT_EQ(main.SliderMoveMultimedia(0).max.get(), 2) << "one step is two seconds";
  EXPECT_TRUE(main.FrameVideo(0).Visible);
  EXPECT_TRUE(service.Sent("play movie from 0 to 100"));

  clock.Advance(500);
  EXPECT_EQ(main.LbStatus(0).Caption.get(), "playing");
  EXPECT_EQ(main.LbProgress(0).Caption.get(), "50 %");
  EXPECT_EQ(library.LbCurrentTime(0).Caption.get(), "2");
  clock.Advance(500);
  EXPECT_EQ(main.TSec.Caption.get(), "00:02");
  EXPECT_EQ(main.StarePlayer.Caption.get(), "playing")
      << "the state word follows the media service";

  main.SliderMoveMultimedia(0).SetFocus();  // a press on the bar
  EXPECT_EQ(main.StartMoveSlider.Caption.get(), "True");
  service.mode = "stopped";
  clock.Advance(2000);
  EXPECT_EQ(bass.PlayingFile(), "") << "no next song while the bar is held";
  main.SliderMoveMultimedia(0).value = 1;
  test::PressAndReleaseThumb(main.SliderMoveMultimedia(0));
  EXPECT_TRUE(service.Sent("seek movie to 50"));
  EXPECT_EQ(main.StartMoveSlider.Caption.get(), "False") << "the focus left the bar";
  clock.Advance(500);
  EXPECT_EQ(bass.PlayingFile(), "/m/c.ogg");
  EXPECT_EQ(SongNumber(), "2");
  EXPECT_EQ(main.LbActualCx(0).Caption.get(), "-1") << "the stop cleared the video size";
}

TEST_F(MediaRoute, AFileThatCannotBePlayedIsExplainedAfterTheApology) {
  const std::string broken = folder / "broken.avi";
  test::WriteBytes(broken, "");
  P().DataForm().ListaCale.SetList(1, broken);
  DoubleClick(1);  // the real media service refuses an empty file
  ASSERT_EQ(desktop.messages.size(), 2u);
  EXPECT_EQ(desktop.messages[0].prompt,
            "Sorry, Yarvo Player could not play this file. Doctor Yarvo will try to fix that");
  EXPECT_EQ(desktop.messages[1].title, "Doctor Yarvo");
  EXPECT_NE(desktop.messages[1].prompt.find("empty"), std::string::npos)
      << desktop.messages[1].prompt;
  EXPECT_EQ(bass.PlayingFile(), "") << "no next song after a failure";
}

TEST(DoctorYarvo, TellsWhyAFileWouldNotPlay) {
  test::TempDir dir;
  test::WriteBytes(dir / "text.avi", "just some words");
  test::WriteBytes(dir / "cut.mp4", std::string("\0\0\0\x18"
                                                "ftypisom",
                                                12));
  for (auto [path, words] : {std::pair{std::string(), "No file"},
                             {dir / "gone.avi", "does not exist"},
                             {dir.path().string(), "is a folder"},
                             {dir / "text.avi", "does not look like a media file"},
                             {dir / "cut.mp4", "MP4"},
                             {std::string("http://example.org/a.avi"), "web address"}}) {
    SCOPED_TRACE(path);
    EXPECT_NE(DoctorYarvo::Diagnose(path).find(words), std::string::npos)
        << DoctorYarvo::Diagnose(path);
  }
}

class MediaClock : public test::ProgramFixture {};

TEST_F(MediaClock, TheTimeTextHasTwoDigitMinutesAndTheTagLineHoldsWhilePaused) {
  Start();
  auto& main = P().Main();
  auto& now = P().MediaLibrary().LbCurrentTime(0).Caption;
  for (auto [seconds, text] : {std::pair{"9.6", "00:09"}, {"125", "02:05"}, {"6000", "100:00"}}) {
    now = seconds;
    main.Main_TimeCounter_Timer();
    EXPECT_EQ(main.TSec.Caption.get(), text) << seconds;
  }
  EXPECT_EQ(main.LabelVideo.Caption.get(), "YARVO PLAYER") << "no video";

  P().MediaLibrary().Text2T.Text = "The Artist";
  main.LbStatus(0).Caption = "playing";
  main.Main_TimeCounter_Timer();
  EXPECT_EQ(main.InfoIDTag.Caption.get(), "Artist: The Artist");
  main.LbStatus(0).Caption = "paused";
  for (int i = 0; i < 5; ++i) main.Main_TimeCounter_Timer();
  EXPECT_EQ(main.InfoIDTag.Caption.get(), "Artist: The Artist") << "a paused file holds its line";
}

TEST_F(MediaClock, TheTitleRunsRoundAsARingOfFiftyCharacters) {
  Start();
  auto& title = P().Main().Titlu.Caption;
  title = std::string(9, ' ') + "Song";
  P().Main().Main_ScrollTextTimer_Timer();
  EXPECT_EQ(title.get(), std::string(8, ' ') + "Song" + std::string(38, ' '));
  for (int i = 0; i < 49; ++i) P().Main().Main_ScrollTextTimer_Timer();
  EXPECT_EQ(title.get(), std::string(9, ' ') + "Song" + std::string(37, ' '))
      << "fifty steps go round once";
  title = "Ăla bală portocală";  // letters of two bytes stay whole
  P().Main().Main_ScrollTextTimer_Timer();
  EXPECT_EQ(title.get().substr(0, 4), "la b");
  EXPECT_NE(title.get().find("Ă"), std::string::npos);
}

}  // namespace
}  // namespace yarvo
