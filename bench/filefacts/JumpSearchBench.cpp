// The Jump window's search over a full playlist of 32,767 titles: a fresh
// CBoyerMoore per title, every match added to the results. Target: under 5 ms.

#include "playlist/CBoyerMoore.h"

#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <vector>

namespace {

constexpr int kTitles = 32767;

// Titles shaped like "Artist - Song" display titles, a few with diacritics.
std::vector<std::string> makeTitles() {
  const std::array<const char*, 8> artists = {
      "Holograf",   "Phoenix", "Ştefan Bănică", "Iris", "Смысловые Галлюцинации",
      "Vama Veche", "Compact", "Direcţia 5"};
  const std::array<const char*, 8> words = {"dragoste", "noapte", "Mai frumoasă", "ţara",
                                            "Ploaia",   "Vis",    "Pe drum",      "lumina"};
  std::vector<std::string> titles;
  titles.reserve(kTitles);
  for (int k = 0; k < kTitles; ++k) {
    const auto a = static_cast<std::size_t>(k % 8);
    const auto w = static_cast<std::size_t>((k / 8) % 8);
    const auto v = static_cast<std::size_t>((k / 64) % 8);
    titles.push_back(std::string(artists[a]) + " - " + words[w] + " de " + words[v] + " " +
                     std::to_string(k));
  }
  return titles;
}

// The typed text less its first character, as the Jump window searches.
void BM_JumpSearch32767Titles(benchmark::State& state) {
  static const std::vector<std::string> titles = makeTitles();
  const std::string typed = "Dragoste";
  const std::string pattern = typed.substr(1);
  std::vector<std::string> results;
  for (auto _ : state) {
    results.clear();
    for (const std::string& title : titles) {
      yarvo::CBoyerMoore search;
      search.CaseSensitive(false);
      search.FindText(pattern);
      search.Text(title);
      search.Reset();
      std::int32_t start = 0;
      std::int32_t length = 0;
      while (search.FindNext(start, length)) results.push_back(title);
    }
    benchmark::DoNotOptimize(results.data());
  }
  state.counters["matches"] = static_cast<double>(results.size());
}
BENCHMARK(BM_JumpSearch32767Titles)->Unit(benchmark::kMillisecond);

}  // namespace
