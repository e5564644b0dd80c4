// The line file reader and writer.

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <csignal>
#include <filesystem>

#include "core/form/StringList.h"
#include "playlist/DataClass.h"
#include "support/ProgramFixture.h"

namespace yarvo {
namespace {

using test::ReadBytes;
using test::Rows;
using test::TempDir;
using test::WriteBytes;
using Strings = std::vector<std::string>;

Strings Read(const std::string& bytes) {
  TempDir dir;
  WriteBytes(dir / "f", bytes);
  StringList list;
  IncarcaData(dir / "f", list);
  return Rows(list);
}

struct ReadCase {
  const char* name;
  std::string bytes;
  Strings rows;
  friend std::ostream& operator<<(std::ostream& out, const ReadCase& c) { return out << c.name; }
};

class LineFileRead : public ::testing::TestWithParam<ReadCase> {};

TEST_P(LineFileRead, GivesTheRows) { EXPECT_EQ(Read(GetParam().bytes), GetParam().rows); }

INSTANTIATE_TEST_SUITE_P(
    Cases, LineFileRead,
    ::testing::Values(ReadCase{"EmptyFile", "", {}}, ReadCase{"CrLf", "a\r\nb\r\n", {"a", "b"}},
                      ReadCase{"LastLineUnterminated", "a\r\nb", {"a", "b"}},
                      ReadCase{"LoneCrEndsALine", "a\rb\r\nc", {"a", "b", "c"}},
                      ReadCase{"LoneLfEndsALine", "a\nb\n", {"a", "b"}},
                      ReadCase{"TrailingBlanksCut", "song   \r\n  lead\r\n", {"song", "  lead"}},
                      ReadCase{"TabsAreNotBlanks", "tab\t\r\n", {"tab\t"}},
                      ReadCase{
                          "BlankOnlyAndEmptyRowsStay", "a\r\n   \r\n\r\nb\r\n", {"a", "", "", "b"}},
                      ReadCase{"EightBitBytesPassThrough", "\xC8\x99\xff\r\n", {"\xC8\x99\xff"}}),
    [](const auto& param) { return std::string(param.param.name); });

TEST(LineFile, MissingFileOrEmptyNameLeavesTheListAsItWas) {
  TempDir dir;
  StringList list;
  list.AddItem("kept");
  IncarcaData(dir / "missing", list);
  IncarcaData("", list);
  IncarcaData(dir.Path().string(), list);  // a folder is no file
  EXPECT_EQ(Rows(list), Strings{"kept"});
}

TEST(LineFile, ReadingTwiceDoublesTheRows) {
  TempDir dir;
  WriteBytes(dir / "f", "a\r\nb\r\n");
  StringList list;
  IncarcaData(dir / "f", list);
  IncarcaData(dir / "f", list);
  EXPECT_EQ(Rows(list), (Strings{"a", "b", "a", "b"}));
}

TEST(LineFile, WriterEndsEveryRowWithCrLfAndTheReaderGetsThemBack) {
  TempDir dir;
  StringList list;
  for (const char* row : {"first", "", "third  "}) list.AddItem(row);
  SalveazaData(dir / "f", list);
  EXPECT_EQ(ReadBytes(dir / "f"), "first\r\n\r\nthird  \r\n");
  StringList back;
  IncarcaData(dir / "f", back);
  EXPECT_EQ(Rows(back), (Strings{"first", "", "third"}));

  StringList empty;
  SalveazaData(dir / "f", empty);
  EXPECT_EQ(ReadBytes(dir / "f"), "");
}

// A write that runs out of room half-way (here: the file size limit) must not
// leave a short file where the old one was.
TEST(LineFile, AWriteThatFailsHalfWayLeavesTheOldFileWhole) {
  TempDir dir;
  WriteBytes(dir / "f", "old\r\n");
  StringList list;
  list.AddItem(std::string(4096, 'x'));
  rlimit saved{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &saved), 0);
  const auto previousHandler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit tight = saved;
  tight.rlim_cur = 1024;
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tight), 0);
  SalveazaData(dir / "f", list);
  ::setrlimit(RLIMIT_FSIZE, &saved);
  std::signal(SIGXFSZ, previousHandler);
  EXPECT_EQ(ReadBytes(dir / "f"), "old\r\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.Path()),
                          std::filesystem::directory_iterator()),
            1)
      << "no temporary file is left behind";
}

}  // namespace
}  // namespace yarvo
