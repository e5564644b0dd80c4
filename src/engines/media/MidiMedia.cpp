#include "engines/media/MidiMedia.h"

#include <system_error>

#include "engines/media/SoundFont.h"
#include "platform/Files.h"

namespace yarvo {
namespace {

// Far above any real MIDI file; a bigger one is not read into memory.
constexpr std::uintmax_t kMaxFileBytes = 64u << 20;
// What the output is asked for; it may choose the sound server's own rate.
constexpr int kWishedRate = 44100;
// The audio library's device numbers: the default output, or no sound.
constexpr int kDefaultDevice = -1;
constexpr int kNoSoundDevice = 0;

std::optional<MidiSong> readSong(const std::string& path) {
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  if (error || size > kMaxFileBytes) {
    return std::nullopt;
  }
  const auto bytes = ReadWholeFile(path);
  return bytes ? readMidiFile(*bytes) : std::nullopt;
}

}  // namespace

MidiMedia::MidiMedia(MidiSong song, std::unique_ptr<FluidSynth> synth, int device,
                     std::unique_ptr<audio::AudioOutput> output)
    : synth_(std::move(synth)),
      sequencer_(std::move(song), *synth_, output->rate()),
      device_(device),
      output_(std::move(output)) {}

MidiMedia::~MidiMedia() = default;

MciError MidiMedia::open(const std::string& path, const MciServiceOptions& options,
                         std::unique_ptr<PlayingMedia>& media) {
  const auto soundFont = findGeneralMidiSoundFont(options.soundFontFolder);
  if (!soundFont) {
    return MciError::NoSoundFont;
  }
  auto song = readSong(path);
  if (!song) {
    return MciError::UnplayableFile;
  }
  const int device = options.audioOutput == kSilentAudioOutput ? kNoSoundDevice : kDefaultDevice;
  auto output = audio::makeOutput(device, kWishedRate);
  auto synth = FluidSynth::create(*soundFont, output->rate());
  if (!synth) {
    return MciError::EngineFailed;
  }
  media =
      std::make_unique<MidiMedia>(std::move(*song), std::move(synth), device, std::move(output));
  return MciError::None;
}

bool MidiMedia::setPaused(bool paused) {
  if (paused) {
    output_->stop();
    running_ = false;
    return true;
  }
  if (!running_) {
    running_ = output_->start(sequencer_);
    started_ = started_ || running_;
  }
  return running_;
}

void MidiMedia::seek(double seconds) {
  output_->stop();
  running_ = false;
  sequencer_.seek(seconds);
  if (started_) {
    replaceOutput();
  }
}

// The sound that an output has taken but not yet played belongs before the
// seek: a fresh output starts empty. It must keep the synthesizer's rate.
void MidiMedia::replaceOutput() {
  auto fresh = audio::makeOutput(device_, kWishedRate);
  if (fresh->rate() == output_->rate()) {
    output_ = std::move(fresh);
    started_ = false;
  }
}

bool MidiMedia::setPlaybackEnd(std::optional<double> seconds) {
  sequencer_.setEnd(seconds);
  return true;
}

bool MidiMedia::setVolume(double level) {
  volume_ = level * level * level;
  applyGains();
  return true;
}

bool MidiMedia::setChannelGains(double left, double right) {
  left_ = left;
  right_ = right;
  applyGains();
  return true;
}

void MidiMedia::applyGains() {
  sequencer_.setGains(static_cast<float>(volume_ * left_), static_cast<float>(volume_ * right_));
}

}  // namespace yarvo
