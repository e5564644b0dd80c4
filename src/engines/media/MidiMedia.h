#pragma once

#include <memory>
#include <string>

#include "engines/audio/AudioOutput.h"
#include "engines/media/FluidSynth.h"
#include "engines/media/MciError.h"
#include "engines/media/MciServiceOptions.h"
#include "engines/media/MidiSequencer.h"
#include "engines/media/PlayingMedia.h"

namespace yarvo {

// A MIDI file (.mid, .midi, .rmi), read by our own reader, sequenced by
// MidiSequencer on a FluidSynth synthesizer with the system's General MIDI
// sound font, and heard through the audio library's output: the desktop's
// sound server, or an output that keeps real-time pace without a sound.
// Pausing and seeking throw away what the output holds and was not heard
// yet, so both are heard at once; position and end are what is heard. Sound
// alone: no picture, speed 1.
class MidiMedia final : public PlayingMedia {
 public:
  // Fails with NoSoundFont when the options' folder holds no General MIDI
  // sound font, UnplayableFile when the file is no MIDI file we can read,
  // EngineFailed when FluidSynth does not start.
  static MciError open(const std::string& path, const MciServiceOptions& options,
                       std::unique_ptr<PlayingMedia>& media);

  MidiMedia(MidiSong song, std::unique_ptr<FluidSynth> synth,
            std::unique_ptr<audio::AudioOutput> output);
  ~MidiMedia() override;

  std::optional<double> length() override { return sequencer_.length(); }
  double position() override { return sequencer_.heardPosition(output_->heardFrame()); }
  bool atEnd() override { return sequencer_.heardEnd(output_->heardFrame()); }
  std::optional<MediaPicture> picture() const override { return std::nullopt; }
  double speed() override { return 1.0; }

  bool setPaused(bool paused) override;
  void seek(double seconds) override;
  bool setPlaybackEnd(std::optional<double> seconds) override;
  bool setVolume(double level) override;
  bool setChannelGains(double left, double right) override;

 private:
  void applyGains();

  std::unique_ptr<FluidSynth> synth_;
  MidiSequencer sequencer_;
  // Declared after the sequencer and the synthesizer, so that it stops
  // pulling before they go.
  std::unique_ptr<audio::AudioOutput> output_;
  double volume_ = 1.0;  // on mpv's curve: the cube of the level
  double left_ = 1.0;
  double right_ = 1.0;
};

}  // namespace yarvo
