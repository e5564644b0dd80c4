#include "CaptureOutput.h"

#include <chrono>
#include <stdexcept>
#include <utility>

namespace yarvo::audio::test {

bool CaptureOutput::start(AudioSource& source) {
  source_ = &source;
  if (pace_ == Pace::RealTime && !thread_.joinable()) {
    thread_ = std::jthread([this](std::stop_token stop) {
      using Clock = std::chrono::steady_clock;
      const std::size_t frames = static_cast<std::size_t>(rate_ / 100);
      std::vector<float> buffer(2 * frames);
      auto next = Clock::now();
      while (!stop.stop_requested()) {
        source_->render(buffer.data(), frames);
        {
          std::lock_guard lock(mutex_);
          captured_.insert(captured_.end(), buffer.begin(), buffer.end());
        }
        next += std::chrono::milliseconds(10);
        std::this_thread::sleep_until(next);
      }
    });
  }
  return true;
}

void CaptureOutput::stop() noexcept {
  if (thread_.joinable()) {
    thread_.request_stop();
    thread_.join();
  }
}

void CaptureOutput::pump(std::size_t frames) {
  if (pace_ != Pace::Manual || source_ == nullptr)
    throw std::logic_error("pump needs a started manual output");
  std::vector<float> buffer(2 * frames);
  source_->render(buffer.data(), frames);
  std::lock_guard lock(mutex_);
  captured_.insert(captured_.end(), buffer.begin(), buffer.end());
}

std::vector<float> CaptureOutput::take() {
  std::lock_guard lock(mutex_);
  return std::exchange(captured_, {});
}

}  // namespace yarvo::audio::test
