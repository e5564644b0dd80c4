#pragma once

#include <cstdint>
#include <optional>

namespace yarvo {

// The picture of a media: its size in pixels and its pictures a second.
struct MediaPicture {
  std::int32_t width = 0;
  std::int32_t height = 0;
  double framesPerSecond = 0;
};

// One open media as its back end plays it, in seconds. A back end starts
// paused at the start. It stops by itself at its end, or at the end that
// `setPlaybackEnd` gave, and stays there, with `atEnd` true, until a seek.
// Interface thread only; back ends play on threads of their own. No
// exception leaves a back end: failures are false results.
class PlayingMedia {
 public:
  virtual ~PlayingMedia() = default;

  // Nothing for a media of unknown length, such as a live stream.
  virtual std::optional<double> length() = 0;
  virtual double position() = 0;
  virtual bool atEnd() = 0;
  // Nothing for sound alone, and for a picture that cannot be shown here.
  virtual std::optional<MediaPicture> picture() const = 0;
  // 1 at the media's own pace.
  virtual double speed() = 0;

  virtual bool setPaused(bool paused) = 0;
  // Moves to `seconds` from the start and waits until playback has settled
  // there; a seek that does not settle in time lands late.
  virtual void seek(double seconds) = 0;
  // Where playback stops by itself; nothing lets it run to the real end.
  virtual bool setPlaybackEnd(std::optional<double> seconds) = 0;
  // 0 (silent) to 1 (full): both sides together, on the same curve for
  // every back end.
  virtual bool setVolume(double level) = 0;
  // Each side's share, 0 to 1, on top of the volume.
  virtual bool setChannelGains(double left, double right) = 0;

 protected:
  PlayingMedia() = default;
  PlayingMedia(const PlayingMedia&) = delete;
  PlayingMedia& operator=(const PlayingMedia&) = delete;
};

}  // namespace yarvo
