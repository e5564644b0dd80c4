// Opening by content, pause and stop, freeing, and every call on a handle
// that is not (or no longer) a channel.

#include "BassFixture.h"

#include <array>
#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

namespace yarvo::audio::test {
namespace {

class ChannelLifecycleTest : public BassFixture {
 protected:
  HSTREAM openTone(double seconds = 3.0) { return openWav(sine(1000.0, 0.25, seconds)); }
};

// Streams and music are told apart by content, not by name; names are UTF-8.
TEST_F(ChannelLifecycleTest, TrackerModuleIsMusicAndStreamsAreNotWhateverTheirNames) {
  const auto mod = dir_ / "m\xC3\xBAsica.mod";
  writeModule(mod);
  const auto wav = dir_ / "\xC8\x98tefan \xE2\x80\x93 c\xC3\xA2ntec.wav";  // "Ștefan – cântec"
  writeWav(wav, sine(1000.0, 0.25, 1.0));
  const auto mp3 = dir_ / "tone.mp3";
  ASSERT_TRUE(ffmpegSine(mp3, "libmp3lame", 1.0));
  std::filesystem::copy_file(mod, dir_ / "song.mp3");
  std::filesystem::copy_file(wav, dir_ / "tone.mod");
  for (const auto& path : {mod, dir_ / "song.mp3"}) {
    SCOPED_TRACE(path);
    EXPECT_EQ(openStream(path), 0u);
    EXPECT_NE(loadMusic(path), 0u);
  }
  for (const auto& path : {wav, mp3, dir_ / "tone.mod"}) {
    SCOPED_TRACE(path);
    EXPECT_EQ(loadMusic(path), 0u);
    EXPECT_NE(openStream(path), 0u);
  }
  BASS_CHANNELINFO info{};
  ASSERT_TRUE(BASS_ChannelGetInfo(openStream(wav), &info));
  EXPECT_EQ(std::string(info.filename), wav.string());

  const HMUSIC music = loadMusic(mod);
  ASSERT_TRUE(BASS_ChannelGetInfo(music, &info));
  EXPECT_EQ(info.ctype, BASS_CTYPE_MUSIC_MOD);
  EXPECT_EQ(info.chans, 2u);
  // 64 rows at speed 6 and 125 BPM: 7.68 s.
  EXPECT_NEAR(BASS_ChannelBytes2Seconds(music, BASS_ChannelGetLength(music, BASS_POS_BYTE)), 7.68,
              0.05);
  ASSERT_TRUE(BASS_ChannelPlay(music, BASS_FALSE));
  const auto out = render(1.5);
  EXPECT_GT(rms(out, 4410, 44100), 0.01);
  // The note's pitch is there, on the left (ProTracker's first channel).
  const double tone = toneAmplitude(out, 0, kModuleToneHz, 44100, 4410, 44100);
  EXPECT_GT(tone, 5.0 * toneAmplitude(out, 0, 1.5 * kModuleToneHz, 44100, 4410, 44100));
}

TEST_F(ChannelLifecycleTest, CorruptOrEmptyFilesGiveNoHandle) {
  std::vector<unsigned char> noise(8192);
  std::mt19937 random(7);
  for (auto& b : noise) b = static_cast<unsigned char>(random());
  const auto text = [](std::string_view s) {
    return std::vector<unsigned char>(s.begin(), s.end());
  };
  const std::vector<std::pair<const char*, std::vector<unsigned char>>> cases{
      {"empty", {}},
      {"random", noise},
      {"truncated_riff", text("RIFF\x24\x00\x00\x00WAVEfmt ")},
      {"text", text("#EXTM3U\nsong.mp3\n")},
      {"mpeg_sync_once", {0xFF, 0xFB, 0x90, 0x64, 0, 0, 0, 0}},
  };
  for (const auto& [name, bytes] : cases) {
    SCOPED_TRACE(name);
    writeBytes(dir_ / name, bytes);
    EXPECT_EQ(openStream(dir_ / name), 0u);
    EXPECT_EQ(loadMusic(dir_ / name), 0u);
  }
  EXPECT_EQ(openStream(dir_ / "missing.mp3"), 0u);
  EXPECT_EQ(loadMusic(dir_ / "missing.mod"), 0u);
}

// Paused, a channel stays active and stands still; stopped, it is inactive
// and goes on from where it stopped; ended, it plays again from the start.
TEST_F(ChannelLifecycleTest, PausedStoppedAndEndedChannelsPlayOnAsTheyShould) {
  const HSTREAM stream = openTone(2.0);
  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  render(0.5);
  ASSERT_TRUE(BASS_ChannelPause(stream));
  render(0.05);  // the fade-out
  const QWORD paused = BASS_ChannelGetPosition(stream, BASS_POS_BYTE);
  const auto silence = render(1.0);
  EXPECT_EQ(BASS_ChannelIsActive(stream), BASS_ACTIVE_PAUSED);
  EXPECT_EQ(BASS_ChannelGetPosition(stream, BASS_POS_BYTE), paused);
  EXPECT_EQ(peak(silence, 0, silence.size() / 2), 0.0);
  // The fade took about 5 ms, not more.
  EXPECT_NEAR(BASS_ChannelBytes2Seconds(stream, paused), 0.5, 0.01);
  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  const auto resumed = render(0.5);
  EXPECT_EQ(BASS_ChannelIsActive(stream), BASS_ACTIVE_PLAYING);
  EXPECT_NEAR(BASS_ChannelBytes2Seconds(stream, BASS_ChannelGetPosition(stream, BASS_POS_BYTE)),
              1.0, 0.01);
  EXPECT_NEAR(toneAmplitude(resumed, 0, 1000.0, 44100, 4410, 17640), 0.25, 0.01);

  ASSERT_TRUE(BASS_ChannelStop(stream));
  render(0.1);
  EXPECT_EQ(BASS_ChannelIsActive(stream), BASS_ACTIVE_STOPPED);
  const QWORD stopped = BASS_ChannelGetPosition(stream, BASS_POS_BYTE);
  EXPECT_FALSE(BASS_ChannelPause(stream));
  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  render(0.2);
  EXPECT_GT(BASS_ChannelGetPosition(stream, BASS_POS_BYTE), stopped);

  renderToEnd(stream, 2.0);
  EXPECT_EQ(BASS_ChannelIsActive(stream), BASS_ACTIVE_STOPPED);
  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  const auto again = render(0.2);
  EXPECT_EQ(BASS_ChannelIsActive(stream), BASS_ACTIVE_PLAYING);
  EXPECT_NEAR(BASS_ChannelBytes2Seconds(stream, BASS_ChannelGetPosition(stream, BASS_POS_BYTE)),
              0.2, 0.01);
  EXPECT_NEAR(toneAmplitude(again, 0, 1000.0, 44100, 441, 4410), 0.25, 0.01);
}

// Every call, on 0, on an unknown value, on a freed channel and its effect
// and on a channel from before BASS_Free: each fails and nothing else happens.
TEST_F(ChannelLifecycleTest, CallsOnDeadHandlesFailHarmlessly) {
  const HSTREAM freed = openTone();
  const HFX freedFx = BASS_ChannelSetFX(freed, BASS_FX_DX8_PARAMEQ, 0);
  ASSERT_NE(freedFx, 0u);
  ASSERT_TRUE(BASS_ChannelPlay(freed, BASS_FALSE));
  render(0.3);
  EXPECT_FALSE(BASS_MusicFree(freed));  // another kind: harmless
  EXPECT_EQ(BASS_ChannelIsActive(freed), BASS_ACTIVE_PLAYING);
  ASSERT_TRUE(BASS_StreamFree(freed));
  const auto after = render(0.2);
  EXPECT_EQ(peak(after, 0, after.size() / 2), 0.0) << "a freed channel is silent at once";
  const HSTREAM live = openTone();
  ASSERT_TRUE(BASS_ChannelPlay(live, BASS_FALSE));

  const std::vector<std::pair<const char*, DWORD>> handles{
      {"zero", 0}, {"unknown", 0x7FFF1234}, {"freed", freed}, {"freed effect", freedFx}};
  for (const auto& [name, handle] : handles) {
    SCOPED_TRACE(name);
    BASS_DX8_PARAMEQ eq{1000, 18, 0};
    BASS_CHANNELINFO info{};
    std::array<float, 1024> data{};
    EXPECT_FALSE(BASS_ChannelPlay(handle, BASS_FALSE));
    EXPECT_FALSE(BASS_ChannelPause(handle));
    EXPECT_FALSE(BASS_ChannelStop(handle));
    EXPECT_EQ(BASS_ChannelIsActive(handle), BASS_ACTIVE_STOPPED);
    EXPECT_EQ(BASS_ChannelGetPosition(handle, BASS_POS_BYTE), ~QWORD{0});
    EXPECT_EQ(BASS_ChannelGetLength(handle, BASS_POS_BYTE), ~QWORD{0});
    EXPECT_FALSE(BASS_ChannelSetPosition(handle, 0, BASS_POS_BYTE));
    EXPECT_LT(BASS_ChannelBytes2Seconds(handle, 1000), 0.0);
    EXPECT_FALSE(BASS_ChannelGetInfo(handle, &info));
    EXPECT_EQ(BASS_ChannelGetData(handle, data.data(), BASS_DATA_FFT2048), 0xFFFFFFFFu);
    EXPECT_EQ(BASS_ChannelSetFX(handle, BASS_FX_DX8_PARAMEQ, 0), 0u);
    EXPECT_FALSE(BASS_StreamFree(handle));
    EXPECT_FALSE(BASS_MusicFree(handle));
    EXPECT_FALSE(BASS_FXSetParameters(handle, &eq));
    EXPECT_FALSE(BASS_FXGetParameters(handle, &eq));
  }
  EXPECT_EQ(BASS_ChannelIsActive(live), BASS_ACTIVE_PLAYING);

  // Handles do not survive a new initialisation; once is all it takes, and
  // nothing opens without it.
  EXPECT_FALSE(BASS_Init(-1, 44100, 0, nullptr, nullptr));
  ASSERT_TRUE(BASS_Free());
  EXPECT_FALSE(BASS_Free());
  EXPECT_EQ(openTone(), 0u);
  ASSERT_TRUE(BASS_Init(-1, 44100, 0, nullptr, nullptr));
  EXPECT_EQ(BASS_ChannelIsActive(live), BASS_ACTIVE_STOPPED);
  EXPECT_FALSE(BASS_ChannelPlay(live, BASS_FALSE));
  EXPECT_FALSE(BASS_StreamFree(live));
  EXPECT_NE(openTone(), 0u);
}

TEST_F(ChannelLifecycleTest, StreamVolumeScalesTheOutputLinearly) {
  const HSTREAM stream = openTone();
  ASSERT_TRUE(BASS_SetConfig(BASS_CONFIG_GVOL_STREAM, 5000));
  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  const auto half = render(0.5);
  EXPECT_NEAR(toneAmplitude(half, 0, 1000.0, 44100, 4410, 17640), 0.125, 0.002);
  ASSERT_TRUE(BASS_SetConfig(BASS_CONFIG_GVOL_STREAM, 0));
  render(0.1);
  const auto muted = render(0.2);
  EXPECT_EQ(peak(muted, 0, muted.size() / 2), 0.0);
  EXPECT_FALSE(BASS_SetConfig(99, 1));
  // The volume is global and outlives the library's initialisation.
  ASSERT_TRUE(BASS_SetConfig(BASS_CONFIG_GVOL_STREAM, 10000));
}

class IdleOutputTest : public ChannelLifecycleTest {
 protected:
  IdleOutputTest() { pace_ = CaptureOutput::Pace::RealTime; }
};

// Nothing is pulled from the mixer until a channel plays: a player opened and
// left alone keeps the device idle.
TEST_F(IdleOutputTest, TheOutputRunsOnlyOnceSomethingPlays) {
  const HSTREAM stream = openTone();
  std::this_thread::sleep_for(std::chrono::milliseconds(60));
  EXPECT_TRUE(capture_->take().empty());
  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(2);
  while (capture_->take().empty() && std::chrono::steady_clock::now() < deadline)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  EXPECT_LT(std::chrono::steady_clock::now(), deadline);
}

// A device that opens but will not start gives way to the silent output when
// the first channel plays, and the song goes on at real-time pace.
TEST_F(ChannelLifecycleTest, ADeviceThatWillNotStartGivesWayToTheSilentOutput) {
  class RefusingOutput final : public AudioOutput {
   public:
    int rate() const noexcept override { return 44100; }
    bool start(AudioSource&) override { return false; }
    void stop() noexcept override {}
  };
  BASS_Free();
  setOutputFactory([](int device, int rate) -> std::unique_ptr<AudioOutput> {
    if (device == 0) return std::make_unique<CaptureOutput>(rate, CaptureOutput::Pace::RealTime);
    return std::make_unique<RefusingOutput>();
  });
  ASSERT_TRUE(BASS_Init(-1, 44100, 0, nullptr, nullptr));
  const HSTREAM stream = openTone();
  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  EXPECT_NEAR(playbackSpeed(stream, std::chrono::milliseconds(300)), 1.0, 0.2);
}

// A program may end while a song plays, without BASS_Free: the output must
// stop before the channels it reads from are destroyed.
TEST(LibraryExitTest, EndingWhilePlayingExitsCleanly) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  TempDir dir;
  const auto path = dir / "tone.wav";
  writeWav(path, sine(1000.0, 0.25, 2.0));
  EXPECT_EXIT(
      {
        BASS_Init(0, 44100, 0, nullptr, nullptr);
        const HSTREAM stream =
            BASS_StreamCreateFile(BASS_FALSE, path.c_str(), 0, 0, BASS_SAMPLE_FX);
        BASS_ChannelSetFX(stream, BASS_FX_DX8_REVERB, 0);
        BASS_ChannelPlay(stream, BASS_FALSE);
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        const int status = BASS_ChannelIsActive(stream) == BASS_ACTIVE_PLAYING ? 0 : 1;
        // std::exit skips the destructors of this scope: the child's copy of
        // the folder goes now.
        std::filesystem::remove_all(dir.path());
        std::exit(status);
      },
      ::testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace yarvo::audio::test
