// CBoyerMoore against a plain scan on hostile text. Input: one flag byte
// (bit 0: case-sensitive), then the pattern up to the first zero byte, then the text.

#include "MemFile.h"
#include "playlist/CBoyerMoore.h"

#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using yarvo::fuzz::fail;
  if (size == 0) return 0;
  const bool caseSensitive = (data[0] & 1) != 0;
  const std::string_view rest(reinterpret_cast<const char*>(data + 1), size - 1);
  const std::size_t cut = std::min(rest.find('\0'), rest.size());
  const std::string_view pattern = rest.substr(0, cut);
  const std::string_view text = rest.substr(std::min(cut + 1, rest.size()));

  const std::string p = caseSensitive ? std::string(pattern) : yarvo::foldForSearch(pattern);
  const std::string t = caseSensitive ? std::string(text) : yarvo::foldForSearch(text);
  if (p.size() != pattern.size() || t.size() != text.size()) fail("folding changed a length");

  yarvo::CBoyerMoore search;
  search.CaseSensitive(caseSensitive);
  search.FindText(pattern);
  search.Text(text);
  search.Reset();
  std::int32_t start = 0;
  std::int32_t length = 0;
  for (std::size_t k = 1; k <= t.size(); ++k) {
    // A match ending at 1-based position k + m - 1 starts at k + 1 for
    // the empty pattern and at k (from 2 on) otherwise.
    const bool expected =
        p.empty() || (k >= 2 && k + p.size() - 1 <= t.size() && t.compare(k - 1, p.size(), p) == 0);
    if (!expected) continue;
    if (!search.FindNext(start, length)) fail("missed a match");
    const auto want = static_cast<std::int32_t>(p.empty() ? k + 1 : k);
    if (start != want || length != static_cast<std::int32_t>(p.size()))
      fail("wrong match position");
  }
  if (search.FindNext(start, length) || start != 0) fail("a match the plain scan does not have");
  return 0;
}
