// BASS_ChannelGetData: the spectrum of what is being heard. Its float samples
// are measured by the oscilloscope's tests in eqvis, on the real library.

#include "BassFixture.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace yarvo::audio::test {
namespace {

class ChannelDataTest : public BassFixture {};

std::array<float, 1024> spectrumOf(DWORD handle) {
  std::array<float, 1024> fft{};
  EXPECT_EQ(BASS_ChannelGetData(handle, fft.data(), BASS_DATA_FFT2048), 4096u);
  return fft;
}

// The bins count in the file's rate, whatever the output's; before anything
// is heard the spectrum is silence.
TEST_F(ChannelDataTest, SpectrumOfAFullScaleSinePeaksAtItsBinOnAnyOutputRate) {
  for (const int rate : {44100, 48000}) {
    SCOPED_TRACE(rate);
    ASSERT_TRUE(reopen(rate, pace_));
    const HSTREAM stream = openWav(sine(1000.0, 1.0, 2.0), true);
    auto fft = spectrumOf(stream);
    EXPECT_EQ(*std::max_element(fft.begin(), fft.end()), 0.0f) << "nothing heard yet";
    EXPECT_EQ(BASS_ChannelGetData(stream, nullptr, BASS_DATA_FFT2048), 0xFFFFFFFFu);
    ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
    render(0.5);
    fft = spectrumOf(stream);
    const auto top = std::max_element(fft.begin(), fft.end());
    EXPECT_NEAR(static_cast<double>(top - fft.begin()), 1000.0 * 2048 / 44100, 1.0);
    EXPECT_GE(*top, 0.5f);
    EXPECT_LE(*top, 1.0f);
    // Far from the tone the Hann window leaves next to nothing.
    EXPECT_LT(fft[200], 0.001f);
  }
}

TEST_F(ChannelDataTest, SpectrumFollowsWhatIsHeardNotWhatWasDecoded) {
  // 500 Hz for one second, then 3 kHz: right after the change in the output
  // the spectrum shows 3 kHz, though the decoder is half a second ahead.
  Signal first = sine(500.0, 0.5, 1.0);
  const Signal second = sine(3000.0, 0.5, 1.0);
  first.samples.insert(first.samples.end(), second.samples.begin(), second.samples.end());
  const HSTREAM stream = openWav(first, true);
  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  render(0.9);
  auto fft = spectrumOf(stream);
  const auto bin = [](double hz) {
    return static_cast<std::size_t>(std::lround(hz * 2048 / 44100));
  };
  EXPECT_GT(fft[bin(500)], 0.2f);
  EXPECT_LT(fft[bin(3000)], 0.01f);
  render(0.2);
  fft = spectrumOf(stream);
  EXPECT_GT(fft[bin(3000)], 0.2f);
  EXPECT_LT(fft[bin(500)], 0.01f);
}

}  // namespace
}  // namespace yarvo::audio::test
