#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <vector>

#include "engines/audio/AudioOutput.h"
#include "engines/media/FluidSynth.h"
#include "engines/media/MidiFile.h"

namespace yarvo {

// Plays a song on a synthesizer as an output pulls its sound: each message
// goes to the synthesizer at its own frame of the output (FluidSynth starts
// it at its next 64-frame block), so the position is the count of frames
// rendered and never drifts from the sound.
//
// At the end (of the song, or the one `setEnd` gave) the sounding notes are
// let go, the position stays there and the synthesizer renders the notes'
// and the reverb's fading for a little while, then silence. A seek starts
// over from a silent synthesizer: the programs, controllers and pitch bends
// that the song set before the new position are replayed, and the notes that
// sound across it start again there.
//
// `render` runs on the output's thread; everything else on the interface
// thread. They share one lock, which `render` holds for one block.
class MidiSequencer final : public audio::AudioSource {
 public:
  // `rate` is the synthesizer's and the output's frames a second.
  MidiSequencer(MidiSong song, FluidSynth& synth, int rate);

  void render(float* stereo, std::size_t frames) noexcept override;

  double length() const { return song_.length; }
  double position() const;  // seconds
  bool ended() const;

  void seek(double seconds);
  // Nothing for the end of the song.
  void setEnd(std::optional<double> seconds);
  // Factors for each side's sound.
  void setGains(float left, float right);

 private:
  std::int64_t toFrame(double seconds) const;
  std::int64_t nextEventFrame() const;
  void playDueEvents();
  void finish();
  void scale(float* stereo, std::size_t frames) const;

  MidiSong song_;
  std::vector<std::int64_t> eventFrames_;  // of each event of the song
  FluidSynth& synth_;
  int rate_;
  std::int64_t lengthFrames_;

  mutable std::mutex mutex_;
  std::size_t next_ = 0;  // the first event not yet played
  std::int64_t position_ = 0;
  std::int64_t endFrame_;
  bool ended_ = false;
  std::int64_t fadingLeft_ = 0;  // frames still rendered after the end
  float leftGain_ = 1.0f;
  float rightGain_ = 1.0f;
};

}  // namespace yarvo
