// An output that holds what it renders for a while before it is heard, as a
// sound server does: positions, the end of a channel and its samples follow
// what is heard, and pause, seek and free throw away what is held and go on
// from what was heard, neither skipping nor repeating a frame.
//
// The song is a ramp: frame n is 0.5 * n / kFrames, so every sample says
// which frame of the song it is.

#include "BassFixture.h"

namespace yarvo::audio::test {
namespace {

constexpr std::size_t kFrames = 88200;
constexpr std::size_t kHold = 4410;

class HoldingOutput final : public AudioOutput {
 public:
  int rate() const noexcept override { return 44100; }
  // Rendered on the test's own pace: channels wait for their decoders.
  bool realTime() const noexcept override { return false; }
  bool start(AudioSource& source) override {
    source_ = &source;
    return true;
  }
  void stop() noexcept override {}
  std::uint64_t heardFrame() const noexcept override {
    return source_ == nullptr ? 0 : source_->renderedFrames() - held_;
  }
  void discard(const Rewind& rewind) override {
    rewind(heardFrame());
    heard_.resize(heard_.size() - 2 * held_);
    held_ = 0;
  }

  // `frames` of time: the source renders ahead by kHold frames; what it
  // renders in silence is not kept, and then what is held plays out.
  void pump(std::size_t frames) {
    std::vector<float> block(2 * frames);
    const std::size_t kept = source_->render(block.data(), frames);
    heard_.insert(heard_.end(), block.begin(), block.begin() + std::ptrdiff_t(2 * kept));
    held_ = std::min(kHold, held_ + kept);
    held_ -= std::min(held_, frames - kept);
  }
  // Everything heard or still to be heard, stereo.
  const std::vector<float>& stream() const { return heard_; }

 private:
  std::size_t held_ = 0;
  std::vector<float> heard_;
};

class HeldAudioTest : public ::testing::Test {
 protected:
  void SetUp() override {
    setOutputFactory([this](int, int) {
      auto output = std::make_unique<HoldingOutput>();
      output_ = output.get();
      ++outputsMade_;
      return output;
    });
    ASSERT_TRUE(BASS_Init(-1, 44100, 0, nullptr, nullptr));
    Signal ramp{44100, 1, std::vector<float>(kFrames)};
    for (std::size_t n = 0; n < kFrames; ++n) ramp.samples[n] = float(0.5 * double(n) / kFrames);
    writeWav(dir_ / "ramp.wav", ramp, true);
    stream_ = BASS_StreamCreateFile(BASS_FALSE, (dir_ / "ramp.wav").c_str(), 0, 0, 0);
    ASSERT_NE(stream_, 0u);
  }

  void TearDown() override {
    BASS_Free();
    setOutputFactory({});
  }

  void pump(double seconds) { output_->pump(static_cast<std::size_t>(seconds * 44100)); }

  // The song frame in output frame `at`, from its left sample.
  double songFrame(std::size_t at) const {
    return double(output_->stream().at(2 * at)) * 2.0 * double(kFrames);
  }
  std::size_t heard() const { return output_->stream().size() / 2; }
  std::uint64_t positionFrames() const {
    return BASS_ChannelGetPosition(stream_, BASS_POS_BYTE) / 2;
  }

