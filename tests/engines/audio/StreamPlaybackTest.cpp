// Streams of each format played through the library: the tone that comes out,
// the exact length, the end, and the pace of the position.

#include "BassFixture.h"

#include <chrono>
#include <thread>

namespace yarvo::audio::test {
namespace {

struct FormatCase {
  const char* name;
  const char* file;
  const char* codec;
  DWORD contentType;
  // Allowed deviation of the tone from ffmpeg's 1/8 amplitude, dB.
  double levelToleranceDb;
};

// Names the case in test listings, rather than its bytes.
std::ostream& operator<<(std::ostream& out, const FormatCase& c) { return out << c.name; }

const FormatCase kFormats[] = {
    {"Mp3", "sine.mp3", "libmp3lame", BASS_CTYPE_STREAM_MP3, 0.5},
    {"Wav", "sine.wav", "pcm_s16le", BASS_CTYPE_STREAM_WAV_PCM, 0.1},
    {"Ogg", "sine.ogg", "libvorbis", BASS_CTYPE_STREAM_OGG, 0.5},
};

constexpr double kSeconds = 3.0;
constexpr QWORD kExpectedBytes = 132300 * 2;  // 3 s, mono, 16-bit
const double kFfmpegAmplitude = 1.0 / 8.0;

class StreamFormatTest : public BassFixture, public ::testing::WithParamInterface<FormatCase> {};

// The tone at its level and to the exact length on a fast output; then, on a
// real-time one, at real-time speed.
TEST_P(StreamFormatTest, PlaysTheToneAtItsLevelToTheExactLengthAndInRealTime) {
  const auto path = dir_ / GetParam().file;
  ASSERT_TRUE(ffmpegSine(path, GetParam().codec, kSeconds));
  const HSTREAM stream = openStream(path);
  ASSERT_NE(stream, 0u);
  BASS_CHANNELINFO info{};
  ASSERT_TRUE(BASS_ChannelGetInfo(stream, &info));
  EXPECT_EQ(info.freq, 44100u);
  EXPECT_EQ(info.chans, 1u);
  EXPECT_EQ(info.ctype, GetParam().contentType);
  EXPECT_EQ(BASS_ChannelGetLength(stream, BASS_POS_BYTE), kExpectedBytes);

  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  const std::vector<float> out = renderToEnd(stream, 10.0);
  EXPECT_EQ(BASS_ChannelIsActive(stream), BASS_ACTIVE_STOPPED);
  // Everything the file decodes to was handed to the output, no more.
  EXPECT_EQ(BASS_ChannelGetPosition(stream, BASS_POS_BYTE), kExpectedBytes);

  const double level = toneAmplitude(out, 0, 1000.0, 44100, 44100, 44100);
  EXPECT_NEAR(toDb(level / kFfmpegAmplitude), 0.0, GetParam().levelToleranceDb);
  // Mono goes to both sides alike.
  EXPECT_NEAR(toneAmplitude(out, 1, 1000.0, 44100, 44100, 44100), level, 1e-6);
  // A clean tone: the second harmonic stays far below it.
  EXPECT_LT(toneAmplitude(out, 0, 2000.0, 44100, 44100, 44100), level * 0.01);

  ASSERT_TRUE(reopen(outputRate_, CaptureOutput::Pace::RealTime));
  const HSTREAM live = openStream(path);
  ASSERT_TRUE(BASS_ChannelPlay(live, BASS_FALSE));
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  EXPECT_NEAR(playbackSpeed(live, std::chrono::milliseconds(2300)), 1.0, 0.02);
}

// A seek lands on the sample asked for in every back end: the sound after it
// is the second tone, and the position counts on from the target. Beyond the
// end there is nothing to land on.
TEST_P(StreamFormatTest, SeeksToTheBytePositionGiven) {
  const auto path = dir_ / (std::string("two_") + GetParam().file);
  ASSERT_TRUE(ffmpegTwoTones(path, GetParam().codec));
  const HSTREAM stream = openStream(path);
  ASSERT_NE(stream, 0u);
  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  render(0.2);
  const QWORD target = 66150 * 2;  // 1.5 s, mono 16-bit
  ASSERT_TRUE(BASS_ChannelSetPosition(stream, target, BASS_POS_BYTE));
  EXPECT_EQ(BASS_ChannelGetPosition(stream, BASS_POS_BYTE), target);
  const auto out = render(0.3);
  EXPECT_NEAR(toneAmplitude(out, 0, 2000.0, 44100, 2205, 8820), 0.25, 0.02);
  EXPECT_LT(toneAmplitude(out, 0, 500.0, 44100, 2205, 8820), 0.01);
  EXPECT_NEAR(BASS_ChannelBytes2Seconds(stream, BASS_ChannelGetPosition(stream, BASS_POS_BYTE)),
              1.8, 0.01);
  EXPECT_FALSE(BASS_ChannelSetPosition(stream, 10 * target, BASS_POS_BYTE));
  // Back to the start: the first tone again.
  ASSERT_TRUE(BASS_ChannelSetPosition(stream, 0, BASS_POS_BYTE));
  const auto start = render(0.3);
  EXPECT_NEAR(toneAmplitude(start, 0, 500.0, 44100, 2205, 8820), 0.25, 0.02);
}

INSTANTIATE_TEST_SUITE_P(Formats, StreamFormatTest, ::testing::ValuesIn(kFormats),
                         [](const auto& param) { return std::string(param.param.name); });

class OtherStreamTest : public BassFixture {};

// MPEG layer 2 has no gapless information: the length is whole frames of
// 1152 samples, and still exactly what is decoded.
TEST_F(OtherStreamTest, Mp2PlaysToItsWholeFrameLength) {
  const auto path = dir_ / "sine.mp2";
  ASSERT_TRUE(ffmpegSine(path, "mp2", 3.0));
  const HSTREAM stream = openStream(path);
  ASSERT_NE(stream, 0u);
  BASS_CHANNELINFO info{};
  ASSERT_TRUE(BASS_ChannelGetInfo(stream, &info));
  EXPECT_EQ(info.ctype, BASS_CTYPE_STREAM_MP2);
  const QWORD length = BASS_ChannelGetLength(stream, BASS_POS_BYTE);
  EXPECT_EQ(length % (1152 * 2), 0u);
  EXPECT_NEAR(static_cast<double>(length), 264600.0, 3.0 * 1152 * 2);
  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  const auto out = renderToEnd(stream, 10.0);
  EXPECT_EQ(BASS_ChannelGetPosition(stream, BASS_POS_BYTE), length);
  EXPECT_NEAR(toDb(toneAmplitude(out, 0, 1000.0, 44100, 44100, 44100) / kFfmpegAmplitude), 0.0,
              0.5);
}

// What libsndfile reads beyond WAV and Ogg: FLAC, exact to the sample.
TEST_F(OtherStreamTest, FlacIsAStreamOfExactLength) {
  const auto path = dir_ / "sine.flac";
  ASSERT_TRUE(ffmpegSine(path, "flac", 3.0));
  const HSTREAM stream = openStream(path);
  ASSERT_NE(stream, 0u);
  EXPECT_EQ(BASS_ChannelGetLength(stream, BASS_POS_BYTE), kExpectedBytes);
}

// Six channels: counted as six in positions and info, heard on both sides.
TEST_F(OtherStreamTest, ManyChannelsAreMixedToBothSides) {
  Signal six{44100, 6, {}};
  const Signal tone = sine(1000.0, 0.3, 1.0);
  for (float v : tone.samples)
    for (int c = 0; c < 6; ++c) six.samples.push_back(v);
  const HSTREAM stream = openWav(six);
  ASSERT_NE(stream, 0u);
  BASS_CHANNELINFO info{};
  ASSERT_TRUE(BASS_ChannelGetInfo(stream, &info));
  EXPECT_EQ(info.chans, 6u);
  EXPECT_EQ(BASS_ChannelGetLength(stream, BASS_POS_BYTE), 44100u * 6 * 2);
  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  const auto out = render(0.5);
  EXPECT_NEAR(toneAmplitude(out, 0, 1000.0, 44100, 4410, 17640), 0.3, 0.01);
  EXPECT_NEAR(toneAmplitude(out, 1, 1000.0, 44100, 4410, 17640), 0.3, 0.01);
}

// A 44.1 kHz file on a 48 kHz output: same pitch, same level, same length in
// the file's own bytes.
TEST_F(OtherStreamTest, ResamplingKeepsPitchLevelAndLengthOnAnotherOutputRate) {
  ASSERT_TRUE(reopen(48000, pace_));
  const HSTREAM stream = openWav(sine(1000.0, 0.25, 2.0));
  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  const std::vector<float> out = renderToEnd(stream, 5.0);
  EXPECT_EQ(BASS_ChannelGetPosition(stream, BASS_POS_BYTE),
            BASS_ChannelGetLength(stream, BASS_POS_BYTE));
  EXPECT_NEAR(toDb(toneAmplitude(out, 0, 1000.0, 48000, 24000, 48000) / 0.25), 0.0, 0.1);
  // Played at the wrong ratio the tone would sit at 1088 Hz.
  EXPECT_LT(toneAmplitude(out, 0, 1088.0, 48000, 24000, 48000), 0.25 * 0.01);
}

}  // namespace
}  // namespace yarvo::audio::test
