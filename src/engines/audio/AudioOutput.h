#pragma once
// Where the mixed audio goes: the sound server, or a null output that throws
// it away at real-time speed. The library picks one at BASS_Init through an
// output factory that tests may replace with their own (setOutputFactory).
// None of this is part of the BASS surface.
//
// Frames are counted the way the source counts them (renderedFrames()): the
// n-th frame the source ever rendered is frame n, whether it was heard or
// thrown away by discard(). Channels remember which of their frames went
// into which output frames, so that the output's heardFrame() tells each of
// them what is being heard.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

namespace yarvo::audio {

// What an output pulls audio from.
class AudioSource {
 public:
  // Output thread: fills `frames` interleaved stereo float frames. Returns
  // how many of them, from the first, carry sound: fewer than `frames` when
  // nothing sounds any more (the rest is silence), and until something is
  // played again an output may finish what it holds and rest. No
  // allocation, no exception, no lock held by anything slow.
  virtual std::size_t render(float* stereo, std::size_t frames) noexcept = 0;
  // Any thread: frames render() has counted so far, those it filled up to
  // where sound ended (silence after that is not counted).
  [[nodiscard]] virtual std::uint64_t renderedFrames() const noexcept = 0;

 protected:
  ~AudioSource() = default;
};

class AudioOutput {
 public:
  // Interface thread; called while the output's render calls are held off,
  // with the frame heard at that moment.
  using Rewind = std::function<void(std::uint64_t heardFrame)>;
  static constexpr std::uint64_t kAllHeard = ~std::uint64_t{0};

  virtual ~AudioOutput() = default;
  AudioOutput() = default;
  AudioOutput(const AudioOutput&) = delete;
  AudioOutput& operator=(const AudioOutput&) = delete;

  // Frames per second the output consumes; fixed from creation.
  [[nodiscard]] virtual int rate() const noexcept = 0;
  // False for outputs driven faster than real time: channels then wait for
  // their decoders instead of playing silence when the decoder falls behind.
  [[nodiscard]] virtual bool realTime() const noexcept { return true; }
  // Starts pulling from `source`, or goes on after a rest; the source is the
  // same at every call and outlives the output's running time. False when
  // the output cannot run.
  virtual bool start(AudioSource& source) = 0;
  // Stops pulling for good; when it returns, render() is not running and
  // will not be called again. Safe to call twice.
  virtual void stop() noexcept = 0;

  // Interface thread. The frame being heard now: what was rendered, less
  // what the output or the device still holds.
  [[nodiscard]] virtual std::uint64_t heardFrame() const noexcept {
    return source_ != nullptr ? source_->renderedFrames() : 0;
  }
  // Interface thread: throws away what was rendered but not heard yet, so
  // that a change is heard at once. `rewind` runs first, while no render runs,
  // and puts the channels back to what was heard. An output that holds
  // nothing has heard all it rendered, whatever its thread renders meanwhile.
  virtual void discard(const Rewind& rewind) { rewind(kAllHeard); }
  // Interface thread: true when the output applies this linear volume (0..1)
  // itself, at once, to what it holds; false when the source must.
  virtual bool setVolume(float /*volume*/) noexcept { return false; }
  // True once the device was lost while playing: the output goes on at
  // real-time pace into nothing, and the library opens a new one at the next
  // BASS_Init.
  [[nodiscard]] virtual bool lost() const noexcept { return false; }

 protected:
  // Set by start().
  AudioSource* source_ = nullptr;
};

// device as given to BASS_Init (-1 default, 0 no sound); rate the one wished
// for. Never returns nullptr: a device that cannot be opened gives a null
// output.
using OutputFactory = std::function<std::unique_ptr<AudioOutput>(int device, int rate)>;

// Replaces the factory used by later BASS_Init calls; an empty one restores
// the default (sound server, else null output). Interface thread.
void setOutputFactory(OutputFactory factory);
std::unique_ptr<AudioOutput> makeOutput(int device, int rate);
// Changes with every setOutputFactory(): an output kept from an earlier
// BASS_Init is reused only while it has not changed.
std::uint64_t outputFactoryVersion();

}  // namespace yarvo::audio
