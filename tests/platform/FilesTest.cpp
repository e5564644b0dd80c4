// Whole-file reads and the crash-safe save every data file goes through.

#include "platform/Files.h"

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "support/TempDir.h"

namespace {

// The size of each file at the moment it is flushed. This executable's own
// fsync stands in front of the C library's, records, and passes the call on.
std::vector<off_t> sizesAtFlush;

}  // namespace

extern "C" int fsync(int fd) {
  struct stat st {};
  if (::fstat(fd, &st) == 0) sizesAtFlush.push_back(st.st_size);
  using Fsync = int (*)(int);
  static const auto real = reinterpret_cast<Fsync>(::dlsym(RTLD_NEXT, "fsync"));
  return real(fd);
}

namespace yarvo {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> Entries(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder))
    names.push_back(entry.path().filename().string());
  return names;
}

TEST(WriteFileAtomically, ADurableSaveFlushesItsBytesBeforeTheyBecomeTheFile) {
  test::TempDir dir;
  sizesAtFlush.clear();
  ASSERT_TRUE(WriteFileAtomically(dir / "settings.ini", "hello\r\n", Durability::Disk));
  EXPECT_EQ(sizesAtFlush, std::vector<off_t>{7});
  sizesAtFlush.clear();
  ASSERT_TRUE(WriteFileAtomically(dir / "playlist.data", "a copy\r\n", Durability::Cache));
  EXPECT_TRUE(sizesAtFlush.empty()) << "a copy made again at every start is not flushed";
}

TEST(WriteFileAtomically, ReplacesTheFileWholeAndReadsBackEveryByte) {
  test::TempDir dir;
  const std::string path = dir / "plst.data";
  const std::string bytes("new\0\xFF bytes\r", 12);
  ASSERT_TRUE(WriteFileAtomically(path, "a much longer old content\r\n"));
  ASSERT_TRUE(WriteFileAtomically(path, bytes));
  EXPECT_EQ(ReadWholeFile(path), bytes);
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"plst.data"});
  EXPECT_EQ(ReadWholeFile(dir / "none.data"), std::nullopt);
  EXPECT_EQ(ReadWholeFile(dir.path().string()), std::nullopt) << "a folder is no file";
}

TEST(WriteFileAtomically, ASaveThatCannotLandLeavesWhatWasThere) {
  test::TempDir dir;
  // A folder where the file should be: the rename fails.
  fs::create_directory(dir.path() / "top.data");
  EXPECT_FALSE(WriteFileAtomically(dir / "top.data", "rows\r\n"));
  EXPECT_TRUE(fs::is_directory(dir.path() / "top.data"));
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"top.data"}) << "no temporary file";
  // A folder that does not exist: nothing to write into.
  EXPECT_FALSE(WriteFileAtomically(dir / "missing/settings.ini", "x"));
}

}  // namespace
}  // namespace yarvo
