#pragma once

// The ID3v1 tag: the 128-byte block at the end of an audio file, its record,
// its read and write, and the text that its fields give to a title.
//
// Layout on disk, from the tag's first byte: "TAG" (3), title (30), artist
// (30), album (30), year (4), comment (30), genre byte (1). Text fields hold
// 8-bit code-page bytes, padded with blanks or zero bytes, not terminated.

#include "playlist/CodePage.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace yarvo {

// A fixed-width text field that holds the 8-bit bytes of the tag as they are
// on disk. A new field holds zero bytes only, which reads as empty text.
template <std::size_t N>
class FixedText {
 public:
  static constexpr std::size_t kWidth = N;

  constexpr FixedText() noexcept = default;
  explicit FixedText(std::string_view bytes) noexcept { assign(bytes); }

  FixedText& operator=(std::string_view bytes) noexcept {
    assign(bytes);
    return *this;
  }

  // Takes 8-bit bytes: cut after N, padded with blanks to N.
  void assign(std::string_view bytes) noexcept {
    const std::size_t kept = std::min(bytes.size(), N);
    std::copy_n(bytes.begin(), kept, bytes_.begin());
    std::fill(bytes_.begin() + static_cast<std::ptrdiff_t>(kept), bytes_.end(), ' ');
  }

  // All N bytes, padding and zero bytes included.
  std::string_view bytes() const noexcept { return {bytes_.data(), N}; }

  bool operator==(const FixedText&) const = default;

 private:
  std::array<char, N> bytes_{};
};

// One tag. Fields are the raw 8-bit bytes; setFieldText() and fieldText()
// convert to and from UTF-8.
struct Id3Tag {
  FixedText<30> Title;
  FixedText<30> Artist;
  FixedText<30> Album;
  FixedText<4> Year;
  FixedText<30> Comment;
  std::uint8_t Genre = 0;  // index into kId3Genres; 148 and above name none

  bool operator==(const Id3Tag&) const = default;
};

inline constexpr std::size_t kId3TagSize = 128;
using Id3TagBytes = std::array<std::uint8_t, kId3TagSize>;

// Reads the tag from the last 128 bytes of fileTail (the whole file or any
// end part of it). True and tag filled when those bytes begin with "TAG"
// (exact case); false and tag untouched otherwise, or when fileTail holds
// fewer than 128 bytes.
bool parseId3Tag(std::span<const std::uint8_t> fileTail, Id3Tag& tag) noexcept;

// The 128 bytes of the tag on disk, "TAG" first.
Id3TagBytes id3TagBytes(const Id3Tag& tag) noexcept;

// Reads the tag of a file. True and tag filled when the file's last 128
// bytes begin with "TAG". False and tag untouched when there is none, or when
// the file is missing, unreadable, not a regular file or shorter than 128
// bytes. Creates nothing on disk.
bool readId3TagFile(const std::string& path, Id3Tag& tag) noexcept;

// Writes the tag into a file: over the 125 bytes behind an existing "TAG"
// at 128 bytes from the end, or else as 128 new bytes appended, so that no
// audio byte changes. True when written. On failure the file keeps its
// length and its old bytes, as far as the system lets them be restored.
bool writeId3TagFile(const std::string& path, const Id3Tag& tag) noexcept;

// What a field shows as text: its bytes up to the first zero byte, converted
// to UTF-8. Blank padding stays.
std::string fieldText(std::string_view fieldBytes, CodePage page);

template <std::size_t N>
std::string fieldText(const FixedText<N>& field, CodePage page) {
  return fieldText(field.bytes(), page);
}

// Sets a field from UTF-8 text: converted to the code page ("?" for a
// character it lacks), then cut at the field's width in bytes or padded with blanks.
template <std::size_t N>
void setFieldText(FixedText<N>& field, std::string_view utf8, CodePage page) {
  field.assign(utf8ToCodePage(utf8, page));
}

// What a title or artist field gives to a display title: fieldText(), then
// every pair of adjacent blanks deleted, scanning left to right without
// overlap ("a  b" gives "ab", "a   b" gives "a b"). A field of padding only
// gives "" or " ".
std::string tagTitleText(std::string_view fieldBytes, CodePage page);

template <std::size_t N>
std::string tagTitleText(const FixedText<N>& field, CodePage page) {
  return tagTitleText(field.bytes(), page);
}

}  // namespace yarvo
