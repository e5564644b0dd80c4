#pragma once
// Where no PulseAudio server runs, JACK or ALSA through libcubeb (the first
// that works): float stereo at the device's preferred rate, about 20 ms of
// latency, since nothing it holds can be discarded: what it holds is heard
// at once anyway.
//
// If the device fails while playing (the server restarts, a headset is
// pulled), a watchdog thread hands the source to a NullOutput, so positions
// go on at real-time pace and songs still end; the sound is gone until the
// next BASS_Init.

#include "engines/audio/AudioOutput.h"
#include "engines/audio/NullOutput.h"

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

struct cubeb;
struct cubeb_stream;

namespace yarvo::audio {

class CubebOutput final : public AudioOutput {
 public:
  // nullptr when no back end or no device can be opened.
  static std::unique_ptr<CubebOutput> open(int wishedRate);
  ~CubebOutput() override;

  int rate() const noexcept override { return rate_; }
  bool start(AudioSource& source) override;
  void stop() noexcept override;
  bool lost() const noexcept override { return failed_.load(std::memory_order_acquire); }

  // Use open().
  CubebOutput(cubeb* context, int rate);

 private:
  friend struct CubebCallbacks;
  bool openStream(int latencyFrames);
  void takeOverOnFailure(std::stop_token stop);

  cubeb* context_;
  cubeb_stream* stream_ = nullptr;
  int rate_;
  bool running_ = false;
  // Set from cubeb's thread when the stream reports an error; from then on
  // the data callback renders nothing.
  std::atomic<bool> failed_{false};
  std::mutex mutex_;
  std::condition_variable_any failure_;
  std::unique_ptr<NullOutput> fallback_;
  std::jthread watchdog_;
};

}  // namespace yarvo::audio
