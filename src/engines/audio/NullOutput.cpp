#include "engines/audio/NullOutput.h"

#include <chrono>

namespace yarvo::audio {
namespace {
constexpr int kPeriodsPerSecond = 100;
// Behind by more than this (a suspended machine), the clock starts afresh
// rather than rushing to catch up.
constexpr auto kMaxLag = std::chrono::milliseconds(200);
}  // namespace

NullOutput::NullOutput(int rate)
    : rate_(rate), buffer_(2 * static_cast<std::size_t>(rate / kPeriodsPerSecond)) {}

NullOutput::~NullOutput() { stop(); }

bool NullOutput::start(AudioSource& source) {
  {
    std::lock_guard lock(mutex_);
    ++starts_;
  }
  if (thread_.joinable()) {
    wake_.notify_all();
    return true;
  }
  source_ = &source;
  thread_ = std::jthread([this](std::stop_token stop) { run(std::move(stop)); });
  return true;
}

void NullOutput::run(std::stop_token stop) {
  using Clock = std::chrono::steady_clock;
  const auto period =
      std::chrono::duration_cast<Clock::duration>(std::chrono::seconds(1)) / kPeriodsPerSecond;
  const std::size_t frames = buffer_.size() / 2;
  auto next = Clock::now();
  while (!stop.stop_requested()) {
    std::uint64_t seen = 0;
    {
      std::lock_guard lock(mutex_);
      seen = starts_;
    }
    if (source_->render(buffer_.data(), frames) < frames) {
      std::unique_lock lock(mutex_);
      wake_.wait(lock, stop, [&] { return starts_ != seen; });
      next = Clock::now();
      continue;
    }
    next += period;
    const auto now = Clock::now();
    if (now - next > kMaxLag) next = now;
    std::this_thread::sleep_until(next);
  }
}

void NullOutput::stop() noexcept {
  if (thread_.joinable()) {
    thread_.request_stop();
    thread_.join();
  }
}

}  // namespace yarvo::audio
