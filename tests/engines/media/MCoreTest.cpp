// MCore against a stand-in service: the commands it builds and how it reads
// the answers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <ostream>
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

class FixedGeometry : public WindowGeometry {
 public:
  WindowRect rectOf(NativeWindow window) const override {
    asked.push_back(window);
    return {100, 50, 740, 530};
  }
  mutable std::vector<NativeWindow> asked;
};

TEST(MCoreOpen, MissingFileReachesTheServiceAsAnEmptyName) {
  FakeMciService service;
  const std::string result = MciOpen(0, "movie", "/no/such/file.avi", "MPEGVideo");
  EXPECT_THAT(service.sent,
              ElementsAre("open  type MPEGVideo Alias movie parent 0 Style 1073741824"));
  EXPECT_EQ(result, mciErrorText(FakeMciService::kNotOpen));
}

TEST(MCoreOpen, ExistingPathIsSentUnquotedWithItsBlanks) {
  const auto& media = test::MediaFiles::get();
  ASSERT_TRUE(media.ready());
  FakeMciService service;
  const std::string path = media.broken().string();
  const std::string command =
      "open " + path + " type MPEGVideo Alias movie parent 77 Style 1073741824";
  service.answer(command, "");
  EXPECT_EQ(MciOpen(77, "movie", path, "MPEGVideo"), "Success");
  EXPECT_THAT(service.sent, ElementsAre(command));
}

TEST(MCoreOpen, CommandIsCutToItsBuffer) {
  const auto& media = test::MediaFiles::get();
  ASSERT_TRUE(media.ready());
  FakeMciService service;
  const std::string longAlias(300, 'a');
  MciOpen(0, longAlias, media.broken().string(), "MPEGVideo");
  ASSERT_EQ(service.sent.size(), 1U);
  EXPECT_EQ(service.sent[0].size(), 255U);
  EXPECT_TRUE(service.sent[0].starts_with("open " + media.broken().string() + " type "));
}

TEST(MCoreOpen, PathThatDoesNotFitTheShortPathBufferBecomesEmpty) {
  FakeMciService service;
  // A file that exists under a path of 255 characters or more.
  std::filesystem::path folder = test::MediaFiles::get().folder();
  while (folder.string().size() < 240) {
    folder /= "deeper-folder-name";
  }
  std::filesystem::create_directories(folder);
  const auto file = folder / "a-clip-with-a-long-name.avi";
  std::ofstream(file) << "x";
  ASSERT_GE(file.string().size(), 255U);
  MciOpen(0, "movie", file.string(), "MPEGVideo");
  EXPECT_THAT(service.sent,
              ElementsAre("open  type MPEGVideo Alias movie parent 0 Style 1073741824"));
}

TEST(MCorePlay, EmptyFromAndToPlayTheWholeMediaInFrames) {
  FakeMciService service;
  service.answer(kFrames, "");
  service.answer(kLength, "500");
  service.answer("play movie from 0 to 500", "");
  EXPECT_EQ(MciPlay("movie", "", ""), "Success");
  EXPECT_THAT(service.sent, ElementsAre(kFrames, kLength, "play movie from 0 to 500"));
}

TEST(MCorePlay, GivenBoundsAreSentAsWritten) {
  FakeMciService service;
  MciPlay("movie", "12", "40");
  EXPECT_THAT(service.sent, ElementsAre("play movie from 12 to 40"));
}

TEST(MCorePlay, UnknownLengthPlaysToMinusOne) {
  FakeMciService service;
  const std::string result = MciPlay("movie", "", "");
  EXPECT_EQ(service.sent.back(), "play movie from 0 to -1");
  EXPECT_NE(result, "Success");
}

