#include "TestSignals.h"

#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdlib>
#include <fstream>
#include <numbers>
#include <stdexcept>

namespace yarvo::audio::test {

Signal sine(double hz, double amplitude, double seconds, int rate) {
  Signal s{rate, 1, std::vector<float>(static_cast<std::size_t>(seconds * rate))};
  for (std::size_t n = 0; n < s.samples.size(); ++n)
    s.samples[n] = static_cast<float>(
        amplitude * std::sin(2.0 * std::numbers::pi * hz * static_cast<double>(n) / rate));
  return s;
}

Signal click(double at, double amplitude, double seconds, int rate) {
  Signal s{rate, 1, std::vector<float>(static_cast<std::size_t>(seconds * rate))};
  s.samples.at(static_cast<std::size_t>(at * rate)) = static_cast<float>(amplitude);
  return s;
}

Signal stereo(const Signal& left, const Signal& right) {
  Signal s{left.rate, 2, std::vector<float>(2 * left.samples.size())};
  for (std::size_t n = 0; n < left.samples.size(); ++n) {
    s.samples[2 * n] = left.samples[n];
    s.samples[2 * n + 1] = right.samples.at(n);
  }
  return s;
}

void writeWav(const std::filesystem::path& path, const Signal& signal, bool asFloat) {
  SF_INFO info{};
  info.samplerate = signal.rate;
  info.channels = signal.channels;
  info.format = SF_FORMAT_WAV | (asFloat ? SF_FORMAT_FLOAT : SF_FORMAT_PCM_16);
  SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
  if (file == nullptr) throw std::runtime_error("cannot write " + path.string());
  const auto frames =
      static_cast<sf_count_t>(signal.samples.size() / static_cast<std::size_t>(signal.channels));
  sf_writef_float(file, signal.samples.data(), frames);
  sf_close(file);
}

namespace {
bool ffmpeg(const std::string& source, const std::string& codec,
            const std::filesystem::path& path) {
  const std::string command = "ffmpeg -nostdin -hide_banner -loglevel error -y -f lavfi -i " +
                              source + " -c:a " + codec + " '" + path.string() + "'";
  return std::system(command.c_str()) == 0 && std::filesystem::exists(path);
}
}  // namespace

bool ffmpegSine(const std::filesystem::path& path, const std::string& codec, double seconds) {
  return ffmpeg("sine=frequency=1000:sample_rate=44100 -t " + std::to_string(seconds), codec, path);
}

bool ffmpegTwoTones(const std::filesystem::path& path, const std::string& codec) {
  return ffmpeg("\"aevalsrc='if(lt(t,1),0.25*sin(2*PI*500*t),0.25*sin(2*PI*2000*t))':s=44100:d=2\"",
                codec, path);
}

void writeModule(const std::filesystem::path& path) {
  constexpr std::size_t kSampleBytes = 32;
  std::vector<unsigned char> mod(1084 + 1024 + kSampleBytes, 0);
  const std::string title = "yarvo test";
  std::copy(title.begin(), title.end(), mod.begin());
  // Sample 1: 16 words long, full volume, looped over its whole length.
  unsigned char* sample = mod.data() + 20;
  sample[22] = 0;
  sample[23] = kSampleBytes / 2;
  sample[25] = 64;
  sample[29] = kSampleBytes / 2;
  for (std::size_t i = 1; i < 31; ++i)
    mod[20 + i * 30 + 29] = 1;  // empty samples: loop length 1 word
  mod[950] = 1;                 // song length: one pattern
  mod[951] = 127;
  std::copy_n("M.K.", 4, mod.begin() + 1080);
  // Pattern 0, channel 0, rows 0, 16, 32, 48: sample 1 at period 428.
  constexpr int kPeriod = 428;
  for (std::size_t row = 0; row < 64; row += 16) {
    unsigned char* cell = mod.data() + 1084 + row * 16;
    cell[0] = static_cast<unsigned char>((kPeriod >> 8) & 0x0F);
    cell[1] = static_cast<unsigned char>(kPeriod & 0xFF);
    cell[2] = 1 << 4;
  }
  for (std::size_t i = 0; i < kSampleBytes; ++i) {
    const double v =
        100.0 * std::sin(2.0 * std::numbers::pi * static_cast<double>(i) / kSampleBytes);
    mod[1084 + 1024 + i] = static_cast<unsigned char>(static_cast<signed char>(std::lround(v)));
  }
  writeBytes(path, mod);
}

void writeBytes(const std::filesystem::path& path, const std::vector<unsigned char>& bytes) {
  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::streamsize>(bytes.size()));
}

double toneAmplitude(const std::vector<float>& stereo, int channel, double hz, int rate,
                     std::size_t from, std::size_t count) {
  std::complex<double> sum;
  const double step = 2.0 * std::numbers::pi * hz / rate;
  for (std::size_t n = 0; n < count; ++n) {
    const auto x =
        static_cast<double>(stereo.at(2 * (from + n) + static_cast<std::size_t>(channel)));
    sum += x * std::polar(1.0, -step * static_cast<double>(n));
  }
  return 2.0 * std::abs(sum) / static_cast<double>(count);
}

double rms(const std::vector<float>& stereo, std::size_t fromFrame, std::size_t frames) {
  double sum = 0.0;
  for (std::size_t i = 2 * fromFrame; i < 2 * (fromFrame + frames); ++i)
    sum += static_cast<double>(stereo.at(i)) * static_cast<double>(stereo.at(i));
  return std::sqrt(sum / (2.0 * static_cast<double>(frames)));
}

double peak(const std::vector<float>& stereo, std::size_t fromFrame, std::size_t frames) {
  double result = 0.0;
  for (std::size_t i = 2 * fromFrame; i < 2 * (fromFrame + frames); ++i)
    result = std::max(result, std::fabs(static_cast<double>(stereo.at(i))));
  return result;
}

double toDb(double ratio) { return 20.0 * std::log10(ratio); }

}  // namespace yarvo::audio::test
