// Where the player keeps its files, and which instances count as one
// program: a wrong choice writes into an installation, or loses the user's
// settings to a fresh copy of the shipped ones.

#include "platform/ProgramFolder.h"

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "platform/InstanceLock.h"
#include "support/ProgramFixture.h"
#include "support/TempDir.h"

namespace yarvo {
namespace {

namespace fs = std::filesystem;
using test::ReadBytes;
using test::TempDir;
using test::WriteBytes;

// Every file under `folder` with its content.
std::map<std::string, std::string> Tree(const fs::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file())
      files[fs::relative(entry.path(), folder)] = ReadBytes(entry.path());
  }
  return files;
}

TEST(UserDataFolder, FollowsTheBaseDirectoryRules) {
  struct Case {
    const char* xdgDataHome;
    const char* home;
    const char* folder;
  };
  for (const auto& [xdg, home, folder] :
       {Case{"/data", "/home/ana", "/data/yarvo-player"},
        {nullptr, "/home/ana", "/home/ana/.local/share/yarvo-player"},
        {"", "/home/ana", "/home/ana/.local/share/yarvo-player"},
        {"relative/data", "/home/ana", "/home/ana/.local/share/yarvo-player"},
        {"/data", nullptr, "/data/yarvo-player"},
        {nullptr, "", ""}}) {
    SCOPED_TRACE(std::string(xdg ? xdg : "(unset)") + " " + (home ? home : "(unset)"));
    EXPECT_EQ(UserDataFolder(xdg, home), fs::path(folder));
  }
}

// An installation's prefix and a user's home, side by side.
class ProgramFolderChoice : public ::testing::Test {
 protected:
  ProgramFolderChoice() {
    fs::create_directories(bin);
    for (const fs::path& shipped : {share, bin}) {
      WriteBytes(shipped / "Data/keyboard.data", "74\r\n");
      WriteBytes(shipped / "Data/mnin.data", "blocked\r\n");
      WriteBytes(shipped / "Skins/Default/skin.ini", "skin\r\n");
      fs::create_directories(shipped / "Playlists");
    }
  }

  fs::path Choose(const fs::path& executableFolder, bool writable) {
    return ChooseProgramFolder({executableFolder, share, user},
                               [writable](const fs::path&) { return writable; });
  }

  TempDir prefix, home;
  const fs::path bin = prefix / "bin";
  const fs::path share = prefix / "share/yarvo-player";
  const fs::path user = home / ".local/share/yarvo-player";
};

TEST_F(ProgramFolderChoice, AFolderWithTheShippedDataThatMayBeWrittenIsThePlayersOwn) {
  EXPECT_EQ(Choose(bin, true), bin);
  EXPECT_FALSE(fs::exists(user)) << "nothing is made in the user's home";
}

TEST_F(ProgramFolderChoice, OtherwiseTheUsersFolderIsMadeAndFilledAndThePrefixIsLeftAlone) {
  fs::remove_all(bin / "Data");  // an installed bin/ holds the executable only
  fs::remove_all(bin / "Skins");
  const auto installed = Tree(prefix.path());
  for (const auto& [executableFolder, writable] :
       {std::pair{bin, true}, {bin, false}, {share, false}}) {
    SCOPED_TRACE(executableFolder.string() + (writable ? " writable" : " read-only"));
    fs::remove_all(user);
    const fs::path chosen = Choose(executableFolder, writable);
    ASSERT_EQ(chosen, fs::canonical(user));
    EXPECT_EQ(Tree(user), Tree(share));
    EXPECT_TRUE(fs::is_directory(user / "Playlists")) << "empty folders come along";
    EXPECT_EQ(Tree(prefix.path()), installed);
  }
}

