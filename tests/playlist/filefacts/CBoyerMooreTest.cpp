#include "playlist/CBoyerMoore.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cwctype>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

namespace yarvo {
namespace {

struct Match {
  std::int32_t start;
  std::int32_t length;
  bool operator==(const Match&) const = default;
};

void PrintTo(const Match& m, std::ostream* os) { *os << "{" << m.start << ", " << m.length << "}"; }

// Every match, in the order of use of both call sites.
std::vector<Match> findAll(std::string_view pattern, std::string_view text,
                           bool caseSensitive = false) {
  CBoyerMoore search;
  search.CaseSensitive(caseSensitive);
  search.FindText(pattern);
  search.Text(text);
  search.Reset();
  std::vector<Match> found;
  std::int32_t start = -7;
  std::int32_t length = -7;
  while (search.FindNext(start, length) && found.size() <= text.size() + 1)
    found.push_back({start, length});
  EXPECT_EQ(start, 0) << "a failed FindNext leaves lngFindStart at 0";
  return found;
}

TEST(CBoyerMoore, FindsExactlyTheseMatches) {
  struct Case {
    const char* name;
    const char* pattern;
    const char* text;
    bool caseSensitive;
    std::vector<Match> expected;
  };
  for (const Case& c : std::initializer_list<Case>{
           {"pattern twice, only the second found", "abc", "abcabc", false, {{4, 3}}},
           {"match at the first byte missed", "abc", "abcxyz", false, {}},
           {"match at the second byte found", "bcx", "abcxyz", false, {{2, 3}}},
           {"pattern longer than text", "abcdefg", "abc", false, {}},
           {"empty pattern, every position", "", "abcd", false, {{2, 0}, {3, 0}, {4, 0}, {5, 0}}},
           {"empty pattern, empty text", "", "", false, {}},
           {"overlapping matches", "aa", "xaaaa", false, {{2, 2}, {3, 2}, {4, 2}}},
           // Pattern and text must both be folded.
           {"mixed case on both sides", "LiVe", "-lIvE at wembley", false, {{2, 4}}},
           {"case-sensitive keeps case", "live", "-LIVE live", true, {{7, 4}}},
           {"Romanian cedilla fold", "ŞERB", "ionuţ şerban", false, {{8, 5}}},
           {"Greek is not folded", "α", "-Α", false, {}},
           {"non-ASCII case-sensitive", "ş", "-Ş ş", true, {{5, 2}}},
       }) {
    EXPECT_EQ(findAll(c.pattern, c.text, c.caseSensitive), c.expected) << c.name;
  }
}

TEST(CBoyerMoore, CaseSensitiveAppliesWhenTextsAreStored) {
  CBoyerMoore search;
  search.FindText("live");  // stored as "LIVE"
  search.CaseSensitive(true);
  search.Text("-live");  // stored as written
  search.Reset();
  std::int32_t start = 0;
  std::int32_t length = 0;
  EXPECT_EQ(search.FindText(), "LIVE");
  EXPECT_FALSE(search.FindNext(start, length));
}

TEST(CBoyerMoore, TextDoesNotResetButResetDoes) {
  CBoyerMoore search;
  search.FindText("ab");
  search.Text("xab");
  search.Reset();
  std::int32_t start = 0;
  std::int32_t length = 0;
  ASSERT_TRUE(search.FindNext(start, length));
  EXPECT_EQ(start, 2);

  search.Text("xabab");  // position stays behind the first match
  ASSERT_TRUE(search.FindNext(start, length));
  EXPECT_EQ(start, 4);
  length = 42;
  EXPECT_FALSE(search.FindNext(start, length));
  EXPECT_EQ(start, 0);
  EXPECT_EQ(length, 42) << "a failed search leaves the length alone";

  search.Reset();
  ASSERT_TRUE(search.FindNext(start, length));
  EXPECT_EQ(start, 2);
}

// The upper-casing must keep every two-byte character two bytes long and, for
// the letters it claims, agree with the C library's towupper.
TEST(CBoyerMoore, FoldKeepsByteLengthsAndAgreesWithTowupper) {
  ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
  const auto encode = [](char32_t c) {
    return std::string{static_cast<char>(0xC0 | (c >> 6)), static_cast<char>(0x80 | (c & 0x3F))};
  };
  const auto claimed = [](char32_t c) {
    return (c >= 0xC0 && c <= 0x17F) || (c >= 0x218 && c <= 0x21B) || (c >= 0x400 && c <= 0x45F) ||
           c == 0x490 || c == 0x491;
  };
  for (char32_t c = 0x80; c < 0x800; ++c) {
    SCOPED_TRACE(testing::Message() << "U+" << std::hex << static_cast<unsigned>(c));
    const std::string folded = foldForSearch(encode(c));
    ASSERT_EQ(folded.size(), 2u);
    const auto f0 = static_cast<unsigned char>(folded[0]);
    const auto f1 = static_cast<unsigned char>(folded[1]);
    const char32_t got = (char32_t{f0 & 0x1Fu} << 6) | (f1 & 0x3Fu);
    const auto upper = static_cast<char32_t>(std::towupper(static_cast<wint_t>(c)));
    if (claimed(c) && upper >= 0x80 && upper < 0x800)
      EXPECT_EQ(got, upper);
    else
      EXPECT_TRUE(got == c || got == upper);
  }
  std::setlocale(LC_CTYPE, "C");
}

// Long ASCII runs are folded eight bytes at a time; every byte value and
// every alignment must come out as folding byte by byte gives.
TEST(CBoyerMoore, FoldsEveryAsciiByteAtEveryAlignment) {
  std::string ascii;
  std::string asciiUpper;
  for (int b = 0; b < 128; ++b) {
    ascii.push_back(static_cast<char>(b));
    asciiUpper.push_back(static_cast<char>(b >= 'a' && b <= 'z' ? b - 32 : b));
  }
  for (std::size_t offset = 0; offset < 9; ++offset) {
    SCOPED_TRACE(offset);
    const std::string prefix(offset, 'q');
    const std::string text = prefix + ascii + "ăş" + ascii + "ю";
    EXPECT_EQ(foldForSearch(text), std::string(offset, 'Q') + asciiUpper + "ĂŞ" + asciiUpper + "Ю");
  }
}

TEST(CBoyerMoore, MalformedUtf8IsSearchedAsBytes) {
  const std::string text = "-\xC3\xC3\xA9\xFF\x80";
  EXPECT_EQ(foldForSearch(text).size(), text.size());
  EXPECT_EQ(findAll("\xC3\xA9", text), (std::vector<Match>{{3, 2}}));
  EXPECT_EQ(findAll("\xFF\x80", text), (std::vector<Match>{{5, 2}}));
}

// Against a plain scan: every start from 2 on where the folded pattern
// stands in the folded text, in order.
TEST(CBoyerMoore, AgreesWithPlainScanOnRandomTexts) {
  const std::vector<std::string> letters = {"a", "b", "A", "B", "ă", "Ă", " "};
  std::mt19937 random(20240611);
  const auto randomText = [&](std::size_t maxLetters) {
    std::string s;
    const std::size_t n = random() % (maxLetters + 1);
    for (std::size_t k = 0; k < n; ++k) s += letters[random() % letters.size()];
    return s;
  };
  for (int round = 0; round < 3000; ++round) {
    const std::string pattern = randomText(3);
    const std::string text = randomText(12);
    const bool caseSensitive = round % 2 == 0;
    SCOPED_TRACE("pattern '" + pattern + "' text '" + text + "'");
    const std::string p = caseSensitive ? pattern : foldForSearch(pattern);
    const std::string t = caseSensitive ? text : foldForSearch(text);
    std::vector<Match> expected;
    const auto m = static_cast<std::int32_t>(p.size());
    if (p.empty()) {
      // The empty pattern matches at every position, reported one behind it.
      for (std::size_t k = 1; k <= t.size(); ++k)
        expected.push_back({static_cast<std::int32_t>(k + 1), 0});
    }
    for (std::size_t k = 1; !p.empty() && k + p.size() <= t.size(); ++k) {
      if (t.compare(k, p.size(), p) == 0) expected.push_back({static_cast<std::int32_t>(k + 1), m});
    }
    ASSERT_EQ(findAll(pattern, text, caseSensitive), expected);
  }
}

}  // namespace
}  // namespace yarvo
