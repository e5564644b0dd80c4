// The road of one song on the real audio library: a double click on a row,
// the engine form's clock once a second, the end of the file and the next
// row, as the director's own test walks it on the fake library. Here the
// audio is real and plays in real time into a capture output; the manual
// clock is moved on by a second each time the channel has really played it.

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "RealLibraryFixture.h"
#include "core/Conversions.h"
#include "core/DataForm.h"
#include "director/ClsMain.h"
#include "playlist/ClsPl.h"
#include "playlist/Playlist.h"
#include "windows/Main.h"

namespace yarvo {
namespace {

using audio::test::sine;
using audio::test::stereo;
using audio::test::toneAmplitude;
using audio::test::writeWav;

constexpr double kSongSeconds = 5;

class SongRoadTest : public test::RealLibraryFixture {
 protected:
  SongRoadTest() : RealLibraryFixture(Pace::RealTime) {}

  void SetUp() override {
    StartReal();
    for (const auto& [name, hz] : {std::pair{"a", 440.0}, std::pair{"b", 880.0}}) {
      const auto path = media_ / (std::string(name) + ".wav");
      writeWav(path, stereo(sine(hz, 0.5, kSongSeconds), sine(hz, 0.5, kSongSeconds)));
      R().DataForm().ListaCale.AddItem(path.string());
    }
    ListNoChar(R().Playlist().PicList, R().DataForm().ListaCale);
    R().Main().Volum.value = 100;
    R().DataForm().MiniMode = "False";  // the main window shows the pictures
    R().Main().Show();
  }

  DWORD Channel() { return static_cast<DWORD>(CLng(R().frmBass().Chan.get())); }

  // Waits until the playing channel has been heard up to `seconds`; at once
  // when no channel plays. False when that takes longer than it can.
  bool WaitUntilPlayed(double seconds) {
    auto& library = R().bass();
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (std::chrono::steady_clock::now() < deadline) {
      const DWORD channel = Channel();
      if (library.BASS_ChannelIsActive(channel) == BASS_ACTIVE_STOPPED) return true;
      const QWORD position = library.BASS_ChannelGetPosition(channel, BASS_POS_BYTE);
      if (library.BASS_ChannelBytes2Seconds(channel, position) >= seconds) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return false;
  }

  // One second of the song, then the engine's tick.
  void Second(double heard) {
    ASSERT_TRUE(WaitUntilPlayed(heard)) << "the library did not play " << heard << " s in time";
    clock.Advance(1000);
  }

  // Strength of each tone in the last half second captured since the last
  // call; 0 when less was captured.
  std::vector<double> Heard(std::initializer_list<double> tones) {
    const std::vector<float> captured = capture_->take();
    const std::size_t frames = captured.size() / 2;
    std::vector<double> strength;
    for (double hz : tones) {
      strength.push_back(
          frames < 22050 ? 0 : toneAmplitude(captured, 0, hz, 44100, frames - 22050, 22050));
    }
    return strength;
  }
};

TEST_F(SongRoadTest, ADoubleClickedRowPlaysToItsEndAndTheNextRowFollows) {
  R().Playlist().PicList.SetListIndex(0);
  R().Playlist().Playlist_PicList_DblClick();
  auto& main = R().Main();
  EXPECT_EQ(R().frmBass().FileToPlay.Text.get(), (media_ / "a.wav").string());
  EXPECT_EQ(R().bass().BASS_ChannelIsActive(Channel()), BASS_ACTIVE_PLAYING);

  Second(1.0);
  EXPECT_EQ(main.TSec.Caption.get(), "0:01");
  EXPECT_EQ(main.TotalTime.Caption.get(), "0:05");
  EXPECT_EQ(main.PiesaCurenta.Caption.get(), "a");
  EXPECT_EQ(R().frmBass().StreamLength.get(), std::to_string(5 * 176400));
  const auto first = Heard({440, 880});
  EXPECT_GT(first[0], 0.4) << "a's tone reached the output";
  EXPECT_LT(first[1], 0.01);
  EXPECT_NE(main.Visualisation.Drawing.get(), nullptr) << "the visualisation ran with the ticks";

  // Two seconds or less before the end the tick frees the channel; the
  // next tick finds it inactive and starts the next row.
  Second(2.0);
  EXPECT_EQ(main.TSec.Caption.get(), "0:02");
  EXPECT_EQ(R().bass().BASS_ChannelIsActive(Channel()), BASS_ACTIVE_STOPPED) << "silent from here";
  Second(3.0);
  EXPECT_EQ(main.LbStatus(0).Caption.get(), "stopped") << "the end was seen";
  EXPECT_EQ(R().frmBass().FileToPlay.Text.get(), (media_ / "b.wav").string());
  EXPECT_EQ(R().bass().BASS_ChannelIsActive(Channel()), BASS_ACTIVE_PLAYING);
  EXPECT_EQ(main.PiesaCurenta.Caption.get(), "a")
      << "the title follows at the new song's first tick";

  Second(1.0);
  EXPECT_EQ(main.PiesaCurenta.Caption.get(), "b");
  EXPECT_EQ(main.TSec.Caption.get(), "0:01");
  const auto second = Heard({440, 880});
  EXPECT_GT(second[1], 0.4) << "b's tone reached the output";
  EXPECT_LT(second[0], 0.01);
}

}  // namespace
}  // namespace yarvo
