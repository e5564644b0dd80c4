// Reading the tag of every file of a 5,000-file collection, beside the floor:
// the last 128 bytes of each file with plain open/lseek/read/close. The
// counter "ratio" is tag time over floor time; the target is at most 1.5.

#include "playlist/Id3Tag.h"

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace {

constexpr int kFiles = 5000;
constexpr std::size_t kFileBytes = 4096;

// 5,000 small files with a tag, made once, removed at exit.
class Collection {
 public:
  Collection() {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "yarvo-tagbench-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) std::abort();
    folder_ = pattern;
    std::vector<char> bytes(kFileBytes, '\x55');
    yarvo::Id3Tag tag;
    for (int k = 0; k < kFiles; ++k) {
      yarvo::setFieldText(tag.Title, "Title " + std::to_string(k), yarvo::CodePage::Latin1);
      const yarvo::Id3TagBytes raw = yarvo::id3TagBytes(tag);
      std::copy(raw.begin(), raw.end(), bytes.end() - 128);
      paths_.push_back(folder_ / ("song" + std::to_string(k) + ".mp3"));
      std::ofstream(paths_.back(), std::ios::binary)
          .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
  }
  Collection(const Collection&) = delete;
  Collection& operator=(const Collection&) = delete;
  ~Collection() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  const std::vector<std::filesystem::path>& paths() const { return paths_; }

 private:
  std::filesystem::path folder_;
  std::vector<std::filesystem::path> paths_;
};

const Collection& collection() {
  static const Collection files;
  return files;
}

int readTags(const std::vector<std::filesystem::path>& paths) {
  int found = 0;
  yarvo::Id3Tag tag;
  for (const auto& path : paths) found += yarvo::readId3TagFile(path, tag) ? 1 : 0;
  benchmark::DoNotOptimize(tag);
  return found;
}

int readLast128Bytes(const std::vector<std::filesystem::path>& paths) {
  int read = 0;
  std::array<char, 128> buffer{};
  for (const auto& path : paths) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) continue;
    if (::lseek(fd, -128, SEEK_END) >= 0 && ::read(fd, buffer.data(), buffer.size()) == 128) ++read;
    ::close(fd);
  }
  benchmark::DoNotOptimize(buffer);
  return read;
}

double secondsOf(auto&& work) {
  const auto start = std::chrono::steady_clock::now();
  benchmark::DoNotOptimize(work());
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
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
