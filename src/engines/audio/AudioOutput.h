#pragma once
// Where the mixed audio goes: the sound server, or a null output that throws
// it away at real-time speed. The library picks one at BASS_Init through an
// output factory that tests may replace with their own (setOutputFactory).
// None of this is part of the BASS surface.

#include <cstddef>
#include <functional>
#include <memory>

namespace yarvo::audio {

// What an output pulls audio from.
class AudioSource {
 public:
  // Output thread: fills `frames` interleaved stereo float frames. No
  // allocation, no exception, no lock held by anything slow.
  virtual void render(float* stereo, std::size_t frames) noexcept = 0;

 protected:
  ~AudioSource() = default;
};

class AudioOutput {
 public:
  virtual ~AudioOutput() = default;
  AudioOutput() = default;
  AudioOutput(const AudioOutput&) = delete;
  AudioOutput& operator=(const AudioOutput&) = delete;

  // Frames per second the output consumes; fixed from creation.
  [[nodiscard]] virtual int rate() const noexcept = 0;
  // False for outputs driven faster than real time: channels then wait for
  // their decoders instead of playing silence when the decoder falls behind.
  [[nodiscard]] virtual bool realTime() const noexcept { return true; }
  // Starts pulling from `source`, which outlives the output's running time.
  // False when the output cannot run.
  virtual bool start(AudioSource& source) = 0;
  // Stops pulling; when it returns, render() is not running and will not be
  // called again. Safe to call twice.
  virtual void stop() noexcept = 0;
};

// device as given to BASS_Init (-1 default, 0 no sound); rate the one wished
// for. Never returns nullptr: a device that cannot be opened gives a null
// output.
using OutputFactory = std::function<std::unique_ptr<AudioOutput>(int device, int rate)>;

// Replaces the factory used by later BASS_Init calls; an empty one restores
// the default (sound server, else null output). Interface thread.
void setOutputFactory(OutputFactory factory);
std::unique_ptr<AudioOutput> makeOutput(int device, int rate);

}  // namespace yarvo::audio
