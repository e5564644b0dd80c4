#pragma once
// One stream or module: its decoder, the decode thread that keeps a short
// queue of decoded audio ahead of the output, its effects, and the record of
// what was last heard.
//
// Threads: the constructor, the destructor and every public function but
// mixInto() belong to the interface thread; mixInto() to the output thread.
// They share atomics and the lock-free block queue. The decode thread touches
// the decoder and the producer side of the queue, nothing else. The one mutex
// only pairs with the two condition variables that wake the decode thread
// (after a seek or at destruction) and, for outputs that are not real-time,
// the output thread; a real-time output thread never takes it.
//
// Effects run on the decoded samples at the file's own rate, after the queue,
// so a parameter change is heard as soon as the output has played what it had
// already taken (one output period), whatever the queue holds.

#include "engines/audio/Bass.h"
#include "engines/audio/BlockQueue.h"
#include "engines/audio/Decoder.h"
#include "engines/audio/Effect.h"
#include "engines/audio/RecentSamples.h"
#include "engines/audio/Resampler.h"

#include <array>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

namespace yarvo::audio {

class Channel {
 public:
  enum class Kind { Stream, Music };

  // The most output frames one mixInto() call may ask for.
  static constexpr std::size_t kMaxRenderFrames = 512;
  // Frames kept for BASS_ChannelGetData.
  static constexpr std::size_t kRecentFrames = 8192;

  // Starts the decode thread; the channel is stopped at position 0. Throws
  // std::bad_alloc or std::system_error, which the library's entry points
  // turn into a 0 handle.
  Channel(Kind kind, std::unique_ptr<Decoder> decoder, std::string path, DWORD flags,
          int outputRate);
  ~Channel();
  Channel(const Channel&) = delete;
  Channel& operator=(const Channel&) = delete;

  [[nodiscard]] Kind kind() const noexcept { return kind_; }
  [[nodiscard]] int rate() const noexcept { return rate_; }
  [[nodiscard]] int channels() const noexcept { return channels_; }
  [[nodiscard]] std::uint64_t lengthFrames() const noexcept { return lengthFrames_; }
  [[nodiscard]] DWORD flags() const noexcept { return flags_; }
  [[nodiscard]] DWORD contentType() const noexcept { return contentType_; }
  [[nodiscard]] const std::string& path() const noexcept { return path_; }

  // Appends an effect to the chain; it runs after those added before it.
  // nullptr when the chain is full.
  Effect* addEffect(std::unique_ptr<Effect> effect);

  void play(bool restart);
  // False when the channel is not playing.
  bool pause();
  void stop();
  // A BASS_ACTIVE_ value.
  [[nodiscard]] DWORD activity() const noexcept;

  // Source frames handed to the output so far.
  [[nodiscard]] std::uint64_t position() const noexcept;
  // False beyond the end.
  bool setPosition(std::uint64_t frame);

  [[nodiscard]] const RecentSamples& recent() const noexcept { return recent_; }

  // Output thread: adds up to `frames` (<= kMaxRenderFrames) stereo frames at
  // the output rate into `stereo`. With `offline` the call waits for the
  // decoder instead of letting the output run dry (for outputs that are not
  // real-time).
  void mixInto(float* stereo, std::size_t frames, bool offline) noexcept;

 private:
  enum State : int { Stopped, Playing, Paused, Ended };
  static constexpr std::size_t kMaxEffects = 32;

  void decodeLoop(std::stop_token stop);
  bool fillBlock(AudioBlock& block, std::uint64_t& nextFrame, std::uint32_t generation) noexcept;
  void wakeDecoder();
  std::chrono::milliseconds untilHalfPlayed() const noexcept;

  std::size_t renderAtOutputRate(float* out, std::size_t frames, bool offline) noexcept;
  std::size_t pullSource(float* out, std::size_t frames, bool offline) noexcept;
  void runEffects(float* samples, std::size_t frames) noexcept;
  bool waitForData() noexcept;
  void releaseFront(bool offline) noexcept;
  void addWithRamp(const float* native, std::size_t frames, float* stereo) noexcept;

  const Kind kind_;
  std::unique_ptr<Decoder> decoder_;
  const std::string path_;
  const DWORD flags_;
  const int rate_;
  const int channels_;
  const std::uint64_t lengthFrames_;
  const DWORD contentType_;

  std::atomic<int> state_{Stopped};
  std::atomic<std::uint64_t> position_{0};
  std::atomic<std::uint64_t> seekTarget_{0};
  std::atomic<std::uint32_t> seekGeneration_{0};

  std::array<std::atomic<Effect*>, kMaxEffects> chain_{};
  std::atomic<std::size_t> chainLength_{0};
  std::vector<std::unique_ptr<Effect>> effects_;

  BlockQueue queue_;
  RecentSamples recent_;

  // Output thread only.
  std::unique_ptr<Resampler> resampler_;
  std::vector<float> source_;
  std::size_t sourceOffset_ = 0;
  std::size_t sourceFrames_ = 0;
  std::vector<float> native_;
  std::size_t blockOffset_ = 0;
  std::uint32_t consumerGeneration_ = 0;
  float ramp_ = 0.0f;
  float rampStep_;

  std::mutex mutex_;
  std::condition_variable_any wakeDecoder_;
  std::condition_variable dataReady_;
  // Last: stopped and joined before anything it uses is destroyed.
  std::jthread decodeThread_;
};

}  // namespace yarvo::audio
