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

MidiMedia::MidiMedia(MidiSong song, std::unique_ptr<FluidSynth> synth,
                     std::unique_ptr<audio::AudioOutput> output)
    : synth_(std::move(synth)),
      sequencer_(std::move(song), *synth_, output->rate()),
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
  media = std::make_unique<MidiMedia>(std::move(*song), std::move(synth), std::move(output));
  return MciError::None;
}

// Paused, the song goes back to what was heard, so that it goes on from
// there; the output, given nothing, rests.
bool MidiMedia::setPaused(bool paused) {
  sequencer_.setPaused(paused);
  if (paused) {
    output_->discard([this](std::uint64_t heardFrame) {
      if (heardFrame != audio::AudioOutput::kAllHeard)
        sequencer_.seek(sequencer_.heardPosition(heardFrame));
    });
    return true;
  }
  return output_->start(sequencer_);
}

void MidiMedia::seek(double seconds) {
  output_->discard([this, seconds](std::uint64_t) { sequencer_.seek(seconds); });
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

// The volume is the output's where it can apply it to what it holds at once;
// the balance is always the sequencer's.
void MidiMedia::applyGains() {
  const double level = output_->setVolume(static_cast<float>(volume_)) ? 1.0 : volume_;
  sequencer_.setGains(static_cast<float>(level * left_), static_cast<float>(level * right_));
}

}  // namespace yarvo
