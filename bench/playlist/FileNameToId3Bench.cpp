// Retitling a playlist of 5,000 tagged files from their tags (FileNameToID3,
// "Artist - Title" mode), beside the floor of the same work on disk: opening
// each file, reading its last 128 bytes and closing it. Both run in every
// iteration; the counter "ratio" is retitling time over floor time, and the
// target is at most 1.5.

#include <benchmark/benchmark.h>

#include <unistd.h>
#include <string>

#include "core/DataForm.h"
#include "playlist/ClsPl.h"
#include "playlist/Id3Module.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "support/BenchProgram.h"
#include "support/SideBySide.h"
#include "support/TaggedCollection.h"

namespace yarvo::bench {
namespace {

constexpr int kFiles = 5000;

const TaggedCollection& collection() {
  static const TaggedCollection files(kFiles, [](int k) {
    Id3Tag tag;
    tag.Artist = "Artist " + std::to_string(k % 97);
    tag.Title = "Song number " + std::to_string(k);
    return tag;
  });
  return files;
}

void BM_FileNameToID3(benchmark::State& state) {
  const auto& paths = collection().paths();
  BenchProgram bench;
  auto& program = bench.Start();
  for (const auto& path : paths) program.DataForm().ListaCale.AddItem(path);
  ListNoChar(program.Playlist().PicList, program.DataForm().ListaCale);
  program.Options().Option18.Value = true;  // the first retitling, outside the timing
  // The artist's 21 bytes of padding lose ten pairs and keep one blank.
  if (program.Playlist().PicList.List(kFiles - 1) != "Artist 52  - Song number 4999")
    state.SkipWithError("the playlist was not retitled from its tags");

  double retitleSeconds = 0;
  double floorSeconds = 0;
  for (auto _ : state) {
    const double retitle = secondsOf([] {
      FileNameToID3();
      return 0;
    });
    ::sync();  // the Jump list's file goes to disk before the floor is timed
    floorSeconds += secondsOf([&] { return readLast128Bytes(paths); });
    retitleSeconds += retitle;
    state.SetIterationTime(retitle);
  }
  const auto n = static_cast<double>(state.iterations());
  state.counters["files"] = kFiles;
  state.counters["floor_ms"] = floorSeconds / n * 1000;
  state.counters["ratio"] = retitleSeconds / floorSeconds;
}
BENCHMARK(BM_FileNameToID3)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace
}  // namespace yarvo::bench

BENCHMARK_MAIN();
