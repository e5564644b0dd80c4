// Adding a folder tree of 5,000 media files (50 songs in the root, in each of
// 9 artist folders and in each of their 10 album folders): the walk, the rebuild of the titles and
// the Jump list's refresh, once with file-name titles and once reading every file's tag.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "core/DataForm.h"
#include "core/Program.h"
#include "core/form/Events.h"
#include "playlist/AddMedia.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "support/FakeBass.h"
#include "support/ManualClock.h"
#include "support/Recorders.h"
#include "windows/Main.h"

namespace {

namespace fs = std::filesystem;
using namespace yarvo;

constexpr int kArtists = 9;
constexpr int kAlbums = 10;
constexpr int kSongs = 50;
// Every folder holds songs: a folder without any would cost the walk a step.
constexpr int kFiles = kSongs * (1 + kArtists * (1 + kAlbums));

void Songs(const fs::path& folder) {
  fs::create_directories(folder);
  for (int s = 0; s < kSongs; ++s) {
    std::ofstream(folder / (std::to_string(s) + " - A Song Title.mp3"), std::ios::binary)
        << std::string(256, '\0');
  }
}

struct Bench {
  Bench() {
    std::string pattern = (fs::temp_directory_path() / "yarvo-bench-XXXXXX").string();
    folder = ::mkdtemp(pattern.data());
    fs::create_directories(folder / "Data");
    fs::create_directories(folder / "Playlists");
    Songs(folder / "Music");
    for (int a = 0; a < kArtists; ++a) {
      const fs::path artist = folder / "Music" / ("Artist " + std::to_string(a));
      Songs(artist);
      for (int b = 0; b < kAlbums; ++b) Songs(artist / ("Album " + std::to_string(b)));
    }
    process.programFolder = folder.string();
    program = std::make_unique<Program>(Services{clock, desktop, process, bass, random});
    program->Main();
  }
  ~Bench() {
    program.reset();
    ReleaseRetired();
    fs::remove_all(folder);
  }

  // An empty playlist and a lister that must read its folders afresh.
  void Reset() {
    auto& store = program->DataForm();
    store.ListaCale.Clear();
    program->Playlist().PicList.Clear();
    store.Foldere.Clear();
    store.NrFisier = "0";
    store.File1.Path(folder.string());
    desktop.folderAnswers = {(folder / "Music").string()};
  }

  fs::path folder;
  test::ManualClock clock;
  test::RecordingDesktop desktop;
  test::FakeProcess process;
  test::FakeBass bass{clock};
  test::ScriptedRandom random;
  std::unique_ptr<Program> program;
};

void Walk(benchmark::State& state, bool tagTitles) {
  Bench bench;
  bench.program->Options().Option18.Value = tagTitles;
  for (auto _ : state) {
    state.PauseTiming();
    bench.Reset();
    state.ResumeTiming();
    AdaugaFolder();
  }
  if (bench.program->DataForm().ListaCale.ListCount() != kFiles) {
    state.SkipWithError("the walk did not add every file");
  }
  state.counters["files"] = kFiles;
}

void BM_AddFolderTree5000Files(benchmark::State& state) { Walk(state, false); }
BENCHMARK(BM_AddFolderTree5000Files)->Unit(benchmark::kMillisecond);

void BM_AddFolderTree5000FilesTagTitles(benchmark::State& state) { Walk(state, true); }
BENCHMARK(BM_AddFolderTree5000FilesTagTitles)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
