#include "engines/audio/PulseOutput.h"

#include <pulse/pulseaudio.h>

#include <algorithm>
#include <string>

namespace yarvo::audio {
namespace {

constexpr char kName[] = "Yarvo Player";
// The whole latency the stream asks for; the server splits it between the
// sink and the stream's queue as the sink allows.
constexpr pa_usec_t kBufferUsec = 200 * PA_USEC_PER_MSEC;
// A silent stream is kept this long for the next song, then let go: even
// corked, a stream holds the sink to its short latency, and the server
// wakes for it many times a second.
constexpr pa_usec_t kReleaseAfterUsec = 2 * PA_USEC_PER_SEC;
// The longest the interface thread waits for the server to answer.
constexpr pa_usec_t kAnswerUsec = 2 * PA_USEC_PER_SEC;
constexpr std::size_t kFrameBytes = 2 * sizeof(float);

void unref(pa_operation* operation) {
  if (operation != nullptr) pa_operation_unref(operation);
}

pa_mainloop_api* api(pa_threaded_mainloop* loop) { return pa_threaded_mainloop_get_api(loop); }

pa_cvolume stereoVolume(float linear) {
  pa_cvolume volume;
  pa_cvolume_set(&volume, 2, pa_sw_volume_from_linear(linear));
  return volume;
}

// What the server says of its default sink, gathered by two queries.
struct SinkAnswer {
  pa_threaded_mainloop* loop = nullptr;
  std::string sink;
  int rate = 0;
};

}  // namespace

class PulseOutput::Lock {
 public:
  explicit Lock(pa_threaded_mainloop* loop) : loop_(loop) { pa_threaded_mainloop_lock(loop_); }
  ~Lock() { pa_threaded_mainloop_unlock(loop_); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  pa_threaded_mainloop* loop_;
};

// libpulse's callbacks, all on the main loop's thread with its lock held.
struct PulseCallbacks {
  static PulseOutput& of(void* user) { return *static_cast<PulseOutput*>(user); }

  static void contextState(pa_context* context, void* user) {
    PulseOutput& self = of(user);
    if (self.stream_ != nullptr && !PA_CONTEXT_IS_GOOD(pa_context_get_state(context)))
      self.deviceLost();
    pa_threaded_mainloop_signal(self.loop_, 0);
  }

  static void streamState(pa_stream* stream, void* user) {
    PulseOutput& self = of(user);
    if (!PA_STREAM_IS_GOOD(pa_stream_get_state(stream))) self.deviceLost();
    pa_threaded_mainloop_signal(self.loop_, 0);
  }

  static void write(pa_stream* /*stream*/, std::size_t /*bytes*/, void* user) { of(user).fill(); }

  static void fillSoon(pa_mainloop_api* loop, pa_defer_event* event, void* user) {
    loop->defer_enable(event, 0);
    of(user).fill();
  }

  static void drained(pa_stream* /*stream*/, int success, void* user) {
    if (success != 0) of(user).drained();
  }

  static void releaseTimer(pa_mainloop_api* loop, pa_time_event* event, const timeval* /*when*/,
                           void* user) {
    PulseOutput& self = of(user);
    loop->time_free(event);
    self.releaseTimer_ = nullptr;
    if (self.state_ == PulseOutput::State::Resting) self.release();
  }

  static void serverInfo(pa_context* /*context*/, const pa_server_info* info, void* user) {
    auto& answer = *static_cast<SinkAnswer*>(user);
    if (info != nullptr) {
      answer.rate = static_cast<int>(info->sample_spec.rate);
      if (info->default_sink_name != nullptr) answer.sink = info->default_sink_name;
    }
    pa_threaded_mainloop_signal(answer.loop, 0);
  }

