#include "engines/audio/Channel.h"

#include "engines/audio/ParamEq.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace yarvo::audio {
namespace {

constexpr std::size_t kBlockFrames = 1024;
// Decoded audio kept ahead of the output: enough to ride out a slow disk or a
// busy machine, small enough that a seek or a free never waits long.
constexpr double kQueueSeconds = 0.5;
constexpr std::size_t kMinBlocks = 8;
// Pause, stop and resume fade over this long, so they do not click.
constexpr double kRampSeconds = 0.005;
// The shortest sleep of the decode thread. A real-time output never wakes it,
// so that it makes no system calls on its behalf: the thread sleeps until half
// the queue will have been played, and then fills it again.
constexpr auto kDecoderPoll = std::chrono::milliseconds(10);
// An offline output gives up on a decoder that produces nothing for this long.
constexpr auto kOfflineWait = std::chrono::seconds(2);
// After a play or a seek a real-time output waits for the decoder's first
// blocks, at most this long each time, for this much of the output: what a
// sound server asks for at once when it starts.
constexpr auto kPrimeWait = std::chrono::milliseconds(50);
constexpr double kPrimeSeconds = 0.5;

std::size_t queueBlocks(int rate) {
  const auto frames = static_cast<std::size_t>(std::ceil(kQueueSeconds * rate));
  return std::max(kMinBlocks, frames / kBlockFrames + 1);
}

}  // namespace

Channel::Channel(Kind kind, std::unique_ptr<Decoder> decoder, std::string path, DWORD flags,
                 int outputRate)
    : kind_(kind),
      decoder_(std::move(decoder)),
      path_(std::move(path)),
      flags_(flags),
      rate_(decoder_->rate()),
      channels_(decoder_->channels()),
      lengthFrames_(decoder_->lengthFrames()),
      contentType_(decoder_->contentType()),
      queue_(queueBlocks(rate_), kBlockFrames, channels_),
      recent_(kRecentFrames, channels_),
      rampStep_(static_cast<float>(1.0 / (kRampSeconds * outputRate))),
      primeFrames_(static_cast<std::size_t>(kPrimeSeconds * outputRate)) {
  const auto chans = static_cast<std::size_t>(channels_);
  effects_.reserve(kMaxEffects);
  source_.resize(kMaxRenderFrames * chans);
  native_.resize(kMaxRenderFrames * chans);
  if (rate_ != outputRate) {
    resampler_ = Resampler::create(channels_, rate_, outputRate);
    if (!resampler_) throw std::bad_alloc();
  }
  decodeThread_ = std::jthread([this](std::stop_token stop) { decodeLoop(std::move(stop)); });
}

Channel::~Channel() {
  decodeThread_.request_stop();
  wakeDecoder();
}

Effect* Channel::addEffect(std::unique_ptr<Effect> effect) {
  const std::size_t count = chainLength_.load(std::memory_order_relaxed);
  if (count == kMaxEffects) return nullptr;
  Effect* raw = effect.get();
  effects_.push_back(std::move(effect));
  chain_[count].store(raw, std::memory_order_relaxed);
  chainLength_.store(count + 1, std::memory_order_release);
  return raw;
}

void Channel::play(bool restart) {
  if (restart || state_.load(std::memory_order_acquire) == Ended) setPosition(0);
  state_.store(Playing, std::memory_order_release);
  wakeDecoder();
}

bool Channel::pause() {
  int expected = Playing;
  return state_.compare_exchange_strong(expected, Paused, std::memory_order_acq_rel);
}

void Channel::stop() {
  int state = state_.load(std::memory_order_acquire);
  while (state != Ended &&
         !state_.compare_exchange_weak(state, Stopped, std::memory_order_acq_rel)) {
  }
}

DWORD Channel::activity(std::uint64_t heardFrame) const noexcept {
  switch (state_.load(std::memory_order_acquire)) {
    case Playing:
      return BASS_ACTIVE_PLAYING;
    case Paused:
      return BASS_ACTIVE_PAUSED;
    case Ended:
      return heardFrame < endFrame_.load(std::memory_order_acquire) ? BASS_ACTIVE_PLAYING
                                                                    : BASS_ACTIVE_STOPPED;
    default:
      return BASS_ACTIVE_STOPPED;
  }
}

