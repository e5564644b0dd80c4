#include "engines/media/MpvMedia.h"

#include <cstdio>

#include "engines/media/MpvNames.h"
#include "engines/media/MpvPlayer.h"
#include "engines/media/X11Window.h"

namespace yarvo {
namespace {

constexpr double kFallbackFramesPerSecond = 25.0;
constexpr double kFullVolume = 100.0;  // mpv's volume at the media's own level

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

MpvMedia::MpvMedia(std::unique_ptr<MpvPlayer> player, std::chrono::milliseconds timeout)
    : player_(std::move(player)), timeout_(timeout) {}

MpvMedia::~MpvMedia() = default;

MciError MpvMedia::open(const std::string& path, std::uint64_t parent,
                        const MciServiceOptions& options, std::unique_ptr<PlayingMedia>& media) {
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
  auto opened = std::make_unique<MpvMedia>(std::move(player), options.timeout);
  opened->inspect();
  media = std::move(opened);
  return MciError::None;
}

// Learns what the loaded file is: picture or not, its size and frame rate.
void MpvMedia::inspect() {
  if (!selectsPicture(*player_) || !player_->waitForPicture(timeout_)) {
    return;
  }
  const auto width = player_->intProperty(mpvname::kDisplayWidth).value_or(0);
  const auto height = player_->intProperty(mpvname::kDisplayHeight).value_or(0);
  if (width <= 0 || height <= 0) {
    // The picture cannot be shown here (no working video output): the
    // media plays as sound alone.
    return;
  }
  double framesPerSecond = player_->doubleProperty(mpvname::kContainerFps).value_or(0);
  if (framesPerSecond <= 0) {
    framesPerSecond = player_->doubleProperty(mpvname::kEstimatedVfFps).value_or(0);
  }
  if (framesPerSecond <= 0) {
    framesPerSecond = kFallbackFramesPerSecond;
  }
  picture_ = MediaPicture{toInt32(width), toInt32(height), framesPerSecond};
}

std::optional<double> MpvMedia::length() {
  const auto duration = player_->doubleProperty(mpvname::kDuration);
  if (!duration || *duration < 0) {
    return std::nullopt;
  }
  return duration;
}

double MpvMedia::position() { return player_->doubleProperty(mpvname::kTimePos).value_or(0); }

// mpv pauses by itself at the end of the file and at the end given to
// setPlaybackEnd, and shows either as eof-reached. The events that piled up
// meanwhile are of no use.
bool MpvMedia::atEnd() {
  player_->discardEvents();
  return player_->flagProperty(mpvname::kEofReached).value_or(false);
}

double MpvMedia::speed() { return player_->doubleProperty(mpvname::kSpeed).value_or(1.0); }

bool MpvMedia::setPaused(bool paused) { return player_->setFlag(mpvname::kPause, paused); }

void MpvMedia::seek(double seconds) { player_->seekTo(seconds, timeout_); }

bool MpvMedia::setPlaybackEnd(std::optional<double> seconds) {
  return player_->setPlaybackEnd(seconds);
}

// mpv's own volume curve is cubic, as the other back ends follow.
bool MpvMedia::setVolume(double level) {
  return player_->setDouble(mpvname::kVolume, level * kFullVolume);
}

// One side louder than the other is a pan filter in mpv's audio chain, after
// the sound is brought to two sides (mono spreads to both, more channels
// mix down); equal full sides need no filter.
bool MpvMedia::setChannelGains(double left, double right) {
  if (left == right && left == 1.0) {
    return player_->setString(mpvname::kAudioFilters, "");
  }
  char filter[128] = {};
  std::snprintf(filter, sizeof filter,
                "lavfi=[aformat=channel_layouts=stereo,pan=stereo|c0=%.3f*c0|c1=%.3f*c1]", left,
                right);
  return player_->setString(mpvname::kAudioFilters, filter);
}

}  // namespace yarvo
