#pragma once
// An output without a device: a thread of its own pulls one 10 ms period at a
// time on a steady clock, so playback advances exactly as it would through a
// sound card, and the audio is thrown away.

#include "engines/audio/AudioOutput.h"

#include <thread>
#include <vector>

namespace yarvo::audio {

class NullOutput final : public AudioOutput {
 public:
  explicit NullOutput(int rate);
  ~NullOutput() override;

  int rate() const noexcept override { return rate_; }
  bool start(AudioSource& source) override;
  void stop() noexcept override;

 private:
  int rate_;
  std::vector<float> buffer_;
  std::jthread thread_;
};

}  // namespace yarvo::audio