// Until the output has taken a seek, what is heard of the channel is still
// on the way to the new place: the place is the answer.
std::uint64_t Channel::position(std::uint64_t heardFrame) const noexcept {
  PositionTrail::Heard heard;
  if (!trail_.at(heardFrame, seekGeneration_.load(std::memory_order_acquire), heard))
    return seekTarget_.load(std::memory_order_relaxed);
  return heard.position;
}

void Channel::heardSamples(float* interleaved, std::size_t frames,
                           std::uint64_t heardFrame) const noexcept {
  const std::uint64_t written = recent_.written();
  PositionTrail::Heard heard;
  std::uint64_t skip = 0;
  if (trail_.at(heardFrame, seekGeneration_.load(std::memory_order_acquire), heard))
    skip = written - std::min(heard.recent, written);
  skip = std::min<std::uint64_t>(skip, kRecentFrames - frames);
  recent_.newest(interleaved, frames, static_cast<std::size_t>(skip));
}

bool Channel::setPosition(std::uint64_t frame) {
  if (frame > lengthFrames_) return false;
  seekTo(frame, false);
  // A channel that ended waits at the new position for the next play.
  int expected = Ended;
  state_.compare_exchange_strong(expected, Stopped, std::memory_order_acq_rel);
  return true;
}

// A channel that ended keeps its end: the output threw away the rest of it.
bool Channel::rewind(std::uint64_t heardFrame) {
  const int state = state_.load(std::memory_order_acquire);
  if (state == Ended) return false;
  const std::uint64_t heard = position(heardFrame);
  if (heard >= position_.load(std::memory_order_relaxed)) return false;
  seekTo(heard, state != Playing);
  return true;
}

void Channel::seekTo(std::uint64_t frame, bool fade) {
  seekTarget_.store(frame, std::memory_order_relaxed);
  seekFades_.store(fade, std::memory_order_relaxed);
  seekGeneration_.fetch_add(1, std::memory_order_release);
  position_.store(frame, std::memory_order_relaxed);
  wakeDecoder();
}

void Channel::wakeDecoder() {
  { std::lock_guard lock(mutex_); }
  wakeDecoder_.notify_all();
}

// ---- Decode thread ----

bool Channel::fillBlock(AudioBlock& block, std::uint64_t& nextFrame,
                        std::uint32_t generation) noexcept {
  const auto chans = static_cast<std::size_t>(channels_);
  std::size_t filled = 0;
  while (filled < kBlockFrames) {
    const std::size_t got =
        decoder_->read(block.samples.data() + filled * chans, kBlockFrames - filled);
    if (got == 0) break;
    filled += got;
  }
  block.firstFrame = nextFrame;
  block.frames = filled;
  block.generation = generation;
  block.endOfStream = filled == 0;
  nextFrame += filled;
  return block.endOfStream;
}

void Channel::decodeLoop(std::stop_token stop) {
  // Generation 0 starts at frame 0. A seek made before this thread ran is
  // a later generation, so the loop below takes it.
  std::uint32_t generation = 0;
  std::uint64_t nextFrame = 0;
  bool atEnd = false;
  bool seekFailed = false;
  while (!stop.stop_requested()) {
    if (const auto wanted = seekGeneration_.load(std::memory_order_acquire); wanted != generation) {
      generation = wanted;
      nextFrame = seekTarget_.load(std::memory_order_relaxed);
      seekFailed = !decoder_->seek(nextFrame);
      atEnd = false;
    }
    if (!atEnd) {
      if (AudioBlock* block = queue_.beginWrite()) {
        if (seekFailed) {
          block->firstFrame = nextFrame;
          block->frames = 0;
          block->generation = generation;
          block->endOfStream = true;
          atEnd = true;
        } else {
          atEnd = fillBlock(*block, nextFrame, generation);
        }
        queue_.commitWrite();
        tellOutput(atEnd);
        continue;
      }
    }
    const auto due = [&] {
      return seekGeneration_.load(std::memory_order_acquire) != generation ||
             (!atEnd && queue_.size() <= queue_.capacity() / 2);
    };
    std::unique_lock lock(mutex_);
    // A channel that does not play takes nothing from the queue: the thread
    // sleeps until a seek, a play or the end of the channel wakes it.
    if (state_.load(std::memory_order_acquire) == Playing)
      wakeDecoder_.wait_for(lock, stop, untilHalfPlayed(), due);
    else
      wakeDecoder_.wait(lock, stop,
                        [&] { return due() || state_.load(std::memory_order_acquire) == Playing; });
  }
}

