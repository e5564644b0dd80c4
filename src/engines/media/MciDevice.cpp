#include "engines/media/MciDevice.h"

#include <fcntl.h>

#include <cmath>
#include <cstdio>

#include "engines/media/MpvNames.h"
#include "engines/media/MpvPlayer.h"
#include "engines/media/X11Window.h"
#include "platform/Files.h"

namespace yarvo {
namespace {

constexpr double kMillisecondsPerSecond = 1000.0;
constexpr double kFallbackFramesPerSecond = 25.0;
constexpr double kNormalSpeed = 1000.0;  // "status ... speed" of a media at its own pace
constexpr double kFullVolume = 1000.0;   // "setaudio ... volume to" at full strength
constexpr double kVolumeScale = 10.0;    // our 0..1000 against mpv's 0..100

// A path that names no regular file is refused as a missing one: mpv would
// wait for ever on a FIFO that has no writer.
bool isMissingFile(const std::string& path) {
  if (path.find("://") != std::string::npos) {
    return false;  // addresses are mpv's to judge
  }
  return !OpenRegularFile(path, O_RDONLY);
}

std::string trackField(std::int64_t index, const char* field) {
  return std::string(mpvname::kTrackList) + "/" + std::to_string(index) + "/" + field;
}

// True when a selected video track is a moving picture, not a cover image.
bool selectsPicture(MpvPlayer& player) {
  const auto count = player.intProperty(mpvname::kTrackCount).value_or(0);
  for (std::int64_t i = 0; i < count; ++i) {
    const auto type = player.stringProperty(trackField(i, mpvname::kTrackType).c_str());
    if (type == mpvname::kVideoTrackType &&
        player.flagProperty(trackField(i, mpvname::kTrackSelected).c_str()).value_or(false) &&
        !player.flagProperty(trackField(i, mpvname::kTrackAlbumArt).c_str()).value_or(false)) {
      return true;
    }
  }
  return false;
}

std::int32_t toInt32(std::int64_t value) { return static_cast<std::int32_t>(value); }

}  // namespace

MciDevice::MciDevice(std::unique_ptr<MpvPlayer> player, const MciServiceOptions& options)
    : player_(std::move(player)), options_(options) {}

MciDevice::~MciDevice() = default;

MciError MciDevice::open(const std::string& path, std::uint64_t parent,
                         const MciServiceOptions& options, std::unique_ptr<MciDevice>& device) {
  if (path.empty() || isMissingFile(path)) {
    return MciError::FileNotFound;
  }
  MpvPlayerSettings settings;
  settings.audioOutput = options.audioOutput;
  if (options.drawPictures && isLiveX11Window(parent)) {
    settings.window = static_cast<std::int64_t>(parent);
    settings.videoOutput = mpvname::kEmbeddedVideoOutputs;
  } else {
    settings.videoOutput = mpvname::kNullOutput;
  }
  auto player = MpvPlayer::create(settings);
  if (!player) {
    return MciError::EngineFailed;
  }
  switch (player->load(path, options.timeout)) {
    case MpvLoadResult::Failed:
      return MciError::UnplayableFile;
    case MpvLoadResult::TimedOut:
      return MciError::Timeout;
    case MpvLoadResult::Loaded:
      break;
  }
  device = std::make_unique<MciDevice>(std::move(player), options);
  device->inspect();
  return MciError::None;
}

// Learns what the loaded file is: picture or not, its size and frame rate.
void MciDevice::inspect() {
  hasPicture_ = selectsPicture(*player_);
  if (!hasPicture_) {
    framesPerSecond_ = kMillisecondsPerSecond;
    return;
  }
  std::int64_t width = 0;
  std::int64_t height = 0;
  if (player_->waitForPicture(options_.timeout)) {
    width = player_->intProperty(mpvname::kDisplayWidth).value_or(0);
    height = player_->intProperty(mpvname::kDisplayHeight).value_or(0);
  }
  if (width <= 0 || height <= 0) {
    // The picture cannot be shown here (no working video output): the
    // media plays as sound alone.
    hasPicture_ = false;
    framesPerSecond_ = kMillisecondsPerSecond;
    return;
  }
  destination_ = {0, 0, toInt32(width), toInt32(height)};
  framesPerSecond_ = player_->doubleProperty(mpvname::kContainerFps).value_or(0);
  if (framesPerSecond_ <= 0) {
    framesPerSecond_ = player_->doubleProperty(mpvname::kEstimatedVfFps).value_or(0);
  }
  if (framesPerSecond_ <= 0) {
    framesPerSecond_ = kFallbackFramesPerSecond;
  }
}

double MciDevice::unitsPerSecond() const {
  return timeFormat_ == MciTimeFormat::Milliseconds ? kMillisecondsPerSecond : framesPerSecond_;
}

std::optional<std::int64_t> MciDevice::lengthUnits() {
  const auto duration = player_->doubleProperty(mpvname::kDuration);
  if (!duration || *duration < 0) {
    return std::nullopt;
  }
  return std::llround(*duration * unitsPerSecond());
}

std::int64_t MciDevice::positionUnits() {
  const auto length = lengthUnits();
  // At an end mpv shows the last picture, one frame short of the end; the
  // position is the end itself.
  if (length && player_->flagProperty(mpvname::kEofReached).value_or(false)) {
    return playEnd_ ? std::llround(*playEnd_ * unitsPerSecond()) : *length;
  }
  const double seconds = player_->doubleProperty(mpvname::kTimePos).value_or(0);
  const auto position = std::max<std::int64_t>(0, std::llround(seconds * unitsPerSecond()));
  return length ? std::min(position, *length) : position;
}

// A playing media turns "stopped" at its end, or at the end that play gave
// it: mpv pauses by itself at either.
void MciDevice::refreshMode() {
  player_->discardEvents();
  if (mode_ == Mode::Playing && player_->flagProperty(mpvname::kEofReached).value_or(false)) {
    mode_ = Mode::Stopped;
  }
}

void MciDevice::seekSeconds(double seconds) {
  // A seek that does not settle in time has still been asked of mpv and
  // lands late; the caller's next query sees where it got to.
  player_->seekTo(seconds, options_.timeout);
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
  const bool atEnd = player_->flagProperty(mpvname::kEofReached).value_or(false);
  const std::optional<double> previousEnd = playEnd_;
  playEnd_.reset();
  if (to && *to < *length) {
    playEnd_ = static_cast<double>(*to) / scale;
  }
  if (!player_->setPlaybackEnd(playEnd_)) {
    return MciError::EngineFailed;
  }
  if (from) {
    seekSeconds(static_cast<double>(*from) / scale);
  } else if (atEnd) {
    // mpv leaves an end only by a seek: on from the end that the last play
    // gave, or from the start after the real end.
    seekSeconds(previousEnd.value_or(0));
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

// mpv only pauses or runs; stopped and paused differ in our mode alone.
MciError MciDevice::setPaused(bool paused, Mode then) {
  if (!player_->setFlag(mpvname::kPause, paused)) {
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
  player_->setFlag(mpvname::kPause, true);
  player_->setPlaybackEnd(std::nullopt);
  mode_ = Mode::Stopped;
  playEnd_.reset();
  seekSeconds(static_cast<double>(to) / unitsPerSecond());
  return MciError::None;
}

MciError MciDevice::setVolume(MciChannel channel, std::int64_t volume) {
  const double level = static_cast<double>(volume) / kFullVolume;
  if (channel == MciChannel::Both) {
    return player_->setDouble(mpvname::kVolume, static_cast<double>(volume) / kVolumeScale)
               ? MciError::None
               : MciError::EngineFailed;
  }
  (channel == MciChannel::Left ? leftGain_ : rightGain_) = level;
  return applyChannelGains() ? MciError::None : MciError::UnsupportedFunction;
}

// One side louder than the other is a pan filter in mpv's audio chain, after
// the sound is brought to two sides (mono spreads to both, more channels
// mix down); equal full sides need no filter.
bool MciDevice::applyChannelGains() {
  if (leftGain_ == rightGain_ && leftGain_ == 1.0) {
    return player_->setString(mpvname::kAudioFilters, "");
  }
  char filter[128] = {};
  std::snprintf(filter, sizeof filter,
                "lavfi=[aformat=channel_layouts=stereo,pan=stereo|c0=%.3f*c0|c1=%.3f*c1]",
                leftGain_, rightGain_);
  return player_->setString(mpvname::kAudioFilters, filter);
}

MciError MciDevice::putWindow(const MciRect& rect) {
  if (!hasPicture_) {
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
      reply = std::to_string(
          std::llround(player_->doubleProperty(mpvname::kSpeed).value_or(1.0) * kNormalSpeed));
      return MciError::None;
  }
  return MciError::UnrecognizedKeyword;
}

MciError MciDevice::whereDestination(std::string& reply) const {
  if (!hasPicture_) {
    return MciError::NoPicture;
  }
  reply = std::to_string(destination_.x) + " " + std::to_string(destination_.y) + " " +
          std::to_string(destination_.width) + " " + std::to_string(destination_.height);
  return MciError::None;
}

}  // namespace yarvo
