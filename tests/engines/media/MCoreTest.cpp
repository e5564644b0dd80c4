// MCore against a stand-in service: the commands it builds and how it reads
// the answers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <span>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "MediaFiles.h"
#include "engines/media/MCore.h"
#include "engines/media/MciError.h"
#include "support/FakeMciService.h"

namespace yarvo {
namespace {

using test::FakeMciService;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kLength = "status movie length";
constexpr const char* kPosition = "status movie position";
constexpr const char* kFrames = "set movie time format frames";
constexpr const char* kMs = "set movie time format ms";
constexpr const char* kEmptyOpen = "open  type MPEGVideo Alias movie parent 0 Style 1073741824";

class FixedGeometry : public WindowGeometry {
 public:
  WindowRect rectOf(NativeWindow window) const override {
    asked.push_back(window);
    return {100, 50, 740, 530};
  }
  mutable std::vector<NativeWindow> asked;
};

TEST(MCoreOpen, ExistingPathIsSentUnquotedWithItsBlanksAndCutToTheBuffer) {
  FakeMciService service;
  const std::string path = test::MediaFiles::get().broken().string();
  const std::string command =
      "open " + path + " type MPEGVideo Alias movie parent 77 Style 1073741824";
  service.answer(command, "");
  EXPECT_EQ(MciOpen(77, "movie", path, "MPEGVideo"), "Success");
  MciOpen(0, std::string(300, 'a'), path, "MPEGVideo");
  ASSERT_EQ(service.sent.size(), 2U);
  EXPECT_EQ(service.sent[0], command);
  EXPECT_EQ(service.sent[1].size(), 255U);
  EXPECT_TRUE(service.sent[1].starts_with("open " + path + " type "));
}

TEST(MCoreOpen, MissingFileOrPathBeyondTheShortPathBufferReachesTheServiceEmpty) {
  FakeMciService service;
  EXPECT_EQ(MciOpen(0, "movie", "/no/such/file.avi", "MPEGVideo"),
            mciErrorText(FakeMciService::kNotOpen));
  std::filesystem::path folder = test::MediaFiles::get().folder();
  while (folder.string().size() < 240) folder /= "deeper-folder-name";
  std::filesystem::create_directories(folder);
  const auto file = folder / "a-clip-with-a-long-name.avi";
  std::ofstream(file) << "x";
  ASSERT_GE(file.string().size(), 255U);
  MciOpen(0, "movie", file.string(), "MPEGVideo");
  EXPECT_THAT(service.sent, ElementsAre(kEmptyOpen, kEmptyOpen));
}

TEST(MCorePlay, UnknownLengthPlaysToMinusOneAndSeekPlayReportsTheSeekAlone) {
  FakeMciService service;
  EXPECT_NE(MciPlay("movie", "", ""), "Success");
  EXPECT_EQ(service.sent.back(), "play movie from 0 to -1");
  service.sent.clear();
  service.answer("seek movie to 250", "");
  EXPECT_EQ(MciSeekPlay("movie", 250), "Success");
  EXPECT_THAT(service.sent, ElementsAre("seek movie to 250", "Play movie"));

  FakeMciService failing;
  failing.answer("Play movie", "");
  EXPECT_EQ(MciSeekPlay("movie", 250), mciErrorText(FakeMciService::kNotOpen));
}

TEST(MCoreVolume, BuildsTheCommandOrRefusesToSendOne) {
  // "": refused.
  const std::tuple<const char*, int, const char*> cases[] = {
      {"all", 101, ""},
      {"all", -1, ""},
      {"all", 100, "setaudio movie Volume to 1000"},
      {"left", 50, "setaudio movie left Volume to 500"},
      {"RIGHT", 7, "setaudio movie RIGHT Volume to 70"},
      {"center", 30, "setaudio movie Volume to 300"}};
  for (const auto& [channel, volume, command] : cases) {
    SCOPED_TRACE(std::string(channel) + " " + std::to_string(volume));
    FakeMciService service;
    const bool sends = *command != '\0';
    service.answer(command, "");
    EXPECT_EQ(MciSetVolume("movie", channel, volume), sends ? "Success" : "out of volume");
    EXPECT_EQ(service.sent, sends ? std::vector<std::string>{command} : std::vector<std::string>{});
  }
}

TEST(MCorePutWindow, ZeroWidthOrHeightTakesTheWindowSize) {
  FixedGeometry geometry;
  setMciWindowGeometry(&geometry);
  FakeMciService service;
  MciPutWindow(9, "movie", 1, 1, 320, 240);
  MciPutWindow(9, "movie", 1, 1, 0, 240);
  MciPutWindow(9, "movie", 1, 1, 320, 0);
  setMciWindowGeometry(nullptr);
  EXPECT_THAT(service.sent,
              ElementsAre("put movie window at 1 1 320 240", "put movie window at 1 1 640 480",
                          "put movie window at 1 1 640 480"));
  EXPECT_THAT(geometry.asked, ElementsAre(9U, 9U));
}

TEST(MCoreStatus, RepliesReadAsWordsOrNumbersAndFailuresAsMinusOne) {
  FakeMciService service;
  EXPECT_EQ(MciStatusMode("movie"), "ERROR");
  EXPECT_EQ(MciLengthFrames("movie"), -1);
  EXPECT_EQ(MciSpeed("movie"), -1);
  service.answer("status movie mode", "paused");
  EXPECT_EQ(MciStatusMode("movie"), "paused");
  service.answer(kLength, "lots");
  EXPECT_EQ(MciLengthFrames("movie"), -1);
  for (const auto& [reply, expected] : {std::pair{"1005", 100}, {"1015", 102}}) {
    service.answer("status movie speed", reply);
    EXPECT_EQ(MciSpeed("movie"), expected) << reply << ": tenths, ties to even";
  }
  // Milliseconds come from the middle command, and frames stay set after it.
  service.sent.clear();
  service.answer(kMs, "");
  service.answer(kFrames, "");
  service.answer(kLength, "4000");
  EXPECT_EQ(MciLengthMs("movie"), 4000);
  EXPECT_THAT(service.sent, ElementsAre(kMs, kLength, kFrames));
}

TEST(MCorePercent, PositionOverLengthRoundedHalfToEven) {
  // "": the query fails.
  const std::tuple<const char*, const char*, int> cases[] = {{"3", "1", 33},  {"200", "1", 0},
                                                             {"200", "3", 2}, {"", "10", -1},
                                                             {"500", "", -1}, {"0", "0", -1}};
  for (const auto& [length, position, expected] : cases) {
    FakeMciService service;
    service.answer(kFrames, "");
    if (*length != '\0') service.answer(kLength, length);
    if (*position != '\0') service.answer(kPosition, position);
    EXPECT_EQ(MciPercent("movie"), expected) << length << " / " << position;
  }
}

TEST(MCoreFramesPerSecond, FramesOverSecondsRounded) {
  // The length query answers in the time format set last; "": it fails.
  const std::tuple<const char*, const char*, int> cases[] = {
      {"100", "4000", 25}, {"120", "4004", 30}, {"", "4000", -1}, {"100", "", -1}};
  for (const auto& [frames, ms, expected] : cases) {
    std::string answer;
    setMciCommandHook(
        [&](std::string_view command, std::span<char> reply) -> std::optional<std::uint32_t> {
          if (command.starts_with("set ")) {
            answer = command == kMs ? ms : frames;
          } else if (answer.empty()) {
            return FakeMciService::kNotOpen;
          } else {
            reply[answer.copy(reply.data(), reply.size() - 1)] = '\0';
          }
          return 0;
        });
    EXPECT_EQ(MciFramesPerSecond("movie"), expected) << frames << " / " << ms;
  }
  setMciCommandHook({});
}

TEST(MCoreWhere, ThirdAndFourthNumbersOfTheReplyInAnyCase) {
  FakeMciService service;
  for (const char* dimension : {"cz", "cx "}) {
    EXPECT_EQ(MciWhereDestination("movie", dimension), -1) << dimension;
  }
  EXPECT_THAT(service.sent, IsEmpty()) << "other dimensions send nothing";
  EXPECT_EQ(MciWhereDestination("movie", "cx"), -1);
  service.answer("Where movie destination", "1 2 320 240");
  EXPECT_EQ(MciWhereDestination("movie", "CX"), 320);
  EXPECT_EQ(MciWhereDestination("movie", "cy"), 240);
  service.answer("Where movie destination", "1 2 320");
  EXPECT_EQ(MciWhereDestination("movie", "Cx"), 320);
  EXPECT_EQ(MciWhereDestination("movie", "cy"), -1);
}

}  // namespace
}  // namespace yarvo
