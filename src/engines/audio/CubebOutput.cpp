#include "engines/audio/CubebOutput.h"

#include <cubeb/cubeb.h>

#include <algorithm>
#include <cstring>

namespace yarvo::audio {
namespace {
constexpr int kLatencyMs = 20;
constexpr char kName[] = "Yarvo Player";
}  // namespace

// The stream's callbacks, on cubeb's threads.
struct CubebCallbacks {
  static long data(cubeb_stream* /*stream*/, void* user, const void* /*input*/, void* output,
                   long frames) {
    auto* self = static_cast<CubebOutput*>(user);
    const auto count = static_cast<std::size_t>(frames);
    if (self->failed_.load(std::memory_order_acquire))
      std::memset(output, 0, count * 2 * sizeof(float));
    else
      self->source_->render(static_cast<float*>(output), count);
    return frames;
  }

  static void state(cubeb_stream* /*stream*/, void* user, cubeb_state state) {
    if (state != CUBEB_STATE_ERROR) return;
    auto* self = static_cast<CubebOutput*>(user);
    {
      std::lock_guard lock(self->mutex_);
      self->failed_.store(true, std::memory_order_release);
    }
    self->failure_.notify_all();
  }
};

CubebOutput::CubebOutput(cubeb* context, int rate) : context_(context), rate_(rate) {}

std::unique_ptr<CubebOutput> CubebOutput::open(int wishedRate) {
  cubeb* context = nullptr;
  if (cubeb_init(&context, kName, nullptr) != CUBEB_OK || context == nullptr) return nullptr;
  std::uint32_t preferred = 0;
  const int rate =
      cubeb_get_preferred_sample_rate(context, &preferred) == CUBEB_OK && preferred >= 8000
          ? static_cast<int>(preferred)
          : wishedRate;
  auto output = std::make_unique<CubebOutput>(context, rate);
  const int latency = std::max(rate * kLatencyMs / 1000, 64);
  if (!output->openStream(latency)) return nullptr;
  return output;
}

bool CubebOutput::openStream(int latencyFrames) {
  cubeb_stream_params params{};
  params.format = CUBEB_SAMPLE_FLOAT32NE;
  params.rate = static_cast<std::uint32_t>(rate_);
  params.channels = 2;
  params.layout = CUBEB_LAYOUT_STEREO;
  params.prefs = CUBEB_STREAM_PREF_NONE;
  std::uint32_t minimum = 0;
  if (cubeb_get_min_latency(context_, &params, &minimum) == CUBEB_OK)
    latencyFrames = std::max(latencyFrames, static_cast<int>(minimum));
  return cubeb_stream_init(context_, &stream_, kName, nullptr, nullptr, nullptr, &params,
                           static_cast<std::uint32_t>(latencyFrames), CubebCallbacks::data,
                           CubebCallbacks::state, this) == CUBEB_OK &&
         stream_ != nullptr;
}

CubebOutput::~CubebOutput() {
  stop();
  if (stream_ != nullptr) cubeb_stream_destroy(stream_);
  cubeb_destroy(context_);
}

bool CubebOutput::start(AudioSource& source) {
  if (running_) return true;
  source_ = &source;
  running_ = cubeb_stream_start(stream_) == CUBEB_OK;
  if (running_)
    watchdog_ = std::jthread([this](std::stop_token stop) { takeOverOnFailure(std::move(stop)); });
  return running_;
}

void CubebOutput::takeOverOnFailure(std::stop_token stop) {
  {
    std::unique_lock lock(mutex_);
    failure_.wait(lock, stop, [this] { return failed_.load(std::memory_order_acquire); });
  }
  if (stop.stop_requested()) return;
  fallback_ = std::make_unique<NullOutput>(rate_);
  fallback_->start(*source_);
}

void CubebOutput::stop() noexcept {
  if (!running_) return;
  cubeb_stream_stop(stream_);
  watchdog_.request_stop();
  if (watchdog_.joinable()) watchdog_.join();
  if (fallback_) fallback_->stop();
  running_ = false;
}

}  // namespace yarvo::audio
