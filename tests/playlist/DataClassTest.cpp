// The line file reader and writer.

#include <gtest/gtest.h>

#include <sys/resource.h>
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

TEST(LineFile, ReadingGivesTheRows) {
  struct Case {
    const char* name;
    std::string bytes;
    Strings rows;
  };
  for (const Case& c : {
           Case{"empty file", "", {}},
           Case{"CR LF, the last line unterminated", "a\r\nb", {"a", "b"}},
           Case{"a lone CR or LF ends a line", "a\rb\r\nc\nd\n", {"a", "b", "c", "d"}},
           Case{"trailing blanks cut, not tabs",
                "song   \r\n  lead\r\ntab\t\r\n",
                {"song", "  lead", "tab\t"}},
           Case{"blank and empty rows stay", "a\r\n   \r\n\r\nb\r\n", {"a", "", "", "b"}},
           Case{"8-bit bytes pass through", "\xC8\x99\xff\r\n", {"\xC8\x99\xff"}},
       }) {
    TempDir dir;
    WriteBytes(dir / "f", c.bytes);
    StringList list;
    IncarcaData(dir / "f", list);
    EXPECT_EQ(Rows(list), c.rows) << c.name;
  }
}

TEST(LineFile, ReadingAppendsAndAMissingFileOrEmptyNameLeavesTheListAsItWas) {
  TempDir dir;
  WriteBytes(dir / "f", "a\r\nb\r\n");
  StringList list;
  list.AddItem("kept");
  IncarcaData(dir / "missing", list);
  IncarcaData("", list);
  IncarcaData(dir.path().string(), list);  // a folder is no file
  IncarcaData(dir / "f", list);
  EXPECT_EQ(Rows(list), (Strings{"kept", "a", "b"}));
}

TEST(LineFile, WriterEndsEveryRowWithCrLfAndKeepsTheRowsAsTheyAre) {
  TempDir dir;
  StringList list;
  for (const char* row : {"first", "", "third  "}) list.AddItem(row);
  SalveazaData(dir / "f", list);
  EXPECT_EQ(ReadBytes(dir / "f"), "first\r\n\r\nthird  \r\n");

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
  rlimit tight{1024, saved.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tight), 0);
  SalveazaData(dir / "f", list);
  ::setrlimit(RLIMIT_FSIZE, &saved);
  std::signal(SIGXFSZ, previousHandler);
  EXPECT_EQ(ReadBytes(dir / "f"), "old\r\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 1)
      << "no temporary file is left behind";
}

}  // namespace
}  // namespace yarvo
