// Reading the tag of every file of a 5,000-file collection, beside the floor:
// the last 128 bytes of each file with plain open/lseek/read/close. The
// counter "ratio" is tag time over floor time; the target is at most 1.5.

#include "playlist/Id3Tag.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "support/SideBySide.h"
#include "support/TaggedCollection.h"

namespace yarvo::bench {
namespace {

constexpr int kFiles = 5000;

const TaggedCollection& collection() {
  static const TaggedCollection files(kFiles, [](int k) {
    Id3Tag tag;
    setFieldText(tag.Title, "Title " + std::to_string(k), CodePage::Latin1);
    return tag;
  });
  return files;
}

int readTags(const std::vector<std::string>& paths) {
  int found = 0;
  Id3Tag tag;
  for (const auto& path : paths) found += readId3TagFile(path, tag) ? 1 : 0;
  benchmark::DoNotOptimize(tag);
  return found;
}

void BM_Id3TagOf5000Files(benchmark::State& state) {
  const auto& paths = collection().paths();
  if (readTags(paths) != kFiles || readLast128Bytes(paths) != kFiles)
    state.SkipWithError("the collection is not readable");
  double tagSeconds = 0;
  double floorSeconds = 0;
  for (auto _ : state) {
    const double tag = secondsOf([&] { return readTags(paths); });
    floorSeconds += secondsOf([&] { return readLast128Bytes(paths); });
    tagSeconds += tag;
    state.SetIterationTime(tag);
  }
  const auto n = static_cast<double>(state.iterations());
  state.counters["tag_ms"] = tagSeconds / n * 1000;
  state.counters["floor_ms"] = floorSeconds / n * 1000;
  state.counters["ratio"] = tagSeconds / floorSeconds;
}
BENCHMARK(BM_Id3TagOf5000Files)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace
}  // namespace yarvo::bench
