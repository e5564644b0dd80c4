// Parsing of the service's command lines.
#include <gtest/gtest.h>

#include <tuple>
#include <utility>

#include "engines/media/MciCommand.h"

namespace yarvo {
namespace {

// The path may hold blanks and keywords: it runs to the last " type ", or
// without one to the first other keyword.
TEST(MciCommandOpen, PathAndAliasWithOptionalParts) {
  for (const auto& [text, path, alias] : {
           std::tuple{"open /media/my type of music/a clip.avi type MPEGVideo Alias movie "
                      "parent 4711 Style 1073741824",
                      "/media/my type of music/a clip.avi", "movie"},
           {"OPEN /a.avi TYPE mpegvideo alias Film PARENT 0 style 5", "/a.avi", "Film"},
           {"open  type MPEGVideo Alias movie parent 0 Style 1073741824", "", "movie"},
           {"open /b c.avi alias clip", "/b c.avi", "clip"},
           {"open /b.avi", "/b.avi", "/b.avi"},  // without an alias the path names the media
       }) {
    const auto parsed = parseMciCommand(text);
    EXPECT_EQ(parsed.error, MciError::None) << text;
    EXPECT_EQ(parsed.command.path, path) << text;
    EXPECT_EQ(parsed.command.alias, alias) << text;
  }
  EXPECT_EQ(parseMciCommand("open /a type T Alias m parent 4711").command.parent, 4711U);
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

// Field values the real service cannot show: the order of play's bounds, the
// side of a volume, a window left of its parent, the long time-format name,
// the tray's direction and blanks of any kind.
TEST(MciCommandParse, FieldsInAnyOrderCaseAndSpacing) {
  const auto play = parseMciCommand("Play movie to 40 from 12").command;
  EXPECT_EQ(play.from, 12);
  EXPECT_EQ(play.to, 40);
  const auto volume = parseMciCommand("setaudio movie LEFT Volume to 500").command;
  EXPECT_EQ(volume.channel, MciChannel::Left);
  EXPECT_EQ(volume.volume, 500);
  EXPECT_EQ(parseMciCommand("put movie window at -1 1 640 480").command.rect.x, -1);
  EXPECT_EQ(parseMciCommand("set movie time format milliseconds").command.timeFormat,
            MciTimeFormat::Milliseconds);
  EXPECT_TRUE(parseMciCommand("Set CDAudio Door Open").command.doorOpen);
  const auto closed = parseMciCommand("Set CDAudio Door Closed");
  EXPECT_EQ(closed.error, MciError::None);
  EXPECT_FALSE(closed.command.doorOpen);
  const auto spaced = parseMciCommand("\tpause   movie ");
  EXPECT_EQ(spaced.error, MciError::None);
  EXPECT_EQ(spaced.command.alias, "movie");
}

}  // namespace
}  // namespace yarvo
