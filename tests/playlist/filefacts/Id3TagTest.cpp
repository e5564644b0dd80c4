#include "playlist/Id3Genres.h"
#include "playlist/Id3Tag.h"

#include <gtest/gtest.h>

#include <string>

namespace yarvo {
namespace {

using namespace std::string_literals;

TEST(FixedText, NewFieldIsZeroBytesAndReadsEmpty) {
  const FixedText<30> field;
  EXPECT_EQ(field.bytes(), std::string(30, '\0'));
  EXPECT_EQ(fieldText(field, CodePage::Latin1), "");
}

TEST(FixedText, AssignPadsWithBlanksAndCuts) {
  FixedText<4> year;
  year = "99";
  EXPECT_EQ(year.bytes(), "99  ");
  year = "2024-06-11";
  EXPECT_EQ(year.bytes(), "2024");
  year = "";
  EXPECT_EQ(year.bytes(), "    ");
  FixedText<30> title;
  title = std::string(31, 'x');
  EXPECT_EQ(title.bytes(), std::string(30, 'x'));
}

TEST(FixedText, WidthCountsBytesOfTheEightBitForm) {
  FixedText<30> title;
  std::string thirtyOne;
  for (int k = 0; k < 31; ++k) thirtyOne += "ă";  // 62 bytes of UTF-8, 31 bytes in Windows-1250
  setFieldText(title, thirtyOne, CodePage::Cp1250);
  EXPECT_EQ(title.bytes(), std::string(30, '\xE3'));
  setFieldText(title, "Ana ăş", CodePage::Latin1);
  EXPECT_EQ(title.bytes().substr(0, 7), "Ana ?? ");
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
  for (const char* marker : {"tag", "TAg", "TA\0", "XTA"}) {
    SCOPED_TRACE(marker);
    Id3TagBytes raw = sampleTagBytes();
    std::copy_n(marker, 3, raw.begin());
    Id3Tag tag = before;
    EXPECT_FALSE(parseId3Tag(raw, tag));
    EXPECT_EQ(tag, before);
  }
  const Id3TagBytes raw = sampleTagBytes();
  Id3Tag tag = before;
  EXPECT_FALSE(parseId3Tag(std::span(raw).first(127), tag));
  EXPECT_EQ(tag, before);
}

TEST(Id3TagBytes, ReadsTheLast128BytesOfALongerTail) {
  std::vector<std::uint8_t> file(1000, 0xFF);
  const Id3TagBytes raw = sampleTagBytes();
  std::copy(raw.begin(), raw.end(), file.end() - 128);
  Id3Tag tag;
  ASSERT_TRUE(parseId3Tag(file, tag));
  EXPECT_EQ(tag.Genre, 17);
}

struct TitleCase {
  const char* name;
  std::string field;  // the 30 bytes of the field
  std::string expected;
};

void PrintTo(const TitleCase& c, std::ostream* os) { *os << c.name; }

class TagTitleText : public testing::TestWithParam<TitleCase> {};

TEST_P(TagTitleText, StopsAtZeroAndDeletesBlankPairs) {
  const TitleCase& c = GetParam();
  ASSERT_EQ(c.field.size(), 30u);
  EXPECT_EQ(tagTitleText(FixedText<30>(c.field), CodePage::Latin1), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, TagTitleText,
    testing::Values(
        TitleCase{"TenLettersTwentyBlanks", "Abcdefghij" + std::string(20, ' '), "Abcdefghij"},
        TitleCase{"ElevenLettersNineteenBlanks", "Abcdefghijk" + std::string(19, ' '),
                  "Abcdefghijk "},
        TitleCase{"ZeroBytePadding", "Song" + std::string(26, '\0'), "Song"},
        TitleCase{"TextBehindZeroIgnored", "Song\0Junk"s + std::string(21, ' '), "Song"},
        TitleCase{"InnerPairJoinsWords", "Hello  World" + std::string(18, ' '), "HelloWorld"},
        TitleCase{"ThreeBlanksLeaveOne", "a   b" + std::string(25, '\0'), "a b"},
        TitleCase{"FourBlanksLeaveNone", "a    b" + std::string(24, '\0'), "ab"},
        TitleCase{"OnlyBlanks", std::string(30, ' '), ""},
        TitleCase{"OddBlanksBeforeZero", std::string(29, ' ') + '\0', " "},
        TitleCase{"OnlyZeros", std::string(30, '\0'), ""},
        TitleCase{"LeadingPairGoes", "  Intro" + std::string(23, '\0'), "Intro"}),
    [](const testing::TestParamInfo<TitleCase>& p) { return std::string(p.param.name); });

TEST(TagTitleText, ConvertsFromTheChosenCodePage) {
  const FixedText<30> field(
      "Ion \xAA"
      "tefan  \xE3\xEE" +
      std::string(16, ' '));
  EXPECT_EQ(tagTitleText(field, CodePage::Cp1250), "Ion Ştefanăî");
  EXPECT_EQ(tagTitleText(field, CodePage::Latin1), "Ion ªtefanãî");
  EXPECT_EQ(fieldText(field, CodePage::Cp1250), "Ion Ştefan  ăî" + std::string(16, ' '));
}

TEST(Id3Genres, TableHoldsTheProgramsNamesInOrder) {
  ASSERT_EQ(kId3Genres.size(), 148u);
  EXPECT_EQ(id3GenreName(0), "Blues");
  EXPECT_EQ(id3GenreName(17), "Rock");
  EXPECT_EQ(id3GenreName(67), "Phychedelic");
  EXPECT_EQ(id3GenreName(117), "power Ballad");
  EXPECT_EQ(id3GenreName(131), "indie");
  EXPECT_EQ(id3GenreName(140), "Comteporary Christian");
  EXPECT_EQ(id3GenreName(147), "Synth Pop");
  EXPECT_EQ(id3GenreName(148), "");
  EXPECT_EQ(id3GenreName(255), "");
  for (std::string_view name : kId3Genres) {
    EXPECT_FALSE(name.empty());
    EXPECT_EQ(name.find('|'), std::string_view::npos) << name;
  }
}

}  // namespace
}  // namespace yarvo
