#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "engines/media/MciError.h"
#include "engines/media/MciServiceOptions.h"
#include "engines/media/PlayingMedia.h"

namespace yarvo {

class MpvPlayer;

// A media played by its own libmpv player: everything but MIDI.
//
// Its picture is that of its selected video track when it is a moving
// picture (not a cover image) that a video output can show: then it has a
// size and a frame rate (from the container, else as mpv measures it, else
// 25).
class MpvMedia final : public PlayingMedia {
 public:
  // Loads `path` (a file or an address); on success `media` holds it.
  // `parent` is the native window that the picture fills, 0 for none.
  static MciError open(const std::string& path, std::uint64_t parent,
                       const MciServiceOptions& options, std::unique_ptr<PlayingMedia>& media);

  MpvMedia(std::unique_ptr<MpvPlayer> player, std::chrono::milliseconds timeout);
  ~MpvMedia() override;

  std::optional<double> length() override;
  double position() override;
  bool atEnd() override;
  std::optional<MediaPicture> picture() const override { return picture_; }
  double speed() override;

  bool setPaused(bool paused) override;
  void seek(double seconds) override;
  bool setPlaybackEnd(std::optional<double> seconds) override;
  bool setVolume(double level) override;
  bool setChannelGains(double left, double right) override;

 private:
  void inspect();

  std::unique_ptr<MpvPlayer> player_;
  std::chrono::milliseconds timeout_;
  std::optional<MediaPicture> picture_;
};

}  // namespace yarvo
