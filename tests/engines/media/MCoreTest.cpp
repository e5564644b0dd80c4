// MCore against a stand-in service: the commands it builds and how it reads
// the answers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <span>
#include <string>
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
  const auto& media = test::MediaFiles::get();
  ASSERT_TRUE(media.ready());
  FakeMciService service;
  const std::string path = media.broken().string();
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
  while (folder.string().size() < 240) {
    folder /= "deeper-folder-name";
  }
  std::filesystem::create_directories(folder);
  const auto file = folder / "a-clip-with-a-long-name.avi";
  std::ofstream(file) << "x";
  ASSERT_GE(file.string().size(), 255U);
  MciOpen(0, "movie", file.string(), "MPEGVideo");
  EXPECT_THAT(service.sent, ElementsAre(kEmptyOpen, kEmptyOpen));
}

TEST(MCorePlay, UnknownLengthPlaysToMinusOne) {
  FakeMciService service;
  EXPECT_NE(MciPlay("movie", "", ""), "Success");
  EXPECT_EQ(service.sent.back(), "play movie from 0 to -1");
}

TEST(MCoreCommands, SeekPlayReportsTheSeekAlone) {
  FakeMciService service;
  service.answer("seek movie to 250", "");
  EXPECT_EQ(MciSeekPlay("movie", 250), "Success");
  EXPECT_THAT(service.sent, ElementsAre("seek movie to 250", "Play movie"));

  FakeMciService failing;
  failing.answer("Play movie", "");
  EXPECT_EQ(MciSeekPlay("movie", 250), mciErrorText(FakeMciService::kNotOpen));
}

TEST(MCoreVolume, BuildsTheCommandOrRefusesToSendOne) {
  struct Case {
    const char* channel;
    int volume;
    const char* command;  // nullptr: refused
  };
  for (const Case& c : {Case{"all", 101, nullptr}, Case{"all", -1, nullptr},
                        Case{"all", 100, "setaudio movie Volume to 1000"},
                        Case{"left", 50, "setaudio movie left Volume to 500"},
                        Case{"RIGHT", 7, "setaudio movie RIGHT Volume to 70"},
                        Case{"center", 30, "setaudio movie Volume to 300"}}) {
    SCOPED_TRACE(std::string(c.channel) + " " + std::to_string(c.volume));
    FakeMciService service;
    if (c.command == nullptr) {
      EXPECT_EQ(MciSetVolume("movie", c.channel, c.volume), "out of volume");
      EXPECT_THAT(service.sent, IsEmpty());
    } else {
      service.answer(c.command, "");
      EXPECT_EQ(MciSetVolume("movie", c.channel, c.volume), "Success");
      EXPECT_THAT(service.sent, ElementsAre(c.command));
    }
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

TEST(MCoreStatus, ModeLengthAndSpeedReadTheReplies) {
  FakeMciService service;
  EXPECT_EQ(MciStatusMode("movie"), "ERROR");
  EXPECT_EQ(MciLengthFrames("movie"), -1);
  EXPECT_EQ(MciLengthMs("movie"), -1);
  EXPECT_EQ(MciPosition("movie"), -1);
  EXPECT_EQ(MciSpeed("movie"), -1);
  service.answer("status movie mode", "paused");
  EXPECT_EQ(MciStatusMode("movie"), "paused");
  service.answer(kLength, "lots");
  EXPECT_EQ(MciLengthFrames("movie"), -1);
  for (const auto& [reply, expected] : {std::pair{"500", 50}, {"1005", 100}, {"1015", 102}}) {
    service.answer("status movie speed", reply);
    EXPECT_EQ(MciSpeed("movie"), expected) << reply << ": tenths, ties to even";
  }
}

TEST(MCoreStatus, MillisecondsComeFromTheMiddleCommandAndFramesStay) {
  FakeMciService service;
  service.answer(kMs, "");
  service.answer(kFrames, "");
  service.answer(kLength, "4000");
  EXPECT_EQ(MciLengthMs("movie"), 4000);
  EXPECT_THAT(service.sent, ElementsAre(kMs, kLength, kFrames));
}

TEST(MCorePercent, PositionOverLengthRoundedHalfToEven) {
  struct Case {
    const char* length;    // nullptr: the query fails
    const char* position;  // nullptr: the query fails
    int expected;
  };
  for (const Case& c :
       {Case{"500", "250", 50}, Case{"3", "1", 33}, Case{"200", "1", 0}, Case{"200", "3", 2},
        Case{nullptr, "10", -1}, Case{"500", nullptr, -1}, Case{"0", "0", -1}}) {
    FakeMciService service;
    service.answer(kFrames, "");
    if (c.length != nullptr) service.answer(kLength, c.length);
    if (c.position != nullptr) service.answer(kPosition, c.position);
    EXPECT_EQ(MciPercent("movie"), c.expected)
        << (c.length ? c.length : "fails") << " " << (c.position ? c.position : "fails");
  }
}

TEST(MCoreFramesPerSecond, FramesOverSecondsRounded) {
  struct Case {
    const char* frames;  // the length in each time format, nullptr: fails
    const char* ms;
    int expected;
  };
  for (const Case& c : {Case{"100", "4000", 25}, Case{"120", "4004", 30}, Case{nullptr, "4000", -1},
                        Case{"100", nullptr, -1}}) {
    // The same length query answers by the time format set last.
    bool inMs = false;
    setMciCommandHook([&](std::string_view command, std::span<char> reply) {
      std::string answer;
      if (command == kMs || command == kFrames) {
        inMs = command == kMs;
      } else if (const char* value = inMs ? c.ms : c.frames; value != nullptr) {
        answer = value;
      } else {
        return std::optional<std::uint32_t>(FakeMciService::kNotOpen);
      }
      if (!reply.empty()) std::copy_n(answer.c_str(), answer.size() + 1, reply.begin());
      return std::optional<std::uint32_t>(0);
    });
    const std::int32_t fps = MciFramesPerSecond("movie");
    setMciCommandHook({});
    EXPECT_EQ(fps, c.expected) << (c.frames ? c.frames : "fails") << " " << (c.ms ? c.ms : "fails");
  }
}

TEST(MCoreWhere, ThirdAndFourthNumbersOfTheReplyInAnyCase) {
  FakeMciService service;
  for (const char* dimension : {"cz", "x", "", "cx "}) {
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
