// Retitling a playlist of 5,000 tagged files from their tags (FileNameToID3,
// "Artist - Title" mode), beside the floor of the same work on disk: opening
// each file, reading its last 128 bytes and closing it. Target: a ratio of at
// most 1.5.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "core/DataForm.h"
#include "playlist/ClsPl.h"
#include "playlist/Id3Module.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "support/BenchProgram.h"

namespace {

namespace fs = std::filesystem;
using namespace yarvo;

constexpr int kFiles = 5000;

struct TaggedFiles {
  TaggedFiles() {
    std::string pattern = (fs::temp_directory_path() / "yarvo-bench-XXXXXX").string();
    folder = ::mkdtemp(pattern.data());
    for (int i = 0; i < kFiles; ++i) {
      Id3Tag tag;
      tag.Artist = "Artist " + std::to_string(i % 97);
      tag.Title = "Song number " + std::to_string(i);
      const auto bytes = id3TagBytes(tag);
      const fs::path path = folder / ("track " + std::to_string(i) + ".mp3");
      std::ofstream(path, std::ios::binary)
          << std::string(4096, '\x55') << std::string(bytes.begin(), bytes.end());
      paths.push_back(path.string());
    }
  }
  ~TaggedFiles() { fs::remove_all(folder); }

  fs::path folder;
  std::vector<std::string> paths;
};

TaggedFiles& Files() {
  static TaggedFiles files;
  return files;
}

void BM_ReadLast128BytesFloor(benchmark::State& state) {
  const auto& paths = Files().paths;
  char tail[128];
  for (auto _ : state) {
    for (const auto& path : paths) {
      const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
      const off_t size = ::lseek(fd, 0, SEEK_END);
      benchmark::DoNotOptimize(::pread(fd, tail, sizeof tail, size - 128));
      ::close(fd);
    }
  }
  state.counters["files"] = kFiles;
}
BENCHMARK(BM_ReadLast128BytesFloor)->Unit(benchmark::kMillisecond);

void BM_FileNameToID3(benchmark::State& state) {
  bench::BenchProgram bench;
  auto& program = bench.Start();
  for (const auto& path : Files().paths) program.DataForm().ListaCale.AddItem(path);
  ListNoChar(program.Playlist().PicList, program.DataForm().ListaCale);
  program.Options().Option18.Value = true;  // the first retitling, outside the timing
  for (auto _ : state) FileNameToID3();
  state.counters["files"] = kFiles;
}
BENCHMARK(BM_FileNameToID3)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
