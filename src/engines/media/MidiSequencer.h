#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <vector>

#include "engines/audio/AudioOutput.h"
#include "engines/audio/PositionTrail.h"
#include "engines/media/FluidSynth.h"
#include "engines/media/MidiFile.h"

namespace yarvo {

// Plays a song on a synthesizer as an output pulls its sound: each message
// goes to the synthesizer at its own frame of the output (FluidSynth starts
// it at its next 64-frame block), so the position is the count of frames
// rendered and never drifts from the sound. What an output heard is found
// on the trail of rendered blocks, since a sound server holds some before
// they sound.
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

  std::size_t render(float* stereo, std::size_t frames) noexcept override;
  std::uint64_t renderedFrames() const noexcept override {
    return rendered_.load(std::memory_order_acquire);
  }

  double length() const { return song_.length; }
  // Seconds into the song, and whether its end was heard, at the output's
  // frame `heardFrame`.
  double heardPosition(std::uint64_t heardFrame) const;
  bool heardEnd(std::uint64_t heardFrame) const;

  // Paused, it renders silence and counts nothing, so an output may rest.
  void setPaused(bool paused);
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
  std::int64_t heardFrameOfSong(std::uint64_t heardFrame) const;

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
  bool paused_ = false;
  std::uint64_t generation_ = 0;  // of seeks, for the trail

  std::atomic<std::uint64_t> rendered_{0};
  audio::PositionTrail trail_;
};

}  // namespace yarvo
