// The real device path: a private PulseAudio server with a null sink, the
// library's default output (libcubeb), and parec recording the sink's monitor;
// and the pace kept when there is no server, or no device at all.

#include "BassFixture.h"

#include <chrono>
#include <cstdlib>
#include <thread>

#include "support/SoundServer.h"

namespace yarvo::audio::test {
namespace {

class DeviceOutputTest : public ::testing::Test {
 protected:
  void SetUp() override { setOutputFactory({}); }
  void TearDown() override { BASS_Free(); }

  // Plays a 1 kHz tone of `seconds` on `device`; 0 when that fails.
  HSTREAM playTone(double seconds, int device = -1) {
    const auto path = sound_.Folder() / "tone.wav";
    writeWav(path, sine(1000.0, 0.25, seconds));
    if (!BASS_Init(device, 44100, 0, nullptr, nullptr)) return 0;
    const HSTREAM stream = BASS_StreamCreateFile(BASS_FALSE, path.c_str(), 0, 0, BASS_SAMPLE_FX);
    return BASS_ChannelPlay(stream, BASS_FALSE) ? stream : 0;
  }

  yarvo::test::SoundServer sound_;
};

// A 10 s tone through whatever output BASS_Init picks, the sink's monitor
// recorded meanwhile: played at the server's pace, and heard at its level.
// Then the server goes away in the middle of the song: the position goes on
// at real-time pace, so the player still finds the end.
TEST_F(DeviceOutputTest, ToneReachesTheSoundServerAndOutlivesIt) {
  if (!sound_.Ready()) GTEST_SKIP() << "a private PulseAudio server could not be started here";
  const auto recording = sound_.Folder() / "recorded.raw";
  auto recorder = sound_.Record(recording);
  ASSERT_TRUE(recorder->Started());
  const HSTREAM stream = playTone(10.0);
  ASSERT_NE(stream, 0u);
  // A null sink with no client sleeps in long blocks and takes a second or
  // more to notice a new stream; a sound card does not.
  for (int i = 0; i < 50 && BASS_ChannelGetPosition(stream, BASS_POS_BYTE) < 44100 * 2 / 5; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  // Not into a null output at once.
  EXPECT_NEAR(playbackSpeed(stream, std::chrono::milliseconds(2000)), 1.0, 0.1);
  recorder->Finish();
  sound_.Stop();
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  EXPECT_NEAR(playbackSpeed(stream, std::chrono::milliseconds(1500)), 1.0, 0.05);
  EXPECT_EQ(BASS_ChannelIsActive(stream), BASS_ACTIVE_PLAYING);

  const std::vector<float> samples = yarvo::test::ReadRecording(recording);
  ASSERT_GT(samples.size(), 2u * 44100) << "parec recorded too little; server log:\n"
                                        << sound_.Log();
  // The loudest second of the recording holds the tone at its level.
  double best = 0.0;
  std::size_t bestFrom = 0;
  for (std::size_t at = 0; at + 44100 <= samples.size() / 2; at += 4410) {
    const double a = toneAmplitude(samples, 0, 1000.0, 44100, at, 44100);
    if (a > best) {
      best = a;
      bestFrom = at;
    }
  }
  EXPECT_NEAR(best, 0.25, 0.05);
  EXPECT_LT(toneAmplitude(samples, 0, 1500.0, 44100, bestFrom, 44100), 0.01);
}

// Device 0 is "no sound", and the default device finds no server: either way
// the library plays on, through whatever cubeb finds or its own null output,
// at the pace of a sound card.
TEST_F(DeviceOutputTest, WithoutASoundServerPlaysOnAtRealTimeSpeed) {
  setenv("PULSE_SERVER", ("unix:" + (sound_.Folder() / "nobody").string()).c_str(), 1);
  for (const auto& [device, tolerance] : {std::pair{0, 0.02}, std::pair{-1, 0.05}}) {
    SCOPED_TRACE(device);
    const HSTREAM stream = playTone(4.0, device);
    ASSERT_NE(stream, 0u);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_NEAR(playbackSpeed(stream, std::chrono::milliseconds(2000)), 1.0, tolerance);
    BASS_Free();
  }
}

}  // namespace
}  // namespace yarvo::audio::test
