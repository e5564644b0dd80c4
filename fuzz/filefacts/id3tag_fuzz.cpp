// The tag reader and writer on hostile files: what is read must be what the
// bytes say, text must survive the code page round trip, and a save must
// keep every byte in front of the tag and read back as saved.

#include "MemFile.h"
#include "playlist/Id3Tag.h"

#include <algorithm>
#include <string>

namespace {

using yarvo::CodePage;
using yarvo::Id3Tag;
using yarvo::fuzz::fail;

constexpr CodePage kPages[] = {CodePage::Latin1, CodePage::Cp1250, CodePage::Cp1251};

template <std::size_t N>
void checkText(const yarvo::FixedText<N>& field, CodePage page) {
  const std::string text = yarvo::fieldText(field, page);
  const std::string_view raw = field.bytes().substr(0, field.bytes().find('\0'));
  if (yarvo::utf8ToCodePage(text, page) != raw) fail("code page round trip");
  if (yarvo::tagTitleText(field, page).find("  ") != std::string::npos)
    fail("blank pair left in a title");
}

void checkTexts(const Id3Tag& tag) {
  for (CodePage page : kPages) {
    checkText(tag.Title, page);
    checkText(tag.Artist, page);
    checkText(tag.Album, page);
    checkText(tag.Year, page);
    checkText(tag.Comment, page);
  }
}

// A tag made from the input read as UTF-8 text, as the tag editor would save it.
Id3Tag tagFromText(std::span<const std::uint8_t> input) {
  const std::string_view text(reinterpret_cast<const char*>(input.data()), input.size());
  const CodePage page = kPages[input.empty() ? 0 : input[0] % 3];
  Id3Tag tag;
  yarvo::setFieldText(tag.Title, text, page);
  yarvo::setFieldText(tag.Artist, text.substr(std::min<std::size_t>(text.size(), 7)), page);
  yarvo::setFieldText(tag.Year, text.substr(std::min<std::size_t>(text.size(), 3)), page);
  tag.Genre = input.empty() ? 0 : input.back();
  return tag;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::uint8_t> input(data, size);
  Id3Tag sentinel;
  sentinel.Title = "sentinel";
  sentinel.Genre = 7;

  Id3Tag parsed = sentinel;
  const bool found = yarvo::parseId3Tag(input, parsed);
  const bool hasMarker =
      size >= 128 && data[size - 128] == 'T' && data[size - 127] == 'A' && data[size - 126] == 'G';
  if (found != hasMarker || (!found && parsed != sentinel))
    fail("tag found where there is none, or the reverse");
  if (found) {
    const yarvo::Id3TagBytes bytes = yarvo::id3TagBytes(parsed);
    if (!std::equal(bytes.begin(), bytes.end(), data + size - 128))
      fail("tag bytes do not round trip");
  }
  checkTexts(parsed);

  const yarvo::fuzz::MemFile file(input);
  Id3Tag fromFile = sentinel;
  if (yarvo::readId3TagFile(file.path(), fromFile) != found || fromFile != parsed)
    fail("file reader disagrees with the byte reader");

  const Id3Tag saved = tagFromText(input);
  checkTexts(saved);
  if (!yarvo::writeId3TagFile(file.path(), saved)) fail("write failed");
  const std::vector<std::uint8_t> after = file.content();
  const std::size_t kept = found ? size - 125 : size;
  if (after.size() != (found ? size : size + 128) || !std::equal(data, data + kept, after.begin()))
    fail("save changed the audio bytes or the length");
  Id3Tag back;
  if (!yarvo::readId3TagFile(file.path(), back) || back != saved)
    fail("saved tag does not read back");
  return 0;
}
