// Whole-file reads and the crash-safe save every data file goes through.

#include "platform/Files.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <vector>

#include "support/TempDir.h"

namespace {

// The size of each regular file at the moment it is flushed. This executable's own
// fsync stands in front of the C library's, records, and passes the call on.
std::vector<off_t> sizesAtFlush;

// What a forked saver does when its bytes are written and about to be
// flushed: go on, die by SIGKILL, or wait there until it is killed.
enum class AtFlush { Flush, Die, Wait };
AtFlush atFlush = AtFlush::Flush;

}  // namespace

extern "C" int fsync(int fd) {
  struct stat st {};
  if (::fstat(fd, &st) == 0 && S_ISREG(st.st_mode)) {
    sizesAtFlush.push_back(st.st_size);
    if (atFlush == AtFlush::Die) ::raise(SIGKILL);
    while (atFlush == AtFlush::Wait) ::pause();
  }
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
  std::sort(names.begin(), names.end());
  return names;
}

fs::perms Mode(const fs::path& path) { return fs::symlink_status(path).permissions(); }

// A child process that saves `bytes` to `path` and does `then` at the flush.
pid_t ForkSaver(const std::string& path, const std::string& bytes, AtFlush then) {
  const pid_t pid = ::fork();
  if (pid == 0) {
    atFlush = then;
    WriteFileAtomically(path, bytes);
    ::_exit(0);
  }
  return pid;
}

// Waits until `folder` holds `count` entries (the saver's temporary file).
bool HoldsEntries(const fs::path& folder, std::size_t count) {
  for (int i = 0; i < 2000 && Entries(folder).size() != count; ++i) ::usleep(5000);
  return Entries(folder).size() == count;
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

TEST(WriteFileAtomically, AKilledSaveLeavesItsFileForTheNextStartAndARunningOneKeepsIt) {
  test::TempDir dir;
  const std::string path = dir / "plst.data";
  ASSERT_TRUE(WriteFileAtomically(path, "old rows\r\n"));

  const pid_t killed = ForkSaver(path, std::string(100000, 'x'), AtFlush::Die);
  int status = 0;
  ASSERT_EQ(::waitpid(killed, &status, 0), killed);
  ASSERT_TRUE(WIFSIGNALED(status));
  const auto leftover = Entries(dir.path());
  ASSERT_EQ(leftover.size(), 2u);
  EXPECT_EQ(leftover[1], "plst.data.partial-save-" + std::to_string(killed))
      << "named after the file and its writer";
  EXPECT_EQ(ReadWholeFile(path), "old rows\r\n");

  const pid_t running = ForkSaver(dir / "top.data", "ranking", AtFlush::Wait);
  ASSERT_TRUE(HoldsEntries(dir.path(), 3));
  RemoveLeftoverSaves(dir.path());
  EXPECT_EQ(Entries(dir.path()),
            (std::vector<std::string>{"plst.data", "top.data.partial-save-" + std::to_string(running)}))
      << "the dead save's file goes, the running one's stays";
  ::kill(running, SIGKILL);
  ::waitpid(running, nullptr, 0);
  RemoveLeftoverSaves(dir.path());
  EXPECT_EQ(Entries(dir.path()), std::vector<std::string>{"plst.data"});
}

TEST(WriteFileAtomically, KeepsTheFilesModeAndReplacesNoReadOnlyFile) {
  test::TempDir dir;
  const std::string privateFile = dir / "plst.data";
  ASSERT_TRUE(WriteFileAtomically(privateFile, "one"));
  fs::permissions(privateFile, fs::perms::owner_read | fs::perms::owner_write);
  ASSERT_TRUE(WriteFileAtomically(privateFile, "two"));
  EXPECT_EQ(Mode(privateFile), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(ReadWholeFile(privateFile), "two");

  // Made read-only by its user: root could replace it, but does not either.
  const std::string readOnly = dir / "settings.ini";
  ASSERT_TRUE(WriteFileAtomically(readOnly, "kept"));
  fs::permissions(readOnly, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  EXPECT_FALSE(WriteFileAtomically(readOnly, "lost"));
  EXPECT_EQ(ReadWholeFile(readOnly), "kept");
  EXPECT_EQ(Mode(readOnly), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  EXPECT_EQ(Entries(dir.path()), (std::vector<std::string>{"plst.data", "settings.ini"}));
}

TEST(WriteFileAtomically, WritesThroughSymbolicLinksToTheirTarget) {
  test::TempDir dir;
  fs::create_directories(dir / "dotfiles/yarvo");
  ASSERT_TRUE(WriteFileAtomically(dir / "dotfiles/yarvo/settings.ini", "old"));
  // settings.ini -> dotfiles/settings.ini -> yarvo/settings.ini: a chain of
  // relative links, each relative to its own folder.
  fs::create_symlink("yarvo/settings.ini", dir / "dotfiles/settings.ini");
  fs::create_symlink("dotfiles/settings.ini", dir / "settings.ini");
  ASSERT_TRUE(WriteFileAtomically(dir / "settings.ini", "new"));
  EXPECT_TRUE(fs::is_symlink(dir / "settings.ini")) << "the link stays a link";
  EXPECT_EQ(ReadWholeFile(dir / "dotfiles/yarvo/settings.ini"), "new");
  EXPECT_EQ(Entries(dir / "dotfiles/yarvo"), std::vector<std::string>{"settings.ini"});
  // A link to a file that does not exist yet makes it.
  fs::create_symlink("dotfiles/yarvo/top.data", dir / "top.data");
  ASSERT_TRUE(WriteFileAtomically(dir / "top.data", "rows"));
  EXPECT_EQ(ReadWholeFile(dir / "dotfiles/yarvo/top.data"), "rows");
}

TEST(ReadWholeFile, APipeIsRefusedAtOnceLikeAMissingFile) {
  test::TempDir dir;
  ASSERT_EQ(::mkfifo((dir / "plst.data").c_str(), 0644), 0);
  EXPECT_EQ(ReadWholeFile(dir / "plst.data"), std::nullopt) << "no wait for a writer";
  EXPECT_FALSE(OpenRegularFile(dir / "plst.data", O_RDONLY));
  EXPECT_FALSE(WriteFileAtomically(dir / "plst.data", "rows")) << "nor is it replaced";
  EXPECT_TRUE(fs::is_fifo(dir / "plst.data"));
}

}  // namespace
}  // namespace yarvo
