// What goes out in PropertiesChanged: only what changed, in the D-Bus types
// the protocol names (a client drops a track id that is no object path, or
// a length that is no 64-bit integer).

#include "host/mpris/MprisPlayer.h"

#include <gtest/gtest.h>

#include <QDBusObjectPath>
#include <QStringList>

namespace yarvo {
namespace {

MprisFacts PlayingSong() {
  MprisFacts facts;
  facts.playbackStatus = "Playing";
  facts.track = {"/org/yarvo_player/track/3",
                 "/music/Tuning Fork/Concert A.mp3",
                 "Concert A",
                 "Tuning Fork",
                 "",
                 20'035'918};
  facts.volume = 0.5;
  facts.canPlay = facts.canPause = facts.canSeek = facts.canGoNext = true;
  return facts;
}

TEST(MprisPlayerChanges, NameOnlyWhatChangedWithItsNewValue) {
  const MprisFacts before = PlayingSong();
  EXPECT_TRUE(MprisPlayer::Changes(before, before).isEmpty());
  MprisFacts now = before;
  now.playbackStatus = "Paused";
  now.volume = 0.25;
  now.shuffle = true;
  const QVariantMap changes = MprisPlayer::Changes(before, now);
  EXPECT_EQ(changes.keys(), (QStringList{"PlaybackStatus", "Shuffle", "Volume"}));
  EXPECT_EQ(changes["PlaybackStatus"].toString(), "Paused");
  EXPECT_EQ(changes["Volume"].toDouble(), 0.25);
  EXPECT_EQ(changes["Shuffle"].toBool(), true);
}

TEST(MprisPlayerChanges, ASongsMetadataHasTheProtocolsTypes) {
  const QVariantMap changes = MprisPlayer::Changes(MprisFacts{}, PlayingSong());
  ASSERT_TRUE(changes.contains("Metadata"));
  const QVariantMap metadata = changes["Metadata"].toMap();
  EXPECT_EQ(metadata["mpris:trackid"].metaType(), QMetaType::fromType<QDBusObjectPath>());
  EXPECT_EQ(metadata["mpris:trackid"].value<QDBusObjectPath>().path(), "/org/yarvo_player/track/3");
  EXPECT_EQ(metadata["xesam:title"].toString(), "Concert A");
  EXPECT_EQ(metadata["xesam:artist"].metaType(), QMetaType::fromType<QStringList>());
  EXPECT_EQ(metadata["xesam:artist"].toStringList(), QStringList{"Tuning Fork"});
  EXPECT_FALSE(metadata.contains("xesam:album")) << "no album in the tag";
  EXPECT_EQ(metadata["mpris:length"].metaType(), QMetaType::fromType<qlonglong>());
  EXPECT_EQ(metadata["mpris:length"].toLongLong(), 20'035'918);
  EXPECT_EQ(metadata["xesam:url"].toString(), "file:///music/Tuning%20Fork/Concert%20A.mp3");
  for (const char* name : {"PlaybackStatus", "CanPlay", "CanPause", "CanSeek", "CanGoNext"})
    EXPECT_TRUE(changes.contains(name)) << name;
  EXPECT_FALSE(changes.contains("CanGoPrevious")) << "false before and after";
}

TEST(MprisPlayerChanges, NoSongIsAnEmptyMap) {
  const QVariantMap changes = MprisPlayer::Changes(PlayingSong(), MprisFacts{});
  ASSERT_TRUE(changes.contains("Metadata"));
  EXPECT_TRUE(changes["Metadata"].toMap().isEmpty());
}

}  // namespace
}  // namespace yarvo
