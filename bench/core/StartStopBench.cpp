// The start of the program up to its first window model (Main's Load, with
// LoadYarvo), and the saves of CloseYarvo, with a playlist of 30,000 rows in
// file-name title mode. Target: under 20 ms each.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "core/ClsMain.h"
#include "core/Program.h"
#include "core/form/Events.h"
#include "core/form/RuntimeError.h"
#include "support/FakeBass.h"
#include "support/ManualClock.h"
#include "support/Recorders.h"
#include "windows/Main.h"

namespace {

namespace fs = std::filesystem;
using namespace yarvo;

constexpr int kRows = 30000;

// A program folder with a playlist of kRows paths, and the stand-ins a
// Program runs on.
struct Bench {
  Bench() {
    std::string pattern = (fs::temp_directory_path() / "yarvo-bench-XXXXXX").string();
    folder = ::mkdtemp(pattern.data());
    fs::create_directories(folder / "Data");
    std::ofstream plst(folder / "Data/plst.data", std::ios::binary);
    for (int i = 0; i < kRows; ++i) {
      plst << "/home/user/Music/Artist " << i % 300 << "/Album " << i % 40 << "/" << i
           << " - A Song Title Of Some Length.mp3\r\n";
    }
    process.programFolder = folder.string();
  }
  ~Bench() { fs::remove_all(folder); }

  std::unique_ptr<Program> Start() {
    auto program = std::make_unique<Program>(Services{clock, desktop, process, bass, random});
    program->Main();
    return program;
  }

  fs::path folder;
  test::ManualClock clock;
  test::RecordingDesktop desktop;
  test::FakeProcess process;
  test::FakeBass bass{clock};
  test::ScriptedRandom random;
};

void BM_LoadYarvo30000Rows(benchmark::State& state) {
  Bench bench;
  for (auto _ : state) {
    auto program = bench.Start();
    state.PauseTiming();
    program.reset();
    ReleaseRetired();
    state.ResumeTiming();
  }
  state.counters["rows"] = kRows;
}
BENCHMARK(BM_LoadYarvo30000Rows)->Unit(benchmark::kMillisecond);

void BM_CloseYarvo30000Rows(benchmark::State& state) {
  Bench bench;
  for (auto _ : state) {
    state.PauseTiming();
    auto program = bench.Start();
    state.ResumeTiming();
    try {
      ClsMain().CloseYarvo();
    } catch (const ProcessEnd&) {
      // The end of the process is the end of the measured work.
    }
    state.PauseTiming();
    program.reset();
    ReleaseRetired();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_CloseYarvo30000Rows)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
