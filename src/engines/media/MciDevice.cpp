#include "engines/media/MciDevice.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cmath>

#include "engines/media/MidiFile.h"
#include "engines/media/MidiMedia.h"
#include "engines/media/MpvMedia.h"
#include "platform/Files.h"

namespace yarvo {
namespace {

constexpr double kMillisecondsPerSecond = 1000.0;
constexpr double kNormalSpeed = 1000.0;  // "status ... speed" of a media at its own pace
constexpr double kFullVolume = 1000.0;   // "setaudio ... volume to" at full strength
constexpr std::size_t kHeadBytes = 12;   // enough to tell a MIDI file

bool isAddress(const std::string& path) { return path.find("://") != std::string::npos; }

// The first bytes of a local file, or nothing when the path names no
// regular file: that is refused as a missing file, since mpv would wait for
// ever on a FIFO that has no writer.
std::optional<std::string> headOf(const std::string& path) {
  const auto file = OpenRegularFile(path, O_RDONLY);
  if (!file) {
    return std::nullopt;
  }
  std::array<char, kHeadBytes> head{};
  const auto count = ::read(file.get(), head.data(), head.size());
  return std::string(head.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
}

}  // namespace

MciDevice::MciDevice(std::unique_ptr<PlayingMedia> media) : media_(std::move(media)) {
  if (const auto picture = media_->picture()) {
    destination_ = {0, 0, picture->width, picture->height};
  }
}

MciDevice::~MciDevice() = default;

MciError MciDevice::open(const std::string& path, std::uint64_t parent,
                         const MciServiceOptions& options, std::unique_ptr<MciDevice>& device) {
  if (path.empty()) {
    return MciError::FileNotFound;
  }
  std::unique_ptr<PlayingMedia> media;
  MciError error = MciError::None;
  if (isAddress(path)) {
    error = MpvMedia::open(path, parent, options, media);  // addresses are mpv's to judge
  } else if (const auto head = headOf(path); !head) {
    return MciError::FileNotFound;
  } else if (looksLikeMidi(*head)) {
    error = MidiMedia::open(path, options, media);
  } else {
    error = MpvMedia::open(path, parent, options, media);
  }
  if (error == MciError::None) {
    device = std::make_unique<MciDevice>(std::move(media));
  }
  return error;
}

double MciDevice::unitsPerSecond() const {
  const auto picture = media_->picture();
  return timeFormat_ == MciTimeFormat::Frames && picture ? picture->framesPerSecond
                                                         : kMillisecondsPerSecond;
}

std::optional<std::int64_t> MciDevice::lengthUnits() {
  const auto length = media_->length();
  if (!length) {
    return std::nullopt;
  }
  return std::llround(*length * unitsPerSecond());
}

std::int64_t MciDevice::positionUnits() {
  const auto length = lengthUnits();
  // At an end mpv shows the last picture, one frame short of the end; the
  // position is the end itself.
  if (length && media_->atEnd()) {
    return playEnd_ ? std::llround(*playEnd_ * unitsPerSecond()) : *length;
  }
  const auto position =
      std::max<std::int64_t>(0, std::llround(media_->position() * unitsPerSecond()));
  return length ? std::min(position, *length) : position;
}

// A playing media turns "stopped" at its end, or at the end that play gave
// it: the back end pauses by itself at either.
void MciDevice::refreshMode() {
  if (media_->atEnd() && mode_ == Mode::Playing) {
    mode_ = Mode::Stopped;
  }
}

MciError MciDevice::play(std::optional<std::int64_t> from, std::optional<std::int64_t> to) {
  const auto length = lengthUnits();
  if ((from || to) && !length) {
    return MciError::UnsupportedFunction;
  }
  if ((from && *from > *length) || (to && *to > *length) || (from && to && *from > *to)) {
    return MciError::OutOfRange;
  }
  const double scale = unitsPerSecond();
  const bool atEnd = media_->atEnd();
  const std::optional<double> previousEnd = playEnd_;
  playEnd_.reset();
  if (to && *to < *length) {
    playEnd_ = static_cast<double>(*to) / scale;
  }
  if (!media_->setPlaybackEnd(playEnd_)) {
    return MciError::EngineFailed;
  }
  if (from) {
    media_->seek(static_cast<double>(*from) / scale);
  } else if (atEnd) {
    // A back end leaves an end only by a seek: on from the end that the last
    // play gave, or from the start after the real end.
    media_->seek(previousEnd.value_or(0));
  }
  return setPaused(false, Mode::Playing);
}

MciError MciDevice::pause() { return setPaused(true, Mode::Paused); }

MciError MciDevice::resume() {
  if (mode_ != Mode::Paused) {
    return MciError::None;
  }
  return setPaused(false, Mode::Playing);
}

MciError MciDevice::stop() { return setPaused(true, Mode::Stopped); }

// Back ends only pause or run; stopped and paused differ in our mode alone.
MciError MciDevice::setPaused(bool paused, Mode then) {
  if (!media_->setPaused(paused)) {
    return MciError::EngineFailed;
  }
  mode_ = then;
  return MciError::None;
}

MciError MciDevice::seek(std::int64_t to) {
  const auto length = lengthUnits();
  if (!length) {
    return MciError::UnsupportedFunction;
  }
  if (to > *length) {
    return MciError::OutOfRange;
  }
  media_->setPaused(true);
  media_->setPlaybackEnd(std::nullopt);
  mode_ = Mode::Stopped;
  playEnd_.reset();
  media_->seek(static_cast<double>(to) / unitsPerSecond());
  return MciError::None;
}

MciError MciDevice::setVolume(MciChannel channel, std::int64_t volume) {
  const double level = static_cast<double>(volume) / kFullVolume;
  if (channel == MciChannel::Both) {
    return media_->setVolume(level) ? MciError::None : MciError::EngineFailed;
  }
  (channel == MciChannel::Left ? leftGain_ : rightGain_) = level;
  return media_->setChannelGains(leftGain_, rightGain_) ? MciError::None
                                                        : MciError::UnsupportedFunction;
}

MciError MciDevice::putWindow(const MciRect& rect) {
  if (!media_->picture()) {
    return MciError::NoPicture;
  }
  // mpv draws into the whole parent window: the picture fills the rectangle
  // the caller gave that window.
  destination_ = {0, 0, rect.width, rect.height};
  return MciError::None;
}

MciError MciDevice::status(MciStatusItem item, std::string& reply) {
  refreshMode();
  switch (item) {
    case MciStatusItem::Mode:
      reply = mode_ == Mode::Playing ? "playing" : mode_ == Mode::Paused ? "paused" : "stopped";
      return MciError::None;
    case MciStatusItem::Length: {
      const auto length = lengthUnits();
      if (!length) {
        return MciError::UnsupportedFunction;
      }
      reply = std::to_string(*length);
      return MciError::None;
    }
    case MciStatusItem::Position:
      reply = std::to_string(positionUnits());
      return MciError::None;
    case MciStatusItem::Speed:
      reply = std::to_string(std::llround(media_->speed() * kNormalSpeed));
      return MciError::None;
  }
  return MciError::UnrecognizedKeyword;
}

MciError MciDevice::whereDestination(std::string& reply) const {
  if (!media_->picture()) {
    return MciError::NoPicture;
  }
  reply = std::to_string(destination_.x) + " " + std::to_string(destination_.y) + " " +
          std::to_string(destination_.width) + " " + std::to_string(destination_.height);
  return MciError::None;
}

}  // namespace yarvo
