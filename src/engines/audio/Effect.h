#pragma once
// An effect on one channel's samples, at the channel's own rate and channel
// count.
//
// Parameters are set and read on the interface thread and take effect at the
// next block the output thread processes: they pass through atomics, never a
// lock, so a slider never waits for the audio and the audio never waits for a
// slider. process() does no allocation and throws nothing.

#include <cstddef>

namespace yarvo::audio {

class ParamEq;

class Effect {
 public:
  virtual ~Effect() = default;
  Effect() = default;
  Effect(const Effect&) = delete;
  Effect& operator=(const Effect&) = delete;

  // Interface thread. `record` is the effect's BASS_DX8_ record; values out of
  // range are clamped; false when a field is not a number.
  virtual bool setParameters(const void* record) noexcept = 0;
  virtual void getParameters(void* record) const noexcept = 0;

  // Output thread: `frames` interleaved frames, in place.
  virtual void process(float* interleaved, std::size_t frames) noexcept = 0;

  // The equaliser band this is, or nullptr. Consecutive bands in a chain are
  // run together (ParamEq::processCascade), which is several times faster.
  virtual ParamEq* asBand() noexcept { return nullptr; }
};

}  // namespace yarvo::audio
