// Parsing of the service's command lines.
#include <gtest/gtest.h>

#include <utility>

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

TEST(MciCommandOpen, KeywordsInAnyCaseAndOptionalParts) {
  auto parsed = parseMciCommand("OPEN /a.avi TYPE mpegvideo alias Film PARENT 0 style 5");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_EQ(parsed.command.path, "/a.avi");
  EXPECT_EQ(parsed.command.alias, "Film");

  parsed = parseMciCommand("open  type MPEGVideo Alias movie parent 0 Style 1073741824");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_EQ(parsed.command.path, "");

  parsed = parseMciCommand("open /b c.avi alias clip");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_EQ(parsed.command.path, "/b c.avi");

  parsed = parseMciCommand("open /b.avi");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_EQ(parsed.command.alias, "/b.avi") << "without an alias the path names the media";
}

TEST(MciCommandParse, RefusedLines) {
  for (const auto& [text, error] : {
           std::pair{"   ", MciError::MissingCommand},
           {"rewind movie", MciError::UnrecognizedCommand},
           {"play", MciError::InvalidDeviceName},
           {"play movie from", MciError::MissingValue},
           {"play movie from -5", MciError::BadInteger},
           {"play movie backwards", MciError::UnrecognizedKeyword},
           {"seek movie", MciError::MissingValue},
           {"seek movie to 12abc", MciError::BadInteger},
           {"setaudio movie volume to 1001", MciError::OutOfRange},
           {"setaudio movie center volume to 10", MciError::UnrecognizedKeyword},
           {"put movie window at 1 2 3", MciError::MissingValue},
           {"put movie window at 1 2 -3 4", MciError::OutOfRange},
           {"put movie window at 1 2 3 99999999999", MciError::BadInteger},
           {"status movie", MciError::MissingValue},
           {"status movie volume", MciError::UnrecognizedKeyword},
           {"set movie time format smpte", MciError::UnrecognizedKeyword},
           {"where movie source", MciError::UnrecognizedKeyword},
           {"open /a.avi type MPEGVideo Alias movie parent -1", MciError::BadInteger},
           {"close movie now", MciError::UnrecognizedKeyword},
       }) {
    EXPECT_EQ(parseMciCommand(text).error, error) << "'" << text << "'";
  }
}

TEST(MciCommandParse, VerbsAndTheirFieldsInAnyCase) {
  auto parsed = parseMciCommand("Play movie to 40 from 12");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_EQ(parsed.command.from, 12);
  EXPECT_EQ(parsed.command.to, 40);

  parsed = parseMciCommand("play movie");
  ASSERT_EQ(parsed.error, MciError::None);
  EXPECT_FALSE(parsed.command.from);
  EXPECT_FALSE(parsed.command.to);

  parsed = parseMciCommand("setaudio movie LEFT Volume to 500");
  ASSERT_EQ(parsed.error, MciError::None);
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
  EXPECT_EQ(parsed.command.timeFormat, MciTimeFormat::Milliseconds);
  EXPECT_TRUE(parseMciCommand("Set CDAudio Door Open").command.doorOpen);
  EXPECT_FALSE(parseMciCommand("Set CDAudio Door Closed").command.doorOpen);
  EXPECT_EQ(parseMciCommand("Close All").command.verb, MciVerb::CloseAll);
  EXPECT_EQ(parseMciCommand("\tpause   movie ").command.verb, MciVerb::Pause);
}

}  // namespace
}  // namespace yarvo