  TempDir dir_;
  HoldingOutput* output_ = nullptr;
  int outputsMade_ = 0;
  HSTREAM stream_ = 0;
};

TEST_F(HeldAudioTest, ThePositionAndTheSamplesAreThoseHeardNotThoseHeld) {
  ASSERT_TRUE(BASS_ChannelPlay(stream_, BASS_FALSE));
  pump(0.5);
  EXPECT_EQ(positionFrames(), 22050 - kHold);
  float newest = 0;
  ASSERT_EQ(BASS_ChannelGetData(stream_, &newest, sizeof(float) | BASS_DATA_FLOAT), sizeof(float));
  EXPECT_NEAR(double(newest) * 2.0 * kFrames, double(22050 - kHold - 1), 0.01);
}

// Pause throws away what was held: the song fades out from the frame heard
// at the press, and play goes on from where the fade ended.
TEST_F(HeldAudioTest, PauseGoesBackToWhatWasHeardAndPlayGoesOnFromThere) {
  ASSERT_TRUE(BASS_ChannelPlay(stream_, BASS_FALSE));
  pump(0.5);
  const std::size_t pressed = 22050 - kHold;
  ASSERT_TRUE(BASS_ChannelPause(stream_));
  EXPECT_EQ(heard(), pressed) << "what was held is gone";
  pump(0.2);
  for (std::size_t f = 300; f < pressed; f += 97) ASSERT_NEAR(songFrame(f), double(f), 0.01);
  EXPECT_NEAR(songFrame(pressed) / double(pressed), 1.0, 0.01)
      << "the fade starts where it was heard";
  const std::uint64_t paused = positionFrames();
  EXPECT_GE(paused, pressed);
  EXPECT_LE(paused, pressed + 250) << "the fade is a few milliseconds";
  EXPECT_EQ(songFrame(heard() - 1), 0.0) << "silent after the fade";

  const std::size_t resumed = heard();
  ASSERT_TRUE(BASS_ChannelPlay(stream_, BASS_FALSE));
  pump(0.5);
  // Past the fade in, the song runs on from the pause, frame by frame.
  for (std::size_t f = resumed + 300; f < resumed + 10000; f += 97)
    ASSERT_NEAR(songFrame(f), double(paused + (f - resumed)), 0.01);
}

TEST_F(HeldAudioTest, ASeekIsHeardAtItsPlaceNextAndFreeingIsSilentAtOnce) {
  ASSERT_TRUE(BASS_ChannelPlay(stream_, BASS_FALSE));
  pump(0.5);
  const std::size_t pressed = 22050 - kHold;
  ASSERT_TRUE(BASS_ChannelSetPosition(stream_, 60000 * 2, BASS_POS_BYTE));
  EXPECT_EQ(positionFrames(), 60000u) << "where the seek goes, before it is heard";
  pump(0.2);
  EXPECT_NEAR(songFrame(pressed - 1), double(pressed - 1), 0.01);
  EXPECT_NEAR(songFrame(pressed), 60000.0, 0.01);
  EXPECT_NEAR(songFrame(pressed + 100), 60100.0, 0.01);

  const std::size_t freed = heard() - kHold;
  ASSERT_TRUE(BASS_StreamFree(stream_));
  EXPECT_EQ(heard(), freed);
  pump(0.1);
  EXPECT_EQ(heard(), freed) << "nothing more to hear";
}

// A channel that reached its end still plays while its last frames are held.
TEST_F(HeldAudioTest, AChannelPlaysUntilItsEndIsHeard) {
  ASSERT_TRUE(BASS_ChannelSetPosition(stream_, (kFrames - 2205) * 2, BASS_POS_BYTE));
  ASSERT_TRUE(BASS_ChannelPlay(stream_, BASS_FALSE));
  pump(0.1);
  EXPECT_EQ(BASS_ChannelIsActive(stream_), BASS_ACTIVE_PLAYING) << "its end is still held";
  pump(0.1);
  EXPECT_EQ(BASS_ChannelIsActive(stream_), BASS_ACTIVE_STOPPED);
  EXPECT_EQ(positionFrames(), kFrames);
}

// The engine frees the library between any two songs: the output (a sound
// server's stream) stays for the next BASS_Init, and nothing of the freed
// channels is heard.
TEST_F(HeldAudioTest, TheOutputOutlivesBassFreeForTheNextInit) {
  ASSERT_TRUE(BASS_ChannelPlay(stream_, BASS_FALSE));
  pump(0.5);
  const std::size_t freed = heard() - kHold;
  ASSERT_TRUE(BASS_Free());
  EXPECT_EQ(heard(), freed);
  ASSERT_TRUE(BASS_Init(-1, 44100, 0, nullptr, nullptr));
  EXPECT_EQ(outputsMade_, 1);
  EXPECT_EQ(BASS_ChannelIsActive(stream_), BASS_ACTIVE_STOPPED) << "its channels are gone";
}

}  // namespace
}  // namespace yarvo::audio::test