TEST(MCoreCommands, SimpleCommandsAndTheirResults) {
  FakeMciService service;
  service.answer("Close movie", "");
  service.answer("Pause movie", "");
  service.answer("Close All", "");
  EXPECT_EQ(MciClose("movie"), "Success");
  EXPECT_EQ(MciPause("movie"), "Success");
  EXPECT_EQ(MciStop("movie"), mciErrorText(FakeMciService::kNotOpen));
  EXPECT_EQ(MciResume("movie"), mciErrorText(FakeMciService::kNotOpen));
  EXPECT_EQ(MciCloseAll(), "Success");
  EXPECT_THAT(service.sent,
              ElementsAre("Close movie", "Pause movie", "Stop movie", "Resume movie", "Close All"));
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

struct VolumeCase {
  const char* channel;
  int volume;
  const char* command;  // nullptr: nothing is sent
};

void PrintTo(const VolumeCase& c, std::ostream* os) { *os << c.channel << " " << c.volume; }

class MCoreVolume : public ::testing::TestWithParam<VolumeCase> {};

TEST_P(MCoreVolume, BuildsTheCommandOrRefuses) {
  const auto& c = GetParam();
  FakeMciService service;
  if (c.command != nullptr) {
    service.answer(c.command, "");
  }
  const std::string result = MciSetVolume("movie", c.channel, c.volume);
  if (c.command == nullptr) {
    EXPECT_EQ(result, "out of volume");
    EXPECT_THAT(service.sent, IsEmpty());
  } else {
    EXPECT_EQ(result, "Success");
    EXPECT_THAT(service.sent, ElementsAre(c.command));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, MCoreVolume,
    ::testing::Values(VolumeCase{"all", 101, nullptr}, VolumeCase{"all", -1, nullptr},
                      VolumeCase{"left", 1000, nullptr},
                      VolumeCase{"all", 100, "setaudio movie Volume to 1000"},
                      VolumeCase{"all", 0, "setaudio movie Volume to 0"},
                      VolumeCase{"left", 50, "setaudio movie left Volume to 500"},
                      VolumeCase{"RIGHT", 7, "setaudio movie RIGHT Volume to 70"},
                      VolumeCase{"Left", 100, "setaudio movie Left Volume to 1000"},
                      VolumeCase{"center", 30, "setaudio movie Volume to 300"},
                      VolumeCase{"", 30, "setaudio movie Volume to 300"}));

TEST(MCorePutWindow, GivenSizeIsSentAsIs) {
  FixedGeometry geometry;
  setMciWindowGeometry(&geometry);
  FakeMciService service;
  MciPutWindow(9, "movie", 1, 1, 320, 240);
  setMciWindowGeometry(nullptr);
  EXPECT_THAT(service.sent, ElementsAre("put movie window at 1 1 320 240"));
  EXPECT_THAT(geometry.asked, IsEmpty());
}

TEST(MCorePutWindow, ZeroWidthOrHeightTakesTheWindowSize) {
  FixedGeometry geometry;
  setMciWindowGeometry(&geometry);
  FakeMciService service;
  MciPutWindow(9, "movie", 1, 1, 0, 240);
  MciPutWindow(9, "movie", 1, 1, 320, 0);
  setMciWindowGeometry(nullptr);
  EXPECT_THAT(service.sent,
              ElementsAre("put movie window at 1 1 640 480", "put movie window at 1 1 640 480"));
  EXPECT_THAT(geometry.asked, ElementsAre(9U, 9U));
}

TEST(MCoreStatusMode, ReplyOrError) {
  FakeMciService service;
  service.answer("status movie mode", "paused");
  EXPECT_EQ(MciStatusMode("movie"), "paused");
  EXPECT_EQ(MciStatusMode("film"), "ERROR");
}

TEST(MCoreLength, MillisecondsComeFromTheMiddleCommandAndFramesStay) {
  FakeMciService service;
  service.answer(kMs, "");
  service.answer(kFrames, "");
  service.answer(kLength, "4000");
  EXPECT_EQ(MciLengthMs("movie"), 4000);
  EXPECT_THAT(service.sent, ElementsAre(kMs, kLength, kFrames));
}

TEST(MCoreLength, FailedQueriesGiveMinusOne) {
  FakeMciService service;
  EXPECT_EQ(MciLengthFrames("movie"), -1);
  EXPECT_EQ(MciLengthMs("movie"), -1);
  EXPECT_EQ(MciPosition("movie"), -1);
  EXPECT_EQ(MciSpeed("movie"), -1);
  service.answer(kLength, "lots");
  EXPECT_EQ(MciLengthFrames("movie"), -1);
}

struct RatioCase {
  const char* length;    // reply to the length query in frames, nullptr: fails
  const char* position;  // reply to the position query, or the length in ms
  int expected;
};

void PrintTo(const RatioCase& c, std::ostream* os) {
  *os << (c.length != nullptr ? c.length : "fails") << " "
      << (c.position != nullptr ? c.position : "fails");
}

class MCorePercent : public ::testing::TestWithParam<RatioCase> {};

TEST_P(MCorePercent, PositionOverLengthRounded) {
  const auto& c = GetParam();
  FakeMciService service;
  service.answer(kFrames, "");
  if (c.length != nullptr) {
    service.answer(kLength, c.length);
  }
  if (c.position != nullptr) {
    service.answer(kPosition, c.position);
  }
  EXPECT_EQ(MciPercent("movie"), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Cases, MCorePercent,
                         ::testing::Values(RatioCase{"500", "250", 50}, RatioCase{"500", "0", 0},
                                           RatioCase{"500", "500", 100}, RatioCase{"3", "1", 33},
                                           RatioCase{"3", "2", 67},
                                           RatioCase{"200", "1", 0},  // 0.5 rounds to even
                                           RatioCase{"200", "3", 2},  // 1.5 rounds to even
                                           RatioCase{nullptr, "10", -1},
                                           RatioCase{"500", nullptr, -1}, RatioCase{"0", "0", -1}));

class MCoreFramesPerSecond : public ::testing::TestWithParam<RatioCase> {};

TEST_P(MCoreFramesPerSecond, FramesOverSecondsRounded) {
  // Here `length` is the length in frames and `position` the length in ms.
  const auto& c = GetParam();
  bool inMs = false;
  setMciCommandHook([&](std::string_view command, std::span<char> reply) {
    const std::string text(command);
    std::string answer;
    if (text == kMs || text == kFrames) {
      inMs = text == kMs;
    } else {
      const char* value = inMs ? c.position : c.length;
      if (value == nullptr) {
        return std::optional<std::uint32_t>(FakeMciService::kNotOpen);
      }
      answer = value;
    }
    if (!reply.empty()) {
      std::copy_n(answer.c_str(), answer.size() + 1, reply.begin());
    }
    return std::optional<std::uint32_t>(0);
  });
  const std::int32_t fps = MciFramesPerSecond("movie");
  setMciCommandHook({});
  EXPECT_EQ(fps, c.expected);
}

INSTANTIATE_TEST_SUITE_P(Cases, MCoreFramesPerSecond,
                         ::testing::Values(RatioCase{"100", "4000", 25},
                                           RatioCase{"3000", "3000", 1000},
                                           RatioCase{"120", "4004", 30},  // 29.97
                                           RatioCase{"12", "500", 24},
                                           RatioCase{nullptr, "4000", -1},
                                           RatioCase{"100", nullptr, -1}, RatioCase{"0", "0", -1}));

TEST(MCoreSpeed, ReplyOverTenRounded) {
  FakeMciService service;
  for (const auto& [reply, expected] : std::vector<std::pair<const char*, int>>{
           {"1000", 100}, {"500", 50}, {"2000", 200}, {"1005", 100}, {"1015", 102}}) {
    SCOPED_TRACE(reply);
    service.answer("status movie speed", reply);
    EXPECT_EQ(MciSpeed("movie"), expected);
  }
}

TEST(MCoreWhere, ThirdAndFourthNumbersOfTheReply) {
  FakeMciService service;
  service.answer("Where movie destination", "1 2 320 240");
  EXPECT_EQ(MciWhereDestination("movie", "cx"), 320);
  EXPECT_EQ(MciWhereDestination("movie", "cy"), 240);
  EXPECT_EQ(MciWhereDestination("movie", "CX"), 320);
  EXPECT_EQ(MciWhereDestination("movie", "Cy"), 240);
  EXPECT_EQ(service.sent.size(), 4U);
}

TEST(MCoreWhere, OtherDimensionsSendNothing) {
  FakeMciService service;
  service.answer("Where movie destination", "1 2 320 240");
  for (const char* dimension : {"cz", "x", "", "cx "}) {
    SCOPED_TRACE(dimension);
    EXPECT_EQ(MciWhereDestination("movie", dimension), -1);
  }
  EXPECT_THAT(service.sent, IsEmpty());
}

TEST(MCoreWhere, ShortOrFailedRepliesGiveMinusOne) {
  FakeMciService service;
  EXPECT_EQ(MciWhereDestination("movie", "cx"), -1);
  service.answer("Where movie destination", "1 2 320");
  EXPECT_EQ(MciWhereDestination("movie", "cx"), 320);
  EXPECT_EQ(MciWhereDestination("movie", "cy"), -1);
}

}  // namespace
}  // namespace yarvo
