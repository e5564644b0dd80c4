// The player installed with `cmake --install` to a prefix of the test's own:
// what the desktop finds there, and a user's start of it, which keeps the
// user's files in the user's data folder and writes nothing under the prefix.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "DesktopSession.h"
#include "core/form/StringList.h"
#include "playlist/DataClass.h"
#include "support/ProgramFixture.h"

namespace yarvo {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using namespace test;

// Every entry under `folder` with its size and time of change: what a
// write anywhere under it would alter.
std::map<std::string, std::string> Snapshot(const fs::path& folder) {
  std::map<std::string, std::string> entries;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const auto changed = entry.last_write_time().time_since_epoch().count();
    entries[fs::relative(entry.path(), folder)] =
        std::to_string(entry.is_regular_file() ? entry.file_size() : 0) + " " +
        std::to_string(changed);
  }
  return entries;
}

void SetWritable(const fs::path& folder, bool writable) {
  const auto option = writable ? fs::perm_options::add : fs::perm_options::remove;
  const auto write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  fs::permissions(folder, write, option);
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    fs::permissions(entry.path(), write, option | fs::perm_options::nofollow);
}

// Width and height from a PNG file's header.
std::pair<int, int> PngSize(const fs::path& file) {
  const std::string bytes = ReadBytes(file).substr(0, 24);
  if (bytes.size() < 24 || bytes.substr(1, 3) != "PNG") return {0, 0};
  auto number = [&](std::size_t at) {
    int value = 0;
    for (std::size_t i = at; i < at + 4; ++i)
      value = value * 256 + static_cast<unsigned char>(bytes[i]);
    return value;
  };
  return {number(16), number(20)};
}

std::vector<std::string> Lines(const fs::path& file) {
  StringList list;
  IncarcaData(file, list);
  return list.Items();
}

class Installed : public ::testing::Test {
 protected:
  void SetUp() override {
    const std::string install = std::string(YARVO_CMAKE) + " --install " + Quoted(YARVO_BUILD_DIR) +
                                " --prefix " + Quoted(prefix.string()) + " > " +
                                Quoted((root / "install.log").string()) + " 2>&1";
    ASSERT_EQ(std::system(install.c_str()), 0) << ReadBytes(root / "install.log");
  }
  void TearDown() override {
    if (fs::exists(prefix)) SetWritable(prefix, true);
  }

  // Starts the installed player as a user does from a menu: with a home and
  // nothing else (but for the sanitizers' options of this build), and
  // closes it.
  void StartAndClose() {
    std::vector<std::string> env{"HOME=" + home.string()};
    for (const char* name : {"LSAN_OPTIONS", "UBSAN_OPTIONS", "ASAN_OPTIONS"}) {
      if (const char* value = std::getenv(name)) env.push_back(std::string(name) + "=" + value);
    }
    PlayerRun player({(prefix / "bin/yarvo-player").string()}, env, (root / "errors.txt").string());
    ASSERT_TRUE(WaitUntil([&] {
      return fs::exists(user / "settings.ini") || fs::exists(user / "Skins");
    })) << ReadBytes(root / "errors.txt");
    player.Close();
    ASSERT_EQ(player.Wait(), 0) << ReadBytes(root / "errors.txt");
  }

  TempDir root;
  const fs::path prefix = root / "prefix";
  const fs::path home = root / "home";
  const fs::path user = home / ".local/share/yarvo-player";
  const std::string appId = YARVO_APP_ID;
};

TEST_F(Installed, TheDesktopFindsAnEntryAnAppStreamFileAndTheIcons) {
  const fs::path entry = prefix / "share/applications" / (appId + ".desktop");
  const fs::path metainfo = prefix / "share/metainfo" / (appId + ".metainfo.xml");
  EXPECT_EQ(Output("desktop-file-validate " + Quoted(entry.string()) + " 2>&1; echo $?"), "0");
  EXPECT_EQ(Output("appstreamcli validate --no-net " + Quoted(metainfo.string()) +
                   " > /dev/null 2>&1; echo $?"),
            "0")
      << Output("appstreamcli validate --no-net " + Quoted(metainfo.string()));

  const std::string text = ReadBytes(entry);
  for (const char* line :
       {"Name=Yarvo Player\n", "GenericName=Media Player\n", "Exec=yarvo-player %f\n",
        "Icon=yarvo-player\n", "Categories=AudioVideo;Audio;Player;\n"})
    EXPECT_NE(text.find(line), std::string::npos) << line;
  for (const char* type :
       {"audio/mpeg;", "audio/x-wav;", "audio/ogg;", "video/mp4;", "video/x-msvideo;"})
    EXPECT_NE(text.find(type), std::string::npos) << type;
  EXPECT_NE(ReadBytes(metainfo).find("<launchable type=\"desktop-id\">" + appId + ".desktop<"),
            std::string::npos);

  for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
    const std::string place = std::to_string(size) + "x" + std::to_string(size);
    EXPECT_EQ(PngSize(prefix / "share/icons/hicolor" / place / "apps/yarvo-player.png"),
              std::pair(size, size))
        << place;
  }
  EXPECT_TRUE(fs::is_regular_file(prefix / "bin/yarvo-player"));
  EXPECT_TRUE(fs::is_regular_file(prefix / "share/yarvo-player/Data/keyboard.data"));
  EXPECT_TRUE(fs::is_regular_file(prefix / "share/yarvo-player/Skins/Default/skin.ini"));
  EXPECT_FALSE(fs::exists(prefix / "share/yarvo-player/Data/.gitkeep"));
}

TEST_F(Installed, AUsersStartKeepsTheFilesInTheUsersFolderAndNothingUnderThePrefix) {
  SetWritable(prefix, false);
  const auto installed = Snapshot(prefix);
  StartAndClose();
  EXPECT_EQ(Snapshot(prefix), installed) << "nothing new or changed under the prefix";
  EXPECT_EQ(Lines(user / "settings.ini").size(), 72u);
  for (const char* file : {"Data/plst.data", "Data/top.data", "Data/playlist.data",
                           "Data/keyboard.data", "Data/mnin.data", "Skins/Default/skin.ini"})
    EXPECT_TRUE(fs::is_regular_file(user / file)) << file;

  // The user's settings and shortcuts survive the next start, and nothing
  // that shipped is copied over them.
  std::vector<std::string> settings = Lines(user / "settings.ini");
  ASSERT_EQ(settings[27], "0") << "the title in the task bar, off at a first start";
  settings[27] = "1";
  std::string rows;
  for (const auto& row : settings) rows += row + "\r\n";
  WriteBytes(user / "settings.ini", rows);
  auto keys = Lines(user / "Data/keyboard.data");
  keys[0] = "75";
  rows.clear();
  for (const auto& row : keys) rows += row + "\r\n";
  WriteBytes(user / "Data/keyboard.data", rows);
  StartAndClose();
  EXPECT_EQ(Lines(user / "settings.ini")[27], "1");
  EXPECT_EQ(Lines(user / "Data/keyboard.data")[0], "75");
  EXPECT_EQ(Snapshot(prefix), installed);
}

}  // namespace
}  // namespace yarvo