// An offline output waits only on an empty queue and is woken when the queue
// fills to half (or the end comes), for the same reason it wakes this thread
// only at half: few switches between the threads. A real-time output that
// waits for a decoder just started is woken by its first block.
void Channel::tellOutput(bool atEnd) {
  std::atomic_thread_fence(std::memory_order_seq_cst);
  if (atEnd || queue_.size() == queue_.capacity() / 2 ||
      outputWaits_.load(std::memory_order_relaxed)) {
    { std::lock_guard lock(mutex_); }
    dataReady_.notify_one();
  }
}

// How long an output playing in real time takes to play the queue down to
// half: a few wake-ups a second instead of one every few milliseconds.
std::chrono::milliseconds Channel::untilHalfPlayed() const noexcept {
  const std::size_t size = queue_.size();
  const std::size_t half = queue_.capacity() / 2;
  const std::size_t frames = size > half ? (size - half) * kBlockFrames : 0;
  const auto ms = std::chrono::milliseconds(frames * 1000 / static_cast<std::size_t>(rate_));
  return std::max(kDecoderPoll, ms);
}

// ---- Output thread ----

bool Channel::waitForData(bool offline) noexcept {
  if (!offline) {
    outputWaits_.store(true, std::memory_order_relaxed);
    std::atomic_thread_fence(std::memory_order_seq_cst);
  }
  std::unique_lock lock(mutex_);
  const bool ready = dataReady_.wait_for(lock, offline ? kOfflineWait : kPrimeWait,
                                         [&] { return !queue_.empty(); });
  outputWaits_.store(false, std::memory_order_relaxed);
  return ready;
}

// An offline output wakes the decoder only once half the queue is free, so
// that it decodes many blocks per wake-up rather than one block per switch
// between the threads.
void Channel::releaseFront(bool offline) noexcept {
  queue_.pop();
  blockOffset_ = 0;
  if (offline && queue_.size() <= queue_.capacity() / 2) wakeDecoder();
}

std::size_t Channel::pullSource(float* out, std::size_t frames, bool offline) noexcept {
  const auto chans = static_cast<std::size_t>(channels_);
  std::size_t done = 0;
  while (done < frames) {
    AudioBlock* block = queue_.front();
    if (block == nullptr) {
      if ((offline || primeLeft_ > 0) && waitForData(offline)) continue;
      break;
    }
    if (block->generation != consumerGeneration_) {
      releaseFront(offline);
      continue;
    }
    if (block->endOfStream) {
      // Left at the front if a pause or stop came first, so the end is found
      // again on resume.
      int expected = Playing;
      state_.compare_exchange_strong(expected, Ended, std::memory_order_acq_rel);
      break;
    }
    const std::size_t n = std::min(frames - done, block->frames - blockOffset_);
    std::copy_n(block->samples.data() + blockOffset_ * chans, n * chans, out + done * chans);
    done += n;
    blockOffset_ += n;
    // A seek asked for since this block began owns the position now.
    if (seekGeneration_.load(std::memory_order_relaxed) == consumerGeneration_)
      position_.store(block->firstFrame + blockOffset_, std::memory_order_relaxed);
    if (blockOffset_ == block->frames) releaseFront(offline);
  }
  if (done > 0) {
    runEffects(out, done);
    recent_.append(out, done);
  }
  return done;
}

void Channel::runEffects(float* samples, std::size_t frames) noexcept {
  const std::size_t effects = chainLength_.load(std::memory_order_acquire);
  std::array<ParamEq*, kMaxEffects> bands{};
  for (std::size_t i = 0; i < effects;) {
    Effect* effect = chain_[i].load(std::memory_order_relaxed);
    if (effect->asBand() == nullptr) {
      effect->process(samples, frames);
      ++i;
      continue;
    }
    std::size_t count = 0;
    for (; i < effects; ++i) {
      ParamEq* band = chain_[i].load(std::memory_order_relaxed)->asBand();
      if (band == nullptr) break;
      bands[count++] = band;
    }
    ParamEq::processCascade(bands.data(), count, samples, frames);
  }
}

