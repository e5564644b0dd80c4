#include "playlist/Id3Tag.h"

#include "playlist/ByteFile.h"

#include <algorithm>
#include <optional>

namespace yarvo {
namespace {

constexpr std::size_t kMarkerSize = 3;
constexpr std::size_t kBodySize = kId3TagSize - kMarkerSize;

bool startsWithMarker(std::span<const std::uint8_t> tail) noexcept {
  return tail.size() >= kMarkerSize && tail[0] == 'T' && tail[1] == 'A' && tail[2] == 'G';
}

template <std::size_t N>
void readField(FixedText<N>& field, std::span<const std::uint8_t>& from) noexcept {
  const std::string_view bytes(reinterpret_cast<const char*>(from.data()), N);
  field = FixedText<N>(bytes);  // exactly N bytes, so nothing is padded
  from = from.subspan(N);
}

template <std::size_t N>
void writeField(const FixedText<N>& field, std::span<std::uint8_t>& to) noexcept {
  const std::string_view bytes = field.bytes();
  std::copy_n(bytes.begin(), N, reinterpret_cast<char*>(to.data()));
  to = to.subspan(N);
}

}  // namespace

bool parseId3Tag(std::span<const std::uint8_t> fileTail, Id3Tag& tag) noexcept {
  if (fileTail.size() < kId3TagSize) return false;
  std::span<const std::uint8_t> from = fileTail.last(kId3TagSize);
  if (!startsWithMarker(from)) return false;
  from = from.subspan(kMarkerSize);
  readField(tag.Title, from);
  readField(tag.Artist, from);
  readField(tag.Album, from);
  readField(tag.Year, from);
  readField(tag.Comment, from);
  tag.Genre = from[0];
  return true;
}

Id3TagBytes id3TagBytes(const Id3Tag& tag) noexcept {
  Id3TagBytes out{'T', 'A', 'G'};
  std::span<std::uint8_t> to = std::span(out).subspan(kMarkerSize);
  writeField(tag.Title, to);
  writeField(tag.Artist, to);
  writeField(tag.Album, to);
  writeField(tag.Year, to);
  writeField(tag.Comment, to);
  to[0] = tag.Genre;
  return out;
}

bool readId3TagFile(const std::string& path, Id3Tag& tag) noexcept {
  std::optional<ByteFile> file = ByteFile::open(path, ByteFile::Access::Read);
  if (!file || file->size() < kId3TagSize) return false;
  Id3TagBytes tail{};
  if (file->readAt(file->size() - kId3TagSize, tail) != kId3TagSize) return false;
  return parseId3Tag(tail, tag);
}

bool writeId3TagFile(const std::string& path, const Id3Tag& tag) noexcept {
  std::optional<ByteFile> file = ByteFile::open(path, ByteFile::Access::ReadWrite);
  if (!file) return false;
  const std::uint64_t size = file->size();
  const Id3TagBytes fresh = id3TagBytes(tag);

  Id3TagBytes old{};
  const bool hasTail = size >= kId3TagSize;
  if (hasTail && file->readAt(size - kId3TagSize, old) != kId3TagSize)
    return false;  // can't tell whether a tag is there: appending might double it
  if (hasTail && startsWithMarker(old)) {
    const std::uint64_t bodyAt = size - kBodySize;
    if (file->writeAt(bodyAt, std::span(fresh).subspan(kMarkerSize))) return true;
    file->writeAt(bodyAt, std::span(old).subspan(kMarkerSize));
    return false;
  }

  // One write at the old end; a partial append is cut off again, so the
  // file is never left with a broken tag behind its audio.
  if (file->writeAt(size, fresh)) return true;
  file->truncate(size);
  return false;
}

std::string fieldText(std::string_view fieldBytes, CodePage page) {
  return codePageToUtf8(fieldBytes.substr(0, fieldBytes.find('\0')), page);
}

std::string tagTitleText(std::string_view fieldBytes, CodePage page) {
  std::string_view text = fieldBytes.substr(0, fieldBytes.find('\0'));
  // A pair never reaches across a non-blank, so a run of n blanks keeps
  // n % 2 of them. A blank is the byte 0x20 in every code page here and one
  // byte in UTF-8, so the runs between blanks go across converted whole.
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const std::size_t word = std::min(text.find(' '), text.size());
    appendCodePageText(out, text.substr(0, word), page);
    text.remove_prefix(word);
    const std::size_t blanks = std::min(text.find_first_not_of(' '), text.size());
    if (blanks % 2 == 1) out.push_back(' ');
    text.remove_prefix(blanks);
  }
  return out;
}

}  // namespace yarvo