TEST_F(ProgramFolderChoice, AStartKeepsWhatTheUserHasAndAddsWhatIsMissing) {
  WriteBytes(user / "settings.ini", "the user's\r\n");
  WriteBytes(user / "Data/keyboard.data", "32\r\n");
  Choose(prefix / "elsewhere", false);
  EXPECT_EQ(ReadBytes(user / "settings.ini"), "the user's\r\n");
  EXPECT_EQ(ReadBytes(user / "Data/keyboard.data"), "32\r\n");
  EXPECT_EQ(ReadBytes(user / "Data/mnin.data"), "blocked\r\n");
  EXPECT_EQ(ReadBytes(user / "Skins/Default/skin.ini"), "skin\r\n");
}

TEST_F(ProgramFolderChoice, CopiesOfReadOnlyShippedFilesAreTheUsersToWrite) {
  // The saves leave alone a file nobody may write: a copy that kept the
  // installation's modes would never take the user's shortcuts.
  fs::permissions(share / "Data/keyboard.data", fs::perms::owner_read | fs::perms::group_read);
  Choose(bin / "missing", false);
  const fs::perms copied = fs::status(user / "Data/keyboard.data").permissions();
  EXPECT_NE(copied & fs::perms::owner_write, fs::perms::none);
}

TEST_F(ProgramFolderChoice, WithoutAHomeTheExecutablesFolderStays) {
  EXPECT_EQ(ChooseProgramFolder({bin, share, {}}, [](const fs::path&) { return false; }), bin);
}

// Asked as the unprivileged user "nobody" when the tests run as root, who
// may write in any folder.
bool MayWriteAsAUser(const fs::path& folder) {
  if (::geteuid() != 0) return MayWrite(folder);
  const pid_t child = ::fork();
  if (child == 0) {
    const bool ok = ::setgid(65534) == 0 && ::setuid(65534) == 0;
    ::_exit(ok ? (MayWrite(folder) ? 1 : 0) : 2);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_NE(WEXITSTATUS(status), 2) << "could not become nobody";
  return WEXITSTATUS(status) == 1;
}

TEST(MayWrite, TellsAFolderThatRefusesNewFiles) {
  TempDir folder;
  fs::create_directories(folder / "open");
  fs::create_directories(folder / "closed");
  fs::permissions(folder.path(), fs::perms::owner_all | fs::perms::others_exec);
  fs::permissions(folder / "open", fs::perms::all);
  fs::permissions(folder / "closed", fs::perms::owner_all | fs::perms::others_read |
                                         fs::perms::others_exec | fs::perms::group_read |
                                         fs::perms::group_exec);
  if (::geteuid() != 0)
    fs::permissions(folder / "closed", fs::perms::owner_write, fs::perm_options::remove);
  EXPECT_TRUE(MayWriteAsAUser(folder / "open"));
  EXPECT_FALSE(MayWriteAsAUser(folder / "closed"));
  EXPECT_FALSE(MayWriteAsAUser(folder / "missing"));
}

TEST(InstanceLocks, InstancesOfOneProgramFolderSeeEachOtherAndOthersDoNot) {
  TempDir runtime;
  const char* saved = std::getenv("XDG_RUNTIME_DIR");
  const std::string restore = saved ? saved : "";
  setenv("XDG_RUNTIME_DIR", runtime.path().c_str(), 1);
  {
    auto first = std::make_unique<InstanceLock>(InstanceLock::LockFileOf("/home/ana/yarvo"));
    EXPECT_FALSE(first->AnotherInstanceRunning());
    EXPECT_TRUE(InstanceLock(InstanceLock::LockFileOf("/home/ana/yarvo")).AnotherInstanceRunning());
    EXPECT_FALSE(InstanceLock(InstanceLock::LockFileOf("/opt/yarvo/bin")).AnotherInstanceRunning());
    first.reset();
    EXPECT_FALSE(InstanceLock(InstanceLock::LockFileOf("/home/ana/yarvo")).AnotherInstanceRunning())
        << "the lock goes with its instance";
  }
  if (saved) {
    setenv("XDG_RUNTIME_DIR", restore.c_str(), 1);
  } else {
    unsetenv("XDG_RUNTIME_DIR");
  }
}

}  // namespace
}  // namespace yarvo
