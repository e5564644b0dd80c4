// CPU time of one frame of the visualisation (UpdateSpectrum: the read of the
// channel, the drawing and the picture for Main), in each of the four modes,
// while the real audio library plays a tone. The frame runs 40 times a second
// on the interface thread: 25 ms is all there is, and the less of it the
// better.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <numbers>
#include <vector>

#include "core/DataForm.h"
#include "core/form/Events.h"
#include "director/Program.h"
#include "engines/BassApi.h"
#include "engines/Visualisation.h"
#include "engines/frmBass.h"
#include "support/DrivenOutput.h"
#include "support/ManualClock.h"
#include "support/Recorders.h"
#include "windows/Main.h"

namespace {

namespace fs = std::filesystem;
using namespace yarvo;

using bench::DrivenOutput;

void Put(std::ofstream& out, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out.put(static_cast<char>((value >> (8 * i)) & 0xFF));
}

// Ten seconds of a 440 Hz and a 3 kHz tone, 16-bit stereo WAV.
void WriteTone(const fs::path& path) {
  constexpr std::uint32_t kFrames = 441000;
  std::ofstream out(path, std::ios::binary);
  out << "RIFF";
  Put(out, 36 + kFrames * 4, 4);
  out << "WAVEfmt ";
  Put(out, 16, 4);
  Put(out, 1, 2);
  Put(out, 2, 2);
  Put(out, 44100, 4);
  Put(out, 44100 * 4, 4);
  Put(out, 4, 2);
  Put(out, 16, 2);
  out << "data";
  Put(out, kFrames * 4, 4);
  for (std::uint32_t i = 0; i < kFrames; ++i) {
    const double t = i / 44100.0;
    const auto left = static_cast<std::int16_t>(8000 * std::sin(2 * std::numbers::pi * 440 * t));
    const auto right = static_cast<std::int16_t>(8000 * std::sin(2 * std::numbers::pi * 3000 * t));
    Put(out, static_cast<std::uint16_t>(left), 2);
    Put(out, static_cast<std::uint16_t>(right), 2);
  }
}

struct Player {
  Player() {
    std::string pattern = (fs::temp_directory_path() / "yarvo-bench-XXXXXX").string();
    folder = ::mkdtemp(pattern.data());
    process.programFolder = folder.string();
    WriteTone(folder / "tone.wav");
    // The player refuses to play with fewer than ten blocked names.
    fs::create_directories(folder / "Data");
    {
      std::ofstream names(folder / "Data/mnin.data", std::ios::binary);
      for (int i = 0; i < 10; ++i) names << "#no-such-artist-" << i << "#\r\n";
    }
    audio::setOutputFactory([this](int, int) {
      auto made = std::make_unique<DrivenOutput>();
      output = made.get();
      return made;
    });
    program = std::make_unique<Program>(Services{clock, desktop, process, LibraryBass(), random});
    program->Main();
    program->DataForm().MiniMode = "False";
    auto& engine = program->frmBass();
    engine.FileToPlay.Text = (folder / "tone.wav").string();
    engine.PLAYtheBass();
    std::vector<float> second(2 * 44100);
    output->pump(second.data(), 44100);
  }
  ~Player() {
    program->UnloadfrmBass();
    program.reset();
    ReleaseRetired();
    audio::setOutputFactory({});
    fs::remove_all(folder);
  }

  fs::path folder;
  test::ManualClock clock;
  test::RecordingDesktop desktop;
  test::FakeProcess process;
  test::ScriptedRandom random;
  DrivenOutput* output = nullptr;
  std::unique_ptr<Program> program;
};

void BM_UpdateSpectrum(benchmark::State& state) {
  Player player;
  modSpectrum().specMode = static_cast<std::int32_t>(state.range(0));
  for (auto _ : state) UpdateSpectrum();
  const auto& buf = modSpectrum().specBuf;
  state.counters["lit"] = static_cast<double>(
      buf.size() - static_cast<std::size_t>(std::count(buf.begin(), buf.end(), 0)));
}
BENCHMARK(BM_UpdateSpectrum)->ArgName("mode")->DenseRange(0, 3)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