void Channel::takeSeek() noexcept {
  const auto generation = seekGeneration_.load(std::memory_order_acquire);
  if (generation == consumerGeneration_) return;
  consumerGeneration_ = generation;
  blockOffset_ = 0;
  sourceFrames_ = 0;
  sourceOffset_ = 0;
  if (resampler_) resampler_->reset();
  if (seekFades_.load(std::memory_order_relaxed)) ramp_ = 1.0f;
  primeLeft_ = primeFrames_;
}

std::size_t Channel::renderAtOutputRate(float* out, std::size_t frames, bool offline) noexcept {
  if (!resampler_) return pullSource(out, frames, offline);
  const auto chans = static_cast<std::size_t>(channels_);
  std::size_t done = 0;
  while (done < frames) {
    if (sourceFrames_ == 0) {
      sourceOffset_ = 0;
      sourceFrames_ = pullSource(source_.data(), kMaxRenderFrames, offline);
      if (sourceFrames_ == 0) break;
    }
    std::size_t consumed = sourceFrames_;
    std::size_t produced = frames - done;
    resampler_->process(source_.data() + sourceOffset_ * chans, consumed, out + done * chans,
                        produced);
    sourceOffset_ += consumed;
    sourceFrames_ -= consumed;
    done += produced;
    if (consumed == 0 && produced == 0) break;
  }
  return done;
}

void Channel::addWithRamp(const float* native, std::size_t frames, float* stereo) noexcept {
  const float target = state_.load(std::memory_order_acquire) == Playing ? 1.0f : 0.0f;
  const auto chans = static_cast<std::size_t>(channels_);
  if (chans == 2 && ramp_ == 1.0f && target == 1.0f) {
    for (std::size_t i = 0; i < 2 * frames; ++i) stereo[i] += native[i];
    return;
  }
  for (std::size_t f = 0; f < frames; ++f) {
    ramp_ =
        target > ramp_ ? std::min(target, ramp_ + rampStep_) : std::max(target, ramp_ - rampStep_);
    const float* in = native + f * chans;
    float left = in[0];
    float right = in[0];
    if (chans == 2) {
      right = in[1];
    } else if (chans > 2) {
      // Odd channels to the right, even to the left, each side averaged.
      left = right = 0.0f;
      for (std::size_t c = 0; c < chans; ++c) (c % 2 == 0 ? left : right) += in[c];
      left /= static_cast<float>((chans + 1) / 2);
      right /= static_cast<float>(chans / 2);
    }
    stereo[2 * f] += ramp_ * left;
    stereo[2 * f + 1] += ramp_ * right;
  }
}

Channel::Mix Channel::mixInto(float* stereo, std::size_t frames, bool offline,
                              std::uint64_t outputFrame) noexcept {
  takeSeek();
  const int state = state_.load(std::memory_order_acquire);
  if (state == Ended) ramp_ = 0.0f;
  if (state != Playing && ramp_ == 0.0f) return Mix::Silent;
  if (state != Playing) {
    // Fading out: take only what the fade still needs, so a paused channel's
    // position stops where its sound stopped.
    const auto left = static_cast<std::size_t>(std::ceil(ramp_ / rampStep_));
    frames = std::min(frames, left);
  } else if (ramp_ == 0.0f) {
    primeLeft_ = primeFrames_;
  }
  const std::uint64_t from = position_.load(std::memory_order_relaxed);
  const std::size_t made = renderAtOutputRate(native_.data(), frames, offline);
  primeLeft_ -= std::min(primeLeft_, made);
  addWithRamp(native_.data(), made, stereo);
  if (made > 0)
    trail_.add({outputFrame, outputFrame + made, from, position_.load(std::memory_order_relaxed),
                recent_.written(), consumerGeneration_});
  if (state == Playing && state_.load(std::memory_order_acquire) == Ended)
    endFrame_.store(outputFrame + made, std::memory_order_release);
  if (state_.load(std::memory_order_acquire) == Playing || ramp_ > 0.0f) return Mix::Sounding;
  return made > 0 ? Mix::Ending : Mix::Silent;
}

}  // namespace yarvo::audio
