#include "playlist/CBoyerMoore.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace yarvo {
namespace {

// Keeps every 1-based position, and one behind it, inside 32 bits.
constexpr std::size_t kMaxSearchable = std::numeric_limits<std::int32_t>::max() - 1;

std::string_view searchable(std::string_view s) noexcept {
  return s.substr(0, std::min(s.size(), kMaxSearchable));
}

bool isContinuation(unsigned char byte) noexcept { return (byte & 0xC0) == 0x80; }

// Capital of a letter from U+0080..U+07FF whose capital is also in that
// range, so that both take two bytes in UTF-8; other characters unchanged.
char32_t upperTwoByte(char32_t c) noexcept {
  const bool odd = (c & 1u) != 0;
  if ((c >= 0x00E0 && c <= 0x00FE && c != 0x00F7) || (c >= 0x0430 && c <= 0x044F)) return c - 0x20;
  if (c == 0x00FF) return 0x0178;  // ÿ -> Ÿ
  if (c >= 0x0450 && c <= 0x045F) return c - 0x50;
  if (((c >= 0x0100 && c <= 0x0137) || (c >= 0x014A && c <= 0x0177)) && odd && c != 0x0131)
    return c - 1;  // pairs capital-first; ı (U+0131) becomes a one-byte I and stays
  if (((c >= 0x0139 && c <= 0x0148) || (c >= 0x0179 && c <= 0x017E)) && !odd)
    return c - 1;  // pairs that begin on an odd code point
  if (c == 0x0219 || c == 0x021B || c == 0x0491) return c - 1;  // ș ț ґ
  return c;
}

// a..z to A..Z; every other byte to itself.
constexpr std::array<char, 256> kAsciiUpper = [] {
  std::array<char, 256> table{};
  for (std::size_t b = 0; b < table.size(); ++b)
    table[b] = static_cast<char>(b >= 'a' && b <= 'z' ? b - ('a' - 'A') : b);
  return table;
}();

constexpr std::uint64_t kHighBits = 0x8080808080808080ULL;
constexpr std::uint64_t kEachByte = 0x0101010101010101ULL;

// Upper-cases eight ASCII bytes at once (no byte may have its high bit set):
// a byte is a..z when adding 0x80 - 'a' sets its high bit and adding
// 0x80 - 'z' - 1 doesn't; no sum carries into the next byte.
std::uint64_t upperAsciiWord(std::uint64_t w) noexcept {
  const std::uint64_t atLeastA = w + kEachByte * (0x80 - 'a');
  const std::uint64_t aboveZ = w + kEachByte * (0x80 - 'z' - 1);
  const std::uint64_t lower = atLeastA & ~aboveZ & kHighBits;
  return w ^ (lower >> 2);  // 0x80 >> 2 is the case bit 0x20
}

// Folds the character at out[k]; returns the number of bytes it takes (1 or 2).
std::size_t foldCharacter(std::string& out, std::size_t k) noexcept {
  const auto byte = static_cast<unsigned char>(out[k]);
  // Only the lead bytes 0xC2..0xDF begin a two-byte character; the
  // unsigned subtraction turns every other byte into a large value.
  if (static_cast<unsigned>(byte - 0xC2) > 0xDF - 0xC2) {
    out[k] = kAsciiUpper[byte];
    return 1;
  }
  if (k + 1 >= out.size() || !isContinuation(static_cast<unsigned char>(out[k + 1]))) return 1;
  const auto next = static_cast<unsigned char>(out[k + 1]);
  const char32_t upper = upperTwoByte((char32_t{byte & 0x1Fu} << 6) | (next & 0x3Fu));
  out[k] = static_cast<char>(0xC0 | (upper >> 6));
  out[k + 1] = static_cast<char>(0x80 | (upper & 0x3F));
  return 2;
}

}  // namespace

std::string foldForSearch(std::string_view text) {
  std::string out(text);
  const std::size_t n = out.size();
  std::size_t k = 0;
  // Eight bytes at a time while they are ASCII, one character at a time otherwise.
  while (k + 8 <= n) {
    std::uint64_t w = 0;
    std::memcpy(&w, out.data() + k, sizeof w);
    if ((w & kHighBits) != 0) {
      k += foldCharacter(out, k);
      continue;
    }
    w = upperAsciiWord(w);
    std::memcpy(out.data() + k, &w, sizeof w);
    k += 8;
  }
  while (k < n) k += foldCharacter(out, k);
  return out;
}

void CBoyerMoore::FindText(std::string_view pattern) {
  pattern = searchable(pattern);
  pattern_ = caseSensitive_ ? std::string(pattern) : foldForSearch(pattern);
  patternLength_ = static_cast<std::int32_t>(pattern_.size());
  skip_.fill(patternLength_);
  // Last occurrence wins: a byte's entry is its distance from the pattern's end.
  for (std::int32_t j = 0; j < patternLength_; ++j) {
    const auto byte = static_cast<unsigned char>(pattern_[static_cast<std::size_t>(j)]);
    skip_[byte] = patternLength_ - 1 - j;
  }
  Reset();
}

void CBoyerMoore::Text(std::string_view text) {
  text = searchable(text);
  text_ = caseSensitive_ ? std::string(text) : foldForSearch(text);
  textLength_ = static_cast<std::int32_t>(text_.size());
}

void CBoyerMoore::Reset() noexcept { position_ = std::int64_t{patternLength_} + 1; }

bool CBoyerMoore::matchEndingAt(std::int64_t position) const noexcept {
  const auto first = static_cast<std::size_t>(position - patternLength_);
  return std::string_view(text_).substr(first, pattern_.size()) == pattern_;
}

bool CBoyerMoore::FindNext(std::int32_t& lngFindStart, std::int32_t& lngFindLength) noexcept {
  lngFindStart = 0;
  while (position_ <= textLength_) {
    const auto byte = static_cast<unsigned char>(text_[static_cast<std::size_t>(position_ - 1)]);
    const std::int32_t s = skip_[byte];
    if (s > 0) {
      position_ += s;
      continue;
    }
    const std::int64_t end = position_++;
    if (matchEndingAt(end)) {
      lngFindStart = static_cast<std::int32_t>(end - patternLength_ + 1);
      lngFindLength = patternLength_;
      return true;
    }
  }
  return false;
}

}  // namespace yarvo
