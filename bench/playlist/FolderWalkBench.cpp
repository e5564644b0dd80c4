// Adding a folder tree of 5,000 media files (50 songs in the root, in each of
// 9 artist folders and in each of their 10 album folders): the walk, the rebuild of the titles and
// the Jump list's refresh, once with file-name titles and once reading every file's tag.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "core/DataForm.h"
#include "playlist/AddMedia.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "support/BenchProgram.h"

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

// The tree beside a started program, and a fresh start for each add.
struct Bench {
  Bench() {
    Songs(base.folder / "Music");
    for (int a = 0; a < kArtists; ++a) {
      const fs::path artist = base.folder / "Music" / ("Artist " + std::to_string(a));
      Songs(artist);
      for (int b = 0; b < kAlbums; ++b) Songs(artist / ("Album " + std::to_string(b)));
    }
    program = &base.Start();
  }

  // An empty playlist and a lister that must read its folders afresh.
  void Reset() {
    auto& store = program->DataForm();
    store.ListaCale.Clear();
    program->Playlist().PicList.Clear();
    store.Foldere.Clear();
    store.NrFisier = "0";
    store.File1.Path(base.folder.string());
    base.desktop.folderAnswers = {(base.folder / "Music").string()};
  }

  bench::BenchProgram base;
  Program* program = nullptr;
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
