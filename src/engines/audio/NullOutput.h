#pragma once
// An output without a device: a thread of its own pulls one 10 ms period at a
// time on a steady clock, so playback advances exactly as it would through a
// sound card, and the audio is thrown away. While nothing sounds the thread
// sleeps until start() is called again.

#include "engines/audio/AudioOutput.h"

#include <condition_variable>
#include <mutex>
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
  void run(std::stop_token stop);

  int rate_;
  std::vector<float> buffer_;
  std::mutex mutex_;
  std::condition_variable_any wake_;
  // Counts start() calls: a call that comes while the thread finds nothing
  // to play is not missed.
  std::uint64_t starts_ = 0;
  std::jthread thread_;
};

}  // namespace yarvo::audio
