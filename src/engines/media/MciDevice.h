#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "engines/media/MciCommand.h"
#include "engines/media/MciError.h"
#include "engines/media/MciServiceOptions.h"
#include "engines/media/PlayingMedia.h"

namespace yarvo {

// One open media of the service: the service's commands on a back end that
// plays it. A MIDI file (by its content, whatever its name or the device
// type asked for) is played by the sequencer; everything else by libmpv.
//
// Time is counted in the current time format: milliseconds, or frames. A
// frame of a media with a picture is one picture of its video stream (1/fps
// seconds, fps from the container, else as mpv measures it, else 25). A media
// without a picture counts one frame per millisecond, so its frame rate reads
// 1000: callers that divide by the frame rate get exact seconds, and a seek
// slider in steps of two seconds gets steps of 2000 frames.
//
// A media whose picture cannot be shown (no video output works) counts as one
// without a picture; so does MIDI.
//
// Modes: "stopped" after open, stop and seek, and once the end is reached (the
// end of the media, or the `to` of the last play); "playing" after play and
// resume; "paused" after pause. At an end the position reads that end. Play
// without `from` on a media at its real end starts it again. Play and seek
// return when the back end has settled at the new position.
class MciDevice {
 public:
  // Opens `path`; on success `device` holds the open media. `parent` is the
  // native window that the picture fills, 0 for none.
  static MciError open(const std::string& path, std::uint64_t parent,
                       const MciServiceOptions& options, std::unique_ptr<MciDevice>& device);

  MciDevice(const MciDevice&) = delete;
  MciDevice& operator=(const MciDevice&) = delete;
  ~MciDevice();

  MciError play(std::optional<std::int64_t> from, std::optional<std::int64_t> to);
  MciError pause();
  MciError resume();
  MciError stop();
  MciError seek(std::int64_t to);
  MciError setVolume(MciChannel channel, std::int64_t volume);  // volume 0 to 1000
  MciError putWindow(const MciRect& rect);
  void setTimeFormat(MciTimeFormat format) { timeFormat_ = format; }

  // The reply of "status <alias> <item>" in decimal text or the mode word.
  MciError status(MciStatusItem item, std::string& reply);
  // "x y width height" of the picture in its window; fails without a picture.
  MciError whereDestination(std::string& reply) const;

  // Made by `open`, around a back end that has loaded its file.
  explicit MciDevice(std::unique_ptr<PlayingMedia> media);

 private:
  enum class Mode { Stopped, Playing, Paused };

  double unitsPerSecond() const;
  std::optional<std::int64_t> lengthUnits();
  std::int64_t positionUnits();
  void refreshMode();
  MciError setPaused(bool paused, Mode then);

  std::unique_ptr<PlayingMedia> media_;
  MciTimeFormat timeFormat_ = MciTimeFormat::Frames;
  Mode mode_ = Mode::Stopped;
  MciRect destination_;
  std::optional<double> playEnd_;  // seconds; where the last "play ... to" stops
  double leftGain_ = 1.0;
  double rightGain_ = 1.0;
};

}  // namespace yarvo
