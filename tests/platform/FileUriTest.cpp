#include "platform/FileUri.h"

#include <gtest/gtest.h>

namespace yarvo {
namespace {

TEST(FileUri, EscapesDecodeToTheBytesOfTheName) {
  EXPECT_EQ(LocalPathOfUri("file:///music/My%20Song.mp3"), "/music/My Song.mp3");
  EXPECT_EQ(LocalPathOfUri("file:///m/%C3%A9t%C3%A9.mp3"), "/m/\xC3\xA9t\xC3\xA9.mp3");
  // Latin-1 bytes, not UTF-8: kept as they are on disk.
  EXPECT_EQ(LocalPathOfUri("file:///m/caf%E9%2a.mp3"), "/m/caf\xE9*.mp3");
  EXPECT_EQ(LocalPathOfUri("FILE://localhost/a%25b"), "/a%b");
}

TEST(FileUri, AnyPathMakesTheTripThroughItsAddress) {
  EXPECT_EQ(UriOfLocalPath("/music/My Song #1.mp3"), "file:///music/My%20Song%20%231.mp3");
  for (const char* path : {"/m/caf\xE9.mp3", "/a%b/c?d", "/\xC3\xA9/~x_y-z.ogg"})
    EXPECT_EQ(LocalPathOfUri(UriOfLocalPath(path)), path);
}

TEST(FileUri, WhatIsNotALocalFileIsRefused) {
  for (const char* uri : {"http://host/a.mp3", "file://server/a.mp3", "file:relative.mp3",
                          "file:///a%2", "file:///a%zz.mp3", "file:///a%00b", "/plain/path"})
    EXPECT_EQ(LocalPathOfUri(uri), std::nullopt) << uri;
}

TEST(FileUri, AListTakesEveryLineButComments) {
  EXPECT_EQ(LocalPathsOfUriList("# from a file manager\r\nfile:///a.mp3\r\nfile:///b%20c/\r\n"),
            (std::vector<std::string>{"/a.mp3", "/b c/"}));
  EXPECT_EQ(LocalPathsOfUriList("file:///a.mp3\nfile:///b.mp3"),
            (std::vector<std::string>{"/a.mp3", "/b.mp3"}));
  EXPECT_EQ(LocalPathsOfUriList("file:///a.mp3\r\nhttp://b/c.mp3\r\n"), std::nullopt);
  EXPECT_EQ(LocalPathsOfUriList("# nothing\r\n\r\n"), std::nullopt);
}

}  // namespace
}  // namespace yarvo
