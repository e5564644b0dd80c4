// The profile file behind the driver table, and MCore's driver operations.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <tuple>

#include "engines/media/MCore.h"
#include "platform/ProfileIni.h"
#include "support/TempDir.h"

namespace yarvo {
namespace {

class ProfileIniTest : public ::testing::Test {
 protected:
  void writeFile(const std::string& content) const {
    std::ofstream(file(), std::ios::binary) << content;
  }
  std::string readFile() const {
    std::stringstream text;
    text << std::ifstream(file(), std::ios::binary).rdbuf();
    return text.str();
  }
  std::filesystem::path file() const { return folder_ / "system.ini"; }

  test::TempDir folder_;
};

TEST_F(ProfileIniTest, ReadsLikeThePrivateProfileCall) {
  writeFile(
      "; drivers\r\n[boot]\r\nshell=explorer.exe\r\n\r\n[mci]\r\n  MPEGVideo = mciqtz.drv  \r\n"
      "sequencer=\"mciseq.drv\"\r\n;avivideo=old.drv\r\nempty=\r\nlong=" +
      std::string(400, 'v') + "\r\n[other]\r\navivideo=x\r\n");
  const ProfileIni ini(file());
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"mci", "mpegvideo", "mciqtz.drv"},
      {"MCI", "sequencer", "mciseq.drv"},
      {"MCI", "avivideo", "None"},
      {"MCI", "empty", ""},
      {"MCI", "shell", "None"},
      {"boot", "shell", "explorer.exe"},
      {"missing", "x", "None"}};
  for (const auto& [section, key, expected] : cases) {
    EXPECT_EQ(ini.read(section, key, "None"), expected) << section << "/" << key;
  }
  EXPECT_EQ(ini.read("MCI", "long", "None").size(), ProfileIni::kMaxValueLength);
}

TEST_F(ProfileIniTest, WriteReplacesAddsAndCreates) {
  writeFile("[boot]\nshell=a\n\n[MCI]\nMPEGVideo=old.drv\n\n[last]\nk=v\n");
  const ProfileIni ini(file());
  ASSERT_TRUE(ini.write("mci", "mpegvideo", "mciqtz.drv"));
  ASSERT_TRUE(ini.write("MCI", "sequencer", "mciseq.drv"));
  ASSERT_TRUE(ini.write("fresh", "key", "value"));
  EXPECT_EQ(readFile(),
            "[boot]\nshell=a\n\n[MCI]\nmpegvideo=mciqtz.drv\nsequencer=mciseq.drv\n\n[last]\nk=v\n"
            "\n[fresh]\nkey=value\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.path()),
                          std::filesystem::directory_iterator()),
            1);  // no temporary file is left beside it
}

TEST_F(ProfileIniTest, WriteMakesTheFolderUnlessAFileIsInTheWay) {
  const ProfileIni deep(folder_.path() / "a" / "b" / "system.ini");
  ASSERT_TRUE(deep.write("MCI", "avivideo", "mciavi.drv"));
  EXPECT_EQ(deep.read("MCI", "AVIVideo", "None"), "mciavi.drv");
  writeFile("not a folder");
  const ProfileIni ini(file() / "system.ini");  // its folder is a file
  EXPECT_FALSE(ini.write("MCI", "MPEGVideo", "x"));
  EXPECT_EQ(readFile(), "not a folder");
  EXPECT_FALSE(ProfileIni(file()).write("", "key", "x"));
}

TEST_F(ProfileIniTest, MCoreDriverTableRoundTrip) {
  setMciDriverFile(file());
  EXPECT_EQ(MciReadDriver("MPEGVideo"), "None") << "no file yet";
  MciWriteDriver("MPEGVideo", "mciqtz.drv");
  MciWriteDriver("sequencer", "mciseq.drv");
  EXPECT_EQ(MciReadDriver("sequencer"), "mciseq.drv");
  EXPECT_EQ(readFile(), "[MCI]\nMPEGVideo=mciqtz.drv\nsequencer=mciseq.drv\n");
  setMciDriverFile({});
}

TEST_F(ProfileIniTest, DefaultPlaceFollowsXdgConfigHome) {
  const char* saved = std::getenv("XDG_CONFIG_HOME");
  const std::string previous = saved != nullptr ? saved : "";
  ::setenv("XDG_CONFIG_HOME", folder_.path().c_str(), 1);
  EXPECT_EQ(systemIniPath(), folder_.path() / "yarvo-player" / "system.ini");
  ::setenv("XDG_CONFIG_HOME", "relative/config", 1);
  const auto fromRelative = systemIniPath();
  ::unsetenv("XDG_CONFIG_HOME");
  EXPECT_EQ(fromRelative, systemIniPath()) << "a relative setting is ignored";
  if (const char* home = std::getenv("HOME"); home != nullptr) {
    EXPECT_EQ(systemIniPath(),
              std::filesystem::path(home) / ".config" / "yarvo-player" / "system.ini");
  }
  if (saved != nullptr) ::setenv("XDG_CONFIG_HOME", previous.c_str(), 1);
}

}  // namespace
}  // namespace yarvo