  static void sinkInfo(pa_context* /*context*/, const pa_sink_info* info, int /*last*/,
                       void* user) {
    auto& answer = *static_cast<SinkAnswer*>(user);
    if (info != nullptr) answer.rate = static_cast<int>(info->sample_spec.rate);
    pa_threaded_mainloop_signal(answer.loop, 0);
  }
};

PulseOutput::PulseOutput(int rate) : rate_(rate) {
  loop_ = pa_threaded_mainloop_new();
  if (loop_ != nullptr && pa_threaded_mainloop_start(loop_) < 0) {
    pa_threaded_mainloop_free(loop_);
    loop_ = nullptr;
  }
}

std::unique_ptr<PulseOutput> PulseOutput::open(int wishedRate) {
  auto output = std::make_unique<PulseOutput>(wishedRate);
  if (output->loop_ == nullptr) return nullptr;
  bool answered = false;
  {
    const Lock lock(output->loop_);
    answered = output->connect();
    if (answered) {
      const int rate = output->askSinkRate();
      if (rate >= 8000 && rate <= 192000) output->rate_ = rate;
    }
    output->release();
    output->fillSoon_ =
        api(output->loop_)->defer_new(api(output->loop_), PulseCallbacks::fillSoon, output.get());
    if (output->fillSoon_ != nullptr) api(output->loop_)->defer_enable(output->fillSoon_, 0);
  }
  if (!answered || output->fillSoon_ == nullptr) return nullptr;
  return output;
}

PulseOutput::~PulseOutput() {
  stop();
  if (loop_ != nullptr) pa_threaded_mainloop_free(loop_);
}

void PulseOutput::stop() noexcept {
  if (loop_ == nullptr || stopped_) return;
  stopped_ = true;
  {
    const Lock lock(loop_);
    if (fillSoon_ != nullptr) {
      api(loop_)->defer_free(fillSoon_);
      fillSoon_ = nullptr;
    }
    release();
  }
  pa_threaded_mainloop_stop(loop_);
  if (fallback_) fallback_->stop();
}

// ---- Waiting for the server (interface thread, lock held) ----

bool PulseOutput::waitUntil(const auto& done) {
  struct Deadline {
    pa_threaded_mainloop* loop;
    bool passed = false;
  } deadline{loop_};
  pa_time_event* timer = pa_context_rttime_new(
      context_, pa_rtclock_now() + kAnswerUsec,
      [](pa_mainloop_api*, pa_time_event*, const timeval*, void* user) {
        auto& d = *static_cast<Deadline*>(user);
        d.passed = true;
        pa_threaded_mainloop_signal(d.loop, 0);
      },
      &deadline);
  while (!done() && !deadline.passed) pa_threaded_mainloop_wait(loop_);
  if (timer != nullptr) api(loop_)->time_free(timer);
  return done();
}

bool PulseOutput::await(pa_operation* operation) {
  if (operation == nullptr) return false;
  const bool done =
      waitUntil([&] { return pa_operation_get_state(operation) != PA_OPERATION_RUNNING; });
  pa_operation_unref(operation);
  return done;
}

bool PulseOutput::connect() {
  context_ = pa_context_new(api(loop_), kName);
  if (context_ == nullptr) return false;
  pa_context_set_state_callback(context_, PulseCallbacks::contextState, this);
  if (pa_context_connect(context_, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) return false;
  waitUntil([&] {
    const pa_context_state_t state = pa_context_get_state(context_);
    return state == PA_CONTEXT_READY || !PA_CONTEXT_IS_GOOD(state);
  });
  return pa_context_get_state(context_) == PA_CONTEXT_READY;
}

// The default sink's own rate, else the server's; 0 when neither answers.
int PulseOutput::askSinkRate() {
  SinkAnswer answer;
  answer.loop = loop_;
  if (!await(pa_context_get_server_info(context_, PulseCallbacks::serverInfo, &answer))) return 0;
  if (!answer.sink.empty())
    await(pa_context_get_sink_info_by_name(context_, answer.sink.c_str(), PulseCallbacks::sinkInfo,
                                           &answer));
  return answer.rate;
}

bool PulseOutput::openStream() {
  const pa_sample_spec format{PA_SAMPLE_FLOAT32NE, static_cast<std::uint32_t>(rate_), 2};
  pa_channel_map map;
  pa_channel_map_init_stereo(&map);
  stream_ = pa_stream_new(context_, kName, &format, &map);
  if (stream_ == nullptr) return false;
  pa_stream_set_state_callback(stream_, PulseCallbacks::streamState, this);
  pa_stream_set_write_callback(stream_, PulseCallbacks::write, this);
  pa_buffer_attr buffer;
  buffer.maxlength = static_cast<std::uint32_t>(-1);
  buffer.tlength = static_cast<std::uint32_t>(pa_usec_to_bytes(kBufferUsec, &format));
  buffer.prebuf = static_cast<std::uint32_t>(-1);
  buffer.minreq = static_cast<std::uint32_t>(-1);
  buffer.fragsize = static_cast<std::uint32_t>(-1);
  const pa_cvolume volume = stereoVolume(volume_);
  const auto flags = static_cast<pa_stream_flags_t>(
      PA_STREAM_ADJUST_LATENCY | PA_STREAM_INTERPOLATE_TIMING | PA_STREAM_AUTO_TIMING_UPDATE);
  if (pa_stream_connect_playback(stream_, nullptr, &buffer, flags, &volume, nullptr) < 0)
    return false;
  waitUntil([&] {
    const pa_stream_state_t state = pa_stream_get_state(stream_);
    return state == PA_STREAM_READY || !PA_STREAM_IS_GOOD(state);
  });
  sinceFlush_ = 0;
  return pa_stream_get_state(stream_) == PA_STREAM_READY;
}

void PulseOutput::release() noexcept {
  cancelRest();
  if (stream_ != nullptr) {
    pa_stream_set_state_callback(stream_, nullptr, nullptr);
    pa_stream_set_write_callback(stream_, nullptr, nullptr);
    pa_stream_disconnect(stream_);
    pa_stream_unref(stream_);
    stream_ = nullptr;
  }
  if (context_ != nullptr) {
    pa_context_set_state_callback(context_, nullptr, nullptr);
    pa_context_disconnect(context_);
    pa_context_unref(context_);
    context_ = nullptr;
  }
  state_ = State::Released;
}

// ---- Playing (main loop thread, or lock held) ----

bool PulseOutput::start(AudioSource& source) {
  const Lock lock(loop_);
  source_ = &source;
  if (lost()) return fallback_->start(source);
  if (state_ == State::Running) return true;
  if (state_ == State::Released) {
    if (!connect() || !openStream()) {
      release();
      return false;
    }
  }
  cancelRest();
  state_ = State::Running;
  api(loop_)->defer_enable(fillSoon_, 1);
  return true;
}

void PulseOutput::fill() noexcept {
  if (state_ != State::Running || stream_ == nullptr || source_ == nullptr || lost()) return;
  std::size_t wanted = pa_stream_writable_size(stream_);
  if (wanted == static_cast<std::size_t>(-1)) return;
  wanted -= wanted % kFrameBytes;
  while (wanted > 0) {
    void* data = nullptr;
    std::size_t bytes = wanted;
    if (pa_stream_begin_write(stream_, &data, &bytes) < 0 || data == nullptr) return;
    bytes = std::min(bytes, wanted);
    bytes -= bytes % kFrameBytes;
    if (bytes == 0) {
      pa_stream_cancel_write(stream_);
      return;
    }
    const std::size_t frames = bytes / kFrameBytes;
    const std::size_t sounding = source_->render(static_cast<float*>(data), frames);
    // Only what sounds is queued: a song started soon after must not wait
    // behind silence.
    if (sounding == 0) {
      pa_stream_cancel_write(stream_);
    } else if (pa_stream_write(stream_, data, sounding * kFrameBytes, nullptr, 0,
                               PA_SEEK_RELATIVE) < 0) {
      return;
    }
    sinceFlush_ += sounding;
    wanted -= bytes;
    if (sounding < frames) {
      rest();
      return;
    }
  }
}

// Nothing sounds: what the server holds is played out, then the stream is
// corked so that the server rests, and released after a while.
void PulseOutput::rest() noexcept {
  state_ = State::Draining;
  // A stream flushed and given nothing since never starts, so it would
  // never drain either: it has nothing to play out.
  if (sinceFlush_ == 0) {
    drained();
    return;
  }
  drain_ = pa_stream_drain(stream_, PulseCallbacks::drained, this);
}

void PulseOutput::drained() noexcept {
  unref(drain_);
  drain_ = nullptr;
  if (state_ != State::Draining) return;
  unref(pa_stream_cork(stream_, 1, nullptr, nullptr));
  state_ = State::Resting;
  releaseTimer_ = pa_context_rttime_new(context_, pa_rtclock_now() + kReleaseAfterUsec,
                                        PulseCallbacks::releaseTimer, this);
}

void PulseOutput::cancelRest() noexcept {
  if (drain_ != nullptr) {
    pa_operation_cancel(drain_);
    unref(drain_);
    drain_ = nullptr;
  }
  if (releaseTimer_ != nullptr) {
    api(loop_)->time_free(releaseTimer_);
    releaseTimer_ = nullptr;
  }
  if (state_ == State::Resting && stream_ != nullptr)
    unref(pa_stream_cork(stream_, 0, nullptr, nullptr));
}

// The server went away: a null output keeps the pace. The dead stream and
// connection stay until stop(), so that no callback frees what called it.
void PulseOutput::deviceLost() noexcept {
  if (lost()) return;
  const bool playing = state_ == State::Running || state_ == State::Draining;
  fallback_ = std::make_unique<NullOutput>(rate_);
  lost_.store(true, std::memory_order_release);
  if (playing && source_ != nullptr) fallback_->start(*source_);
}

// ---- What is heard (interface thread) ----

// The server's latency, in frames: what it holds and the sink's own delay.
// Right after a flush the server has not told it yet; the last one known
// stands in, never more than what was written since.
std::uint64_t PulseOutput::unheardFrames() const noexcept {
  if (lost() || stream_ == nullptr || state_ == State::Released || state_ == State::Resting)
    return 0;
  pa_usec_t usec = 0;
  int negative = 0;
  if (pa_stream_get_latency(stream_, &usec, &negative) == 0)
    lastLatency_ = negative != 0 ? 0 : usec * static_cast<std::uint64_t>(rate_) / PA_USEC_PER_SEC;
  return std::min(lastLatency_, sinceFlush_);
}

std::uint64_t PulseOutput::heardFrame() const noexcept {
  if (loop_ == nullptr) return 0;
  const Lock lock(loop_);
  if (source_ == nullptr) return 0;
  const std::uint64_t rendered = source_->renderedFrames();
  return rendered - std::min(rendered, unheardFrames());
}

void PulseOutput::discard(const Rewind& rewind) {
  const Lock lock(loop_);
  if (source_ == nullptr || lost() || stream_ == nullptr || state_ == State::Released ||
      state_ == State::Resting) {
    rewind(kAllHeard);
    return;
  }
  const std::uint64_t rendered = source_->renderedFrames();
  rewind(rendered - std::min(rendered, unheardFrames()));
  unref(pa_stream_flush(stream_, nullptr, nullptr));
  sinceFlush_ = 0;
  cancelRest();
  state_ = State::Running;
  api(loop_)->defer_enable(fillSoon_, 1);
}

bool PulseOutput::setVolume(float volume) noexcept {
  const Lock lock(loop_);
  volume_ = volume;
  if (lost()) return false;
  if (stream_ != nullptr && state_ != State::Released) {
    const pa_cvolume levels = stereoVolume(volume);
    unref(pa_context_set_sink_input_volume(context_, pa_stream_get_index(stream_), &levels, nullptr,
                                           nullptr));
  }
  return true;
}

}  // namespace yarvo::audio
