#pragma once

// The player's text search: Boyer-Moore-Horspool over bytes, one object per
// search. Used by the Jump window on each title and by the blocked-names check.
//
// Use: CaseSensitive(...), FindText(...), Text(...), Reset(), then FindNext()
// until it gives false. Positions count from 1 and are byte positions in the
// UTF-8 text.
//
// Quirk kept on purpose: the first comparison ends at position m + 1 (m the
// pattern length), so a match that begins at the text's first byte is never
// found. The Jump window builds its pattern from the typed text less its first
// letter and relies on this to find titles that begin with the typed word.
//
// UTF-8: the skip table has one entry per byte value, so the bytes of a
// multi-byte character index it like any other byte, and no byte can fall
// outside it. A byte match of a well-formed pattern in well-formed text always
// starts and ends on character boundaries, because UTF-8 lead and continuation
// bytes never look alike.
//
// Case: without CaseSensitive, pattern and text are stored upper-cased.
// Upper-casing here never changes a character's byte length, so positions in
// the stored text are positions in the caller's text. It covers ASCII, the
// Latin-1 letters, Latin Extended-A (Romanian ă â î ş ţ and Central European
// letters), Romanian ș ț with a comma below, and the Cyrillic letters of
// Windows-1251 (U+0400..U+045F, Ґ ґ). Other letters (Greek, for example) and
// letters whose capital has another byte length (ß, ı, ſ) match only in
// their own case.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace yarvo {

class CBoyerMoore {
 public:
  CBoyerMoore() noexcept = default;  // as after FindText("") and Reset()

  bool CaseSensitive() const noexcept { return caseSensitive_; }
  // Applies to the next FindText and Text written, not to those stored.
  void CaseSensitive(bool value) noexcept { caseSensitive_ = value; }

  // The pattern as stored (upper-cased unless case-sensitive).
  const std::string& FindText() const noexcept { return pattern_; }
  // Stores the pattern, builds the skip table, then Reset().
  void FindText(std::string_view pattern);

  // The text as stored (upper-cased unless case-sensitive).
  const std::string& Text() const noexcept { return text_; }
  // Stores the text; the position stays where it was. Pattern and text are
  // searched in their first 2^31 - 2 bytes only, so that every position fits.
  void Text(std::string_view text);

  // Looks for the next match from the position on. True: lngFindStart is
  // the match's 1-based byte position and lngFindLength the pattern length.
  // False: lngFindStart is 0 and lngFindLength is left as it was. Matches
  // may overlap. An empty pattern matches at every position of the text,
  // with lngFindStart one behind that position and lngFindLength 0.
  bool FindNext(std::int32_t& lngFindStart, std::int32_t& lngFindLength) noexcept;

  // Starts over: the next comparison ends at position m + 1.
  void Reset() noexcept;

 private:
  bool matchEndingAt(std::int64_t position) const noexcept;

  bool caseSensitive_ = false;
  std::string pattern_;
  std::string text_;
  std::int32_t patternLength_ = 0;
  std::int32_t textLength_ = 0;
  // 64-bit so that position + skip can't overflow near the 32-bit limit;
  // it never exceeds textLength_ + patternLength_ + 1.
  std::int64_t position_ = 1;
  std::array<std::int32_t, 256> skip_{};  // indexed by byte; all 0 for the empty pattern
};

// The upper-case form that CBoyerMoore compares without CaseSensitive: same
// byte length and same character boundaries as text.
std::string foldForSearch(std::string_view text);

}  // namespace yarvo
