#pragma once
// An audio output a benchmark drives: it renders only when told to, as fast as
// asked, and is not real-time, so a channel waits for its decoder rather than
// skipping.

#include <cstddef>

#include "engines/audio/AudioOutput.h"

namespace yarvo::bench {

class DrivenOutput final : public audio::AudioOutput {
 public:
  int rate() const noexcept override { return 44100; }
  bool realTime() const noexcept override { return false; }
  bool start(audio::AudioSource& source) override {
    source_ = &source;
    return true;
  }
  void stop() noexcept override {}
  void pump(float* stereo, std::size_t frames) { source_->render(stereo, frames); }
};

}  // namespace yarvo::bench
