#include "playlist/Id3Genres.h"
#include "playlist/Id3Tag.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace yarvo {
namespace {

using namespace std::string_literals;

TEST(FixedText, NewFieldIsZeroBytesAndAssignPadsWithBlanks) {
  FixedText<4> year;
  EXPECT_EQ(year.bytes(), std::string(4, '\0'));
  EXPECT_EQ(fieldText(year, CodePage::Latin1), "");
  year = "99";
  EXPECT_EQ(year.bytes(), "99  ");
  // fieldText converts but keeps the blank padding, unlike tagTitleText.
  year = "\xAAi";
  EXPECT_EQ(fieldText(year, CodePage::Cp1250), "Şi  ");
  // The width counts bytes of the 8-bit form: 31 letters are 62 bytes of UTF-8.
  FixedText<30> title;
  std::string thirtyOne;
  for (int k = 0; k < 31; ++k) thirtyOne += "ă";
  setFieldText(title, thirtyOne, CodePage::Cp1250);
  EXPECT_EQ(title.bytes(), std::string(30, '\xE3'));
}

// The 128 bytes on disk, with every field set to something recognisable.
Id3TagBytes sampleTagBytes() {
  Id3TagBytes raw{};
  const std::string text = "TAG" + std::string(30, 't') + std::string(30, 'a') +
                           std::string(30, 'l') + "1999" + std::string(30, 'c');
  std::copy(text.begin(), text.end(), raw.begin());
  raw[127] = 17;
  return raw;
}

TEST(Id3TagBytes, FieldsSitAtTheirOffsets) {
  Id3Tag tag;
  ASSERT_TRUE(parseId3Tag(sampleTagBytes(), tag));
  EXPECT_EQ(tag.Title.bytes(), std::string(30, 't'));
  EXPECT_EQ(tag.Artist.bytes(), std::string(30, 'a'));
  EXPECT_EQ(tag.Album.bytes(), std::string(30, 'l'));
  EXPECT_EQ(tag.Year.bytes(), "1999");
  EXPECT_EQ(tag.Comment.bytes(), std::string(30, 'c'));
  EXPECT_EQ(tag.Genre, 17);
  EXPECT_EQ(id3TagBytes(tag), sampleTagBytes());
}

TEST(Id3TagBytes, OnlyExactTagMarkerCounts) {
  Id3Tag before;
  before.Title = "kept";
  before.Genre = 3;
  for (const char* marker : {"tag", "TA\0", "XTA"}) {
    SCOPED_TRACE(marker);
    Id3TagBytes raw = sampleTagBytes();
    std::copy_n(marker, 3, raw.begin());
    Id3Tag tag = before;
    EXPECT_FALSE(parseId3Tag(raw, tag));
    EXPECT_EQ(tag, before);
  }
}

// Every pair of adjacent blanks goes, left to right: a run of n blanks keeps n % 2.
TEST(TagTitleText, StopsAtZeroAndDeletesBlankPairs) {
  const std::pair<std::string, const char*> cases[] = {
      {"Abcdefghij" + std::string(20, ' '), "Abcdefghij"},
      {"Abcdefghijk" + std::string(19, ' '), "Abcdefghijk "},
      {"Song\0Junk"s + std::string(21, ' '), "Song"},
      {"Hello  World" + std::string(18, ' '), "HelloWorld"},
      {"a   b" + std::string(25, '\0'), "a b"},
      {std::string(29, ' ') + '\0', " "},
      {"  Intro" + std::string(23, '\0'), "Intro"},
  };
  for (const auto& [field, expected] : cases) {
    SCOPED_TRACE(field);
    ASSERT_EQ(field.size(), 30u);
    EXPECT_EQ(tagTitleText(FixedText<30>(field), CodePage::Latin1), expected);
  }
}

TEST(Id3Genres, TableHoldsTheProgramsNamesInOrder) {
  ASSERT_EQ(kId3Genres.size(), 148u);
  EXPECT_EQ(id3GenreName(0), "Blues");
  EXPECT_EQ(id3GenreName(67), "Phychedelic");  // the program's spelling, which users see
  EXPECT_EQ(id3GenreName(147), "Synth Pop");
  EXPECT_EQ(id3GenreName(148), "");
  EXPECT_EQ(id3GenreName(255), "");
  // A comma missing in the table joins two names and leaves the last entry empty.
  for (std::string_view name : kId3Genres) EXPECT_FALSE(name.empty());
}

}  // namespace
}  // namespace yarvo
