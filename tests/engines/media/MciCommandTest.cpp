// Parsing of the service's command lines.
#include <gtest/gtest.h>

#include <ostream>

#include "engines/media/MciCommand.h"

namespace yarvo {
namespace {

TEST(MciCommandOpen, PathRunsToTheLastTypeKeyword) {
  const auto parsed = parseMciCommand(
      "open /media/my type of music/a clip.avi type MPEGVideo Alias movie parent 4711 Style "
      "1073741824");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_EQ(parsed.command.verb, MciVerb::Open);
  EXPECT_EQ(parsed.command.path, "/media/my type of music/a clip.avi");
  EXPECT_EQ(parsed.command.deviceType, "MPEGVideo");
  EXPECT_EQ(parsed.command.alias, "movie");
  EXPECT_EQ(parsed.command.parent, 4711U);
}

TEST(MciCommandOpen, KeywordsInAnyCase) {
  const auto parsed = parseMciCommand("OPEN /a.avi TYPE mpegvideo alias Film PARENT 0 style 5");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_EQ(parsed.command.path, "/a.avi");
  EXPECT_EQ(parsed.command.alias, "Film");
}

TEST(MciCommandOpen, EmptyPathAndNoType) {
  auto parsed = parseMciCommand("open  type MPEGVideo Alias movie parent 0 Style 1073741824");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_EQ(parsed.command.path, "");
  EXPECT_EQ(parsed.command.alias, "movie");

  parsed = parseMciCommand("open /b c.avi alias clip");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_EQ(parsed.command.path, "/b c.avi");
  EXPECT_EQ(parsed.command.alias, "clip");

  parsed = parseMciCommand("open /b.avi");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_EQ(parsed.command.alias, "/b.avi");
}

struct ErrorCase {
  const char* text;
  MciError error;
};

void PrintTo(const ErrorCase& c, std::ostream* os) { *os << "'" << c.text << "'"; }

class MciCommandErrors : public ::testing::TestWithParam<ErrorCase> {};

TEST_P(MciCommandErrors, Refused) {
  EXPECT_EQ(parseMciCommand(GetParam().text).error, GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, MciCommandErrors,
    ::testing::Values(
        ErrorCase{"", MciError::MissingCommand}, ErrorCase{"   ", MciError::MissingCommand},
        ErrorCase{"rewind movie", MciError::UnrecognizedCommand},
        ErrorCase{"play", MciError::InvalidDeviceName},
        ErrorCase{"play movie from", MciError::MissingValue},
        ErrorCase{"play movie from x", MciError::BadInteger},
        ErrorCase{"play movie from -5", MciError::BadInteger},
        ErrorCase{"play movie backwards", MciError::UnrecognizedKeyword},
        ErrorCase{"seek movie", MciError::MissingValue},
        ErrorCase{"seek movie to 12abc", MciError::BadInteger},
        ErrorCase{"setaudio movie volume to 1001", MciError::OutOfRange},
        ErrorCase{"setaudio movie volume to -1", MciError::OutOfRange},
        ErrorCase{"setaudio movie center volume to 10", MciError::UnrecognizedKeyword},
        ErrorCase{"put movie window at 1 2 3", MciError::MissingValue},
        ErrorCase{"put movie window at 1 2 -3 4", MciError::OutOfRange},
        ErrorCase{"put movie window at 1 2 3 99999999999", MciError::BadInteger},
        ErrorCase{"status movie", MciError::MissingValue},
        ErrorCase{"status movie volume", MciError::UnrecognizedKeyword},
        ErrorCase{"status movie mode now", MciError::UnrecognizedKeyword},
        ErrorCase{"set movie time format smpte", MciError::UnrecognizedKeyword},
        ErrorCase{"set cdaudio door ajar", MciError::UnrecognizedKeyword},
        ErrorCase{"where movie source", MciError::UnrecognizedKeyword},
        ErrorCase{"open /a.avi type MPEGVideo Alias movie parent -1", MciError::BadInteger},
        ErrorCase{"open /a.avi type MPEGVideo shareable", MciError::UnrecognizedKeyword},
        ErrorCase{"close movie now", MciError::UnrecognizedKeyword}));

TEST(MciCommandParse, PlayBoundsInAnyOrder) {
  auto parsed = parseMciCommand("Play movie to 40 from 12");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_EQ(parsed.command.from, 12);
  EXPECT_EQ(parsed.command.to, 40);

  parsed = parseMciCommand("play movie");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_FALSE(parsed.command.from);
  EXPECT_FALSE(parsed.command.to);
}

TEST(MciCommandParse, VerbsAndTheirFields) {
  auto parsed = parseMciCommand("setaudio movie LEFT Volume to 500");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_EQ(parsed.command.verb, MciVerb::SetAudio);
  EXPECT_EQ(parsed.command.channel, MciChannel::Left);
  EXPECT_EQ(parsed.command.volume, 500);

  parsed = parseMciCommand("put movie window at -1 1 640 480");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_EQ(parsed.command.rect.x, -1);
  EXPECT_EQ(parsed.command.rect.height, 480);

  parsed = parseMciCommand("STATUS Movie POSITION");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_EQ(parsed.command.item, MciStatusItem::Position);
  EXPECT_EQ(parsed.command.alias, "Movie");

  parsed = parseMciCommand("set movie time format milliseconds");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_EQ(parsed.command.verb, MciVerb::SetTimeFormat);
  EXPECT_EQ(parsed.command.timeFormat, MciTimeFormat::Milliseconds);

  parsed = parseMciCommand("Set CDAudio Door Open");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_EQ(parsed.command.verb, MciVerb::SetDoor);
  EXPECT_TRUE(parsed.command.doorOpen);

  parsed = parseMciCommand("Set CDAudio Door Closed");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_FALSE(parsed.command.doorOpen);

  EXPECT_EQ(parseMciCommand("Close All").command.verb, MciVerb::CloseAll);
  EXPECT_EQ(parseMciCommand("close movie").command.verb, MciVerb::Close);
  EXPECT_EQ(parseMciCommand("\tpause   movie ").command.verb, MciVerb::Pause);
}

}  // namespace
}  // namespace yarvo
