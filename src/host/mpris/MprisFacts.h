#pragma once
// What the desktop's media controls are told of the player: the properties
// of the MPRIS2 Player interface that change, as plain values. Two readings
// are compared to tell the desktop what changed; the position is not among
// them, as it changes all the time and is read when asked.

#include <cmath>
#include <cstdint>
#include <string>

namespace yarvo {

// The protocol counts time in microseconds; the engines in seconds.
inline std::int64_t Microseconds(double seconds) { return std::llround(seconds * 1e6); }
inline double Seconds(std::int64_t microseconds) { return static_cast<double>(microseconds) / 1e6; }

// The song the player plays, or played last.
struct MprisTrack {
  // The D-Bus object path that names this song while it is the player's
  // song; "" when there is none (and the rest is empty too).
  std::string id;
  std::string path;
  // The tag's fields; a song without a title in its tag takes the title of
  // its file name. Artist and album are "" when the tag has none.
  std::string title;
  std::string artist;
  std::string album;
  // Microseconds; 0 while unknown.
  std::int64_t length = 0;

  bool operator==(const MprisTrack&) const = default;
};

struct MprisFacts {
  // "Playing", "Paused" or "Stopped".
  std::string playbackStatus = "Stopped";
  MprisTrack track;
  double volume = 0;      // 0 to 1
  bool shuffle = false;   // the random order mode
  bool canPlay = false;   // a song to resume or start again, or rows to start
  bool canPause = false;  // a song is loaded, playing or paused
  bool canSeek = false;   // ... and its length is known
  bool canGoNext = false;
  bool canGoPrevious = false;

  bool operator==(const MprisFacts&) const = default;
};

}  // namespace yarvo
