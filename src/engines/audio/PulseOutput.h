#pragma once
// The desktop's sound server through its own protocol (PulseAudio, or
// PipeWire's server for it): float stereo at the default sink's rate, in a
// buffer of about 200 ms that the server fits to what the sink can do
// (latency adjusted by the server), so that neither the server nor this
// process wakes more than a few times a second while a song plays.
//
// The buffer is not waited for: a change discards it (discard(): the stream
// is flushed and the channels go back to what was heard), the volume is the
// stream's own and applies to what the server holds, and heardFrame() takes
// the server's latency off what was rendered.
//
// While nothing sounds the stream plays out what it holds and is corked;
// after two seconds of silence the stream and the connection are released
// (a corked stream still keeps the server waking), and an idle player holds
// none. The next start() opens them again. If the server goes away while a
// song plays, a NullOutput takes over, so positions go on at real-time pace
// and songs still end.
//
// Threads: libpulse's threaded main loop runs the stream and renders in its
// write callback; every other call comes from the interface thread and holds
// the main loop's lock, so no render runs meanwhile.

#include "engines/audio/AudioOutput.h"
#include "engines/audio/NullOutput.h"

#include <atomic>
#include <cstdint>
#include <memory>

struct pa_threaded_mainloop;
struct pa_context;
struct pa_stream;
struct pa_operation;
struct pa_time_event;
struct pa_defer_event;

namespace yarvo::audio {

class PulseOutput final : public AudioOutput {
 public:
  // nullptr when no server answers. Asks the server for its default sink's
  // rate, then lets the connection go until the first start().
  static std::unique_ptr<PulseOutput> open(int wishedRate);
  ~PulseOutput() override;

  int rate() const noexcept override { return rate_; }
  bool start(AudioSource& source) override;
  void stop() noexcept override;
  std::uint64_t heardFrame() const noexcept override;
  void discard(const Rewind& rewind) override;
  bool setVolume(float volume) noexcept override;
  bool lost() const noexcept override { return lost_.load(std::memory_order_acquire); }

  // Use open().
  explicit PulseOutput(int rate);

 private:
  enum class State { Released, Running, Draining, Resting };
  class Lock;
  friend struct PulseCallbacks;

  bool connect();
  bool openStream();
  int askSinkRate();
  void release() noexcept;
  bool waitUntil(const auto& done);
  bool await(pa_operation* operation);

  void fill() noexcept;
  void rest() noexcept;
  void drained() noexcept;
  void cancelRest() noexcept;
  void deviceLost() noexcept;
  std::uint64_t unheardFrames() const noexcept;

  pa_threaded_mainloop* loop_ = nullptr;
  pa_context* context_ = nullptr;
  pa_stream* stream_ = nullptr;
  pa_operation* drain_ = nullptr;
  pa_time_event* releaseTimer_ = nullptr;
  pa_defer_event* fillSoon_ = nullptr;
  State state_ = State::Released;
  int rate_;
  float volume_ = 1.0f;
  // Frames written since the stream opened or was last flushed: no more
  // than these can wait in the server.
  std::uint64_t sinceFlush_ = 0;
  mutable std::uint64_t lastLatency_ = 0;
  std::atomic<bool> lost_{false};
  std::unique_ptr<NullOutput> fallback_;
  bool stopped_ = false;
};

}  // namespace yarvo::audio
