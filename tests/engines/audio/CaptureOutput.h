#pragma once
// An output for tests that keeps what would have been heard. Manual pace: the
// test renders with pump(), faster than real time, on its own thread, and the
// channels wait for their decoders. Real-time pace: a thread pulls 10 ms
// periods on a steady clock, like a sound card.

#include "engines/audio/AudioOutput.h"

#include <mutex>
#include <thread>
#include <vector>

namespace yarvo::audio::test {

class CaptureOutput final : public AudioOutput {
 public:
  enum class Pace { Manual, RealTime };

  CaptureOutput(int rate, Pace pace) : rate_(rate), pace_(pace) {}
  ~CaptureOutput() override { stop(); }

  int rate() const noexcept override { return rate_; }
  bool realTime() const noexcept override { return pace_ == Pace::RealTime; }
  bool start(AudioSource& source) override;
  void stop() noexcept override;

  // Manual pace only: renders `frames` stereo frames now.
  void pump(std::size_t frames);
  // The stereo frames captured since the last take().
  std::vector<float> take();

 private:
  int rate_;
  Pace pace_;
  std::mutex mutex_;
  std::vector<float> captured_;
  std::jthread thread_;
};

}  // namespace yarvo::audio::test
