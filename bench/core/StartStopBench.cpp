// The start of the program up to its first window model (Main's Load, with
// LoadYarvo), and the saves of CloseYarvo, with a playlist of 30,000 rows in
// file-name title mode. Target: under 20 ms each.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

#include "core/form/RuntimeError.h"
#include "director/ClsMain.h"
#include "support/BenchProgram.h"

namespace {

namespace fs = std::filesystem;
using namespace yarvo;

constexpr int kRows = 30000;

// A program folder with a playlist of kRows paths.
void WritePlaylist(const fs::path& folder) {
  std::ofstream plst(folder / "Data/plst.data", std::ios::binary);
  for (int i = 0; i < kRows; ++i) {
    plst << "/home/user/Music/Artist " << i % 300 << "/Album " << i % 40 << "/" << i
         << " - A Song Title Of Some Length.mp3\r\n";
  }
}

void BM_LoadYarvo30000Rows(benchmark::State& state) {
  bench::BenchProgram bench;
  WritePlaylist(bench.folder);
  for (auto _ : state) {
    bench.Start();
    state.PauseTiming();
    bench.Stop();
    state.ResumeTiming();
  }
  state.counters["rows"] = kRows;
}
BENCHMARK(BM_LoadYarvo30000Rows)->Unit(benchmark::kMillisecond);

void BM_CloseYarvo30000Rows(benchmark::State& state) {
  bench::BenchProgram bench;
  WritePlaylist(bench.folder);
  for (auto _ : state) {
    state.PauseTiming();
    bench.Start();
    state.ResumeTiming();
    try {
      ClsMain().CloseYarvo();
    } catch (const ProcessEnd&) {
      // The end of the process is the end of the measured work.
    }
    state.PauseTiming();
    bench.Stop();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_CloseYarvo30000Rows)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
