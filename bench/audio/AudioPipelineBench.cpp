// CPU time of the audio path on ten minutes of 128 kbit/s MP3: decoding, the
// eleven effects of the engine (ten bands, none at 0 dB, and the reverb), and
// one spectrum per 25 ms of audio, rendered as fast as the machine allows into
// an output the benchmark drives itself. Printed beside the CPU time of
// `mpg123 -t` (decoding alone) on the same file, as a ratio. A second run
// without effects or spectra shows what the engine's own path costs. Each
// figure is the least of three rounds.
//
// Usage: audio_bench [seconds of audio, default 600]

#include "engines/audio/AudioOutput.h"
#include "engines/audio/Bass.h"
#include "support/DrivenOutput.h"

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

extern char** environ;

namespace {

using namespace yarvo;

using bench::DrivenOutput;

double cpuSeconds(const rusage& usage) {
  return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
         static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

double selfCpu() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return cpuSeconds(usage);
}

// CPU time of one child process; negative when it could not run.
double childCpu(std::vector<std::string> argv) {
  std::vector<char*> args;
  for (auto& a : argv) args.push_back(a.data());
  args.push_back(nullptr);
  pid_t pid = 0;
  if (posix_spawnp(&pid, args[0], nullptr, nullptr, args.data(), environ) != 0) return -1.0;
  int status = 0;
  rusage usage{};
  if (wait4(pid, &status, 0, &usage) != pid || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
    return -1.0;
  return cpuSeconds(usage);
}

bool makeMp3(const std::filesystem::path& path, int seconds) {
  // Two moving tones and a little noise per side: content the encoder has to
  // spend its bits on, unlike a single sine.
  const std::string command =
      "ffmpeg -nostdin -hide_banner -loglevel error -y -f lavfi -i "
      "\"aevalsrc=0.3*sin(2*PI*(220+110*sin(t/3))*t)+0.05*(random(0)-0.5)|"
      "0.3*sin(2*PI*(330+60*sin(t/5))*t)+0.05*(random(1)-0.5):s=44100\" -t " +
      std::to_string(seconds) + " -c:a libmp3lame -b:a 128k '" + path.string() + "'";
  return std::system(command.c_str()) == 0;
}

// What the pipeline adds to decoding: everything, or the engine's own path
// alone (queue, mixer, limiter, the recent samples) with no effect and no
// spectrum.
enum class Work { Everything, PathOnly };

void addEffects(HSTREAM stream) {
  constexpr std::array<float, 10> kCentres{80, 150, 300, 500, 750, 1000, 3000, 8000, 12000, 15000};
  constexpr std::array<float, 10> kGains{4, 3, 2, 1, -1, -2, 1, 2, 3, 4};
  for (std::size_t b = 0; b < kCentres.size(); ++b) {
    const BASS_DX8_PARAMEQ band{kCentres[b], 18.0f, kGains[b]};
    BASS_FXSetParameters(BASS_ChannelSetFX(stream, BASS_FX_DX8_PARAMEQ, 0), &band);
  }
  const BASS_DX8_REVERB reverb{0.0f, -6.0f, 1000.0f, 0.001f};
  BASS_FXSetParameters(BASS_ChannelSetFX(stream, BASS_FX_DX8_REVERB, 0), &reverb);
}

double runPipeline(const std::filesystem::path& path, Work work, double& audioSeconds) {
  DrivenOutput* output = nullptr;
  audio::setOutputFactory([&output](int, int) {
    auto made = std::make_unique<DrivenOutput>();
    output = made.get();
    return made;
  });
  BASS_Init(-1, 44100, 0, nullptr, nullptr);
  const double before = selfCpu();
  const HSTREAM stream = BASS_StreamCreateFile(BASS_FALSE, path.c_str(), 0, 0, BASS_SAMPLE_FX);
  if (work == Work::Everything) addEffects(stream);
  BASS_ChannelPlay(stream, BASS_FALSE);

  constexpr std::size_t kFramesPer25Ms = 1102;
  std::vector<float> buffer(2 * kFramesPer25Ms);
  std::array<float, 1024> fft{};
  std::size_t frames = 0;
  while (BASS_ChannelIsActive(stream) != BASS_ACTIVE_STOPPED) {
    output->pump(buffer.data(), kFramesPer25Ms);
    if (work == Work::Everything) BASS_ChannelGetData(stream, fft.data(), BASS_DATA_FFT2048);
    frames += kFramesPer25Ms;
  }
  audioSeconds = BASS_ChannelBytes2Seconds(stream, BASS_ChannelGetLength(stream, BASS_POS_BYTE));
  BASS_StreamFree(stream);
  const double spent = selfCpu() - before;
  BASS_Free();
  audio::setOutputFactory({});
  return frames > 0 ? spent : -1.0;
}

constexpr int kRounds = 3;
constexpr double kNotRun = 1e300;

// The lesser of two CPU times, a failed one (negative) winning over both.
double least(double a, double b) { return a < 0.0 || b < 0.0 ? -1.0 : std::min(a, b); }

}  // namespace

int main(int argc, char** argv) {
  const int seconds = argc > 1 ? std::atoi(argv[1]) : 600;
  const auto dir = std::filesystem::temp_directory_path() / "yarvo_audio_bench";
  std::filesystem::create_directories(dir);
  const auto mp3 = dir / "ten_minutes.mp3";
  if (!makeMp3(mp3, seconds)) {
    std::fprintf(stderr, "ffmpeg could not make the test file\n");
    return 1;
  }
  // The least of a few interleaved rounds: each figure as the machine gives
  // it when nothing else gets in its way, all three under the same conditions.
  double mpg123 = kNotRun, ours = kNotRun, path = kNotRun;
  double audioSeconds = 0.0;
  for (int round = 0; round < kRounds; ++round) {
    mpg123 = least(mpg123, childCpu({"mpg123", "-q", "-t", mp3.string()}));
    ours = least(ours, runPipeline(mp3, Work::Everything, audioSeconds));
    path = least(path, runPipeline(mp3, Work::PathOnly, audioSeconds));
  }
  std::filesystem::remove_all(dir);
  if (mpg123 <= 0.0 || ours <= 0.0 || path <= 0.0) {
    std::fprintf(stderr, "a measurement failed (mpg123 %.3f s, pipeline %.3f s, path %.3f s)\n",
                 mpg123, ours, path);
    return 1;
  }
  std::printf("audio:                 %.1f s of 128 kbit/s MP3, 44.1 kHz stereo\n", audioSeconds);
  std::printf("mpg123 -t (CPU):       %.3f s\n", mpg123);
  std::printf("pipeline (CPU):        %.3f s  (decode + 10 bands + reverb + FFT every 25 ms)\n",
              ours);
  std::printf("ratio pipeline/mpg123: %.2f  (target <= 2.0)\n", ours / mpg123);
  std::printf("speed:                 %.0f x real time\n", audioSeconds / ours);
  std::printf("no effects, no FFT:    %.3f s, ratio %.2f  (decoding and the engine's path)\n", path,
              path / mpg123);
  return 0;
}
