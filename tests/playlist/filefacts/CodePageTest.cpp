#include "playlist/CodePage.h"

#include <gtest/gtest.h>

#include <iconv.h>

#include <array>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

namespace yarvo {
namespace {

// One byte through glibc's iconv; nullopt where iconv knows no character.
std::optional<std::string> iconvByteToUtf8(const char* from, unsigned char byte) {
  iconv_t cd = iconv_open("UTF-8", from);
  if (cd == reinterpret_cast<iconv_t>(-1)) return std::nullopt;
  char in[1] = {static_cast<char>(byte)};
  std::array<char, 8> out{};
  char* inPtr = in;
  char* outPtr = out.data();
  std::size_t inLeft = 1;
  std::size_t outLeft = out.size();
  const std::size_t rc = iconv(cd, &inPtr, &inLeft, &outPtr, &outLeft);
  iconv_close(cd);
  if (rc == static_cast<std::size_t>(-1)) return std::nullopt;
  return std::string(out.data(), out.size() - outLeft);
}

TEST(CodePage, EveryByteBothWaysAgreesWithIconv) {
  struct Case {
    CodePage page;
    const char* iconvName;
    int undefinedBytes;  // bytes iconv knows no character for
  };
  for (const Case& c : {Case{CodePage::Latin1, "ISO-8859-1", 0},
                        Case{CodePage::Cp1250, "CP1250", 5}, Case{CodePage::Cp1251, "CP1251", 1}}) {
    ASSERT_TRUE(iconvByteToUtf8(c.iconvName, 'A').has_value()) << "iconv lacks " << c.iconvName;
    int undefined = 0;
    for (int b = 0; b < 256; ++b) {
      const auto byte = static_cast<unsigned char>(b);
      SCOPED_TRACE(testing::Message() << c.iconvName << " byte " << b);
      const std::string bytes(1, static_cast<char>(byte));
      const std::string ours = codePageToUtf8(bytes, c.page);
      if (const std::optional<std::string> theirs = iconvByteToUtf8(c.iconvName, byte)) {
        EXPECT_EQ(ours, *theirs);
      } else {
        ++undefined;  // read as the C1 control of the same value
        EXPECT_EQ(ours, codePageToUtf8(bytes, CodePage::Latin1));
      }
      EXPECT_EQ(utf8ToCodePage(ours, c.page), bytes);
    }
    EXPECT_EQ(undefined, c.undefinedBytes) << c.iconvName;
  }
}

// The comma-below letters have no byte of their own in Windows-1250: they are
// written as the cedilla letters, not as "?", so Romanian titles stay readable.
TEST(CodePage, CommaBelowLettersBecomeCedillaLettersOfWindows1250) {
  EXPECT_EQ(utf8ToCodePage("șțȘȚ", CodePage::Cp1250), "\xBA\xFE\xAA\xDE");
}

TEST(CodePage, CharacterWithoutByteBecomesQuestionMark) {
  for (auto [utf8, page, expected] : {std::tuple{"€5", CodePage::Latin1, "?5"},
                                      {"Жé", CodePage::Cp1250, "?\xE9"},
                                      {"ș", CodePage::Cp1251, "?"},
                                      {"\xE2\x82", CodePage::Cp1250, "??"},       // cut short
                                      {"\xC0\xAF", CodePage::Latin1, "??"},       // overlong "/"
                                      {"\xED\xA0\x80", CodePage::Latin1, "???"},  // surrogate
                                      {"x🎵y", CodePage::Cp1250, "x?y"}}) {
    SCOPED_TRACE(utf8);
    EXPECT_EQ(utf8ToCodePage(utf8, page), expected);
  }
}

// The names are stored in the settings: they must not change.
TEST(CodePage, StableNames) {
  for (auto [page, name] : {std::pair{CodePage::Latin1, "latin1"},
                            {CodePage::Cp1250, "cp1250"},
                            {CodePage::Cp1251, "cp1251"}}) {
    EXPECT_EQ(codePageName(page), name);
    EXPECT_EQ(codePageFromName(name), page);
  }
  EXPECT_EQ(codePageFromName("CP1250"), std::nullopt);
  EXPECT_EQ(codePageFromName(""), std::nullopt);
}

}  // namespace
}  // namespace yarvo
