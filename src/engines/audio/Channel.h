#pragma once
// One stream or module: its decoder, the decode thread that keeps a short
// queue of decoded audio ahead of the output, its effects, and the record of
// what went to the output: the recent samples and the trail that tells which
// of them are heard at any output frame.
//
// Threads: the constructor, the destructor and every public function but
// mixInto() belong to the interface thread; mixInto() to the output thread.
// They share atomics and the lock-free block queue. The decode thread touches
// the decoder and the producer side of the queue, nothing else. The one mutex
// only pairs with the two condition variables that wake the decode thread
// (after a seek or at destruction) and the output thread: always for outputs
// that are not real-time; for a real-time one only while the decoder has
// just started (after a play or a seek) and has nothing yet, so that the
// output does not play silence in place of the song's first blocks.
//
// Effects run on the decoded samples at the file's own rate, after the queue,
// so a parameter change is heard as soon as the output has played what it had
// already taken, whatever the queue holds.
//
// Output frames are numbered as the mixer counts them (Mixer::renderedFrames);
// the functions that take a `heardFrame` answer for what is heard at that
// output frame, which for an output that holds a buffer lies behind what the
// channel has rendered.

#include "engines/audio/Bass.h"
#include "engines/audio/BlockQueue.h"
#include "engines/audio/Decoder.h"
#include "engines/audio/Effect.h"
#include "engines/audio/PositionTrail.h"
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
  // Frames kept for BASS_ChannelGetData: what the largest output buffer
  // holds and a spectrum's worth before it.
  static constexpr std::size_t kRecentFrames = 32768;

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
  // A BASS_ACTIVE_ value. A channel that reached its end plays until the end
  // is heard.
  [[nodiscard]] DWORD activity(std::uint64_t heardFrame) const noexcept;

  // The source frame heard at output frame `heardFrame`.
  [[nodiscard]] std::uint64_t position(std::uint64_t heardFrame) const noexcept;
  // False beyond the end.
  bool setPosition(std::uint64_t frame);
  // Moves the channel back to the frame heard at `heardFrame`, where the
  // output threw away what came after: the channel renders it again, a
  // channel that was halting with its fade out. False when nothing the
  // channel rendered was thrown away.
  bool rewind(std::uint64_t heardFrame);

  // Interface thread: the newest `frames` frames heard by output frame
  // `heardFrame`, oldest first, zeros where nothing was heard yet.
  void heardSamples(float* interleaved, std::size_t frames,
                    std::uint64_t heardFrame) const noexcept;

  // What one mixInto() added: nothing (and nothing until the channel plays
  // again), the last of its sound, or sound with more to come.
  enum class Mix { Silent, Ending, Sounding };

  // Output thread: adds up to `frames` (<= kMaxRenderFrames) stereo frames at
  // the output rate into `stereo`, the first of them output frame
  // `outputFrame`. With `offline` the call waits for the decoder instead of
  // letting the output run dry (for outputs that are not real-time).
  Mix mixInto(float* stereo, std::size_t frames, bool offline, std::uint64_t outputFrame) noexcept;

 private:
  enum State : int { Stopped, Playing, Paused, Ended };
  static constexpr std::size_t kMaxEffects = 32;

  void decodeLoop(std::stop_token stop);
  bool fillBlock(AudioBlock& block, std::uint64_t& nextFrame, std::uint32_t generation) noexcept;
  void wakeDecoder();
  void tellOutput(bool atEnd);
  std::chrono::milliseconds untilHalfPlayed() const noexcept;
  void seekTo(std::uint64_t frame, bool fade);

  void takeSeek() noexcept;
  std::size_t renderAtOutputRate(float* out, std::size_t frames, bool offline) noexcept;
  std::size_t pullSource(float* out, std::size_t frames, bool offline) noexcept;
  void runEffects(float* samples, std::size_t frames) noexcept;
  bool waitForData(bool offline) noexcept;
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
  // Source frames handed to the output so far.
  std::atomic<std::uint64_t> position_{0};
  std::atomic<std::uint64_t> seekTarget_{0};
  std::atomic<std::uint32_t> seekGeneration_{0};
  // With the seek: fade out from the new place (a rewind of a halting
  // channel) rather than stay silent.
  std::atomic<bool> seekFades_{false};
  // The output frame after the last one of the file, once it was reached.
  std::atomic<std::uint64_t> endFrame_{0};
  // Set while the output thread waits for a decoder that has just started.
  std::atomic<bool> outputWaits_{false};

  std::array<std::atomic<Effect*>, kMaxEffects> chain_{};
  std::atomic<std::size_t> chainLength_{0};
  std::vector<std::unique_ptr<Effect>> effects_;

  BlockQueue queue_;
  RecentSamples recent_;
  PositionTrail trail_;

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
  // Output frames still to come from a decoder that has just started (a
  // play, a seek): while they last the output thread waits for the decoder
  // rather than play silence in its place.
  std::size_t primeLeft_ = 0;
  const std::size_t primeFrames_;

  std::mutex mutex_;
  std::condition_variable_any wakeDecoder_;
  std::condition_variable dataReady_;
  // Last: stopped and joined before anything it uses is destroyed.
  std::jthread decodeThread_;
};

}  // namespace yarvo::audio
