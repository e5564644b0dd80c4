#pragma once
// The desktop's sound server through libcubeb (PulseAudio, JACK or ALSA, the
// first that works): float stereo at the device's preferred rate, about 20 ms
// of latency so that a slider is heard at once.
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

  // Use open().
  CubebOutput(cubeb* context, int rate);

 private:
  friend struct CubebCallbacks;
  bool openStream(int latencyFrames);
  void takeOverOnFailure(std::stop_token stop);

  cubeb* context_;
  cubeb_stream* stream_ = nullptr;
  int rate_;
  AudioSource* source_ = nullptr;
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
