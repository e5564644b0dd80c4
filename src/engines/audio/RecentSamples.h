#pragma once
// The last few thousand frames a channel handed to the output, kept for
// BASS_ChannelGetData.
//
// The output thread appends; the interface thread copies the newest frames
// out. Samples are relaxed atomics, so a read that races a write gets a mix of
// old and new frames, never a torn float; the ring is large enough that a write
// cannot lap a copy in progress.

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace yarvo::audio {

class RecentSamples {
 public:
  RecentSamples(std::size_t frames, int channels);

  [[nodiscard]] int channels() const noexcept { return channels_; }

  // Output thread.
  void append(const float* interleaved, std::size_t frames) noexcept;

  // Frames appended so far.
  [[nodiscard]] std::uint64_t written() const noexcept {
    return written_.load(std::memory_order_acquire);
  }

  // Interface thread: the `frames` frames that end `skip` frames before the
  // newest, oldest first, zeros where nothing was written yet. `frames` +
  // `skip` is at most the capacity given.
  void newest(float* interleaved, std::size_t frames, std::size_t skip = 0) const noexcept;

 private:
  std::size_t capacity_;
  int channels_;
  std::unique_ptr<std::atomic<float>[]> ring_;
  std::atomic<std::uint64_t> written_{0};
};

}  // namespace yarvo::audio
