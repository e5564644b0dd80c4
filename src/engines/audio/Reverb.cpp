#include "engines/audio/Reverb.h"

#include "engines/audio/WideRegisters.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <numbers>

namespace yarvo::audio {
namespace {

// Line lengths at 44.1 kHz, 32 to 63 ms, mutually prime so their echoes do
// not pile up on common multiples.
constexpr std::array<std::size_t, Reverb::kLines> kLineLengths{1433, 1601, 1867, 2053,
                                                               2251, 2399, 2617, 2789};
// Diffuser lengths at 44.1 kHz (2.4 to 8.6 ms) and their feedback.
constexpr std::array<std::size_t, Reverb::kDiffusers> kDiffuserLengths{142, 107, 379, 277};
constexpr std::array<float, Reverb::kDiffusers> kDiffuserGains{0.75f, 0.75f, 0.625f, 0.625f};
constexpr float kShelfHz = 3000.0f;
constexpr float kSilentDb = -96.0f;
constexpr double kWetSmoothingSeconds = 0.01;
// Level of the early reflections against the input.
constexpr float kEarlyGain = 0.4f;
// 1/sqrt(8): keeps the input, the matrix and the taps at unit energy.
constexpr float kNorm = 0.35355339f;

float dbToGain(float db) noexcept { return db <= kSilentDb ? 0.0f : std::pow(10.0f, db / 20.0f); }

// Four lines in one SSE register (GCC and Clang vector extension); the eight
// lines are two of them, lo (0-3) and hi (4-7).
using V4 = float __attribute__((vector_size(16)));
using V4i = int __attribute__((vector_size(16)));

V4 load4(const float* p) noexcept {
  V4 v;
  std::memcpy(&v, p, sizeof v);
  return v;
}

void store4(float* p, V4 v) noexcept { std::memcpy(p, &v, sizeof v); }

// {v[i] + v[j], v[i] - v[j], ...}: adding a value times -1 is subtracting it,
// exactly, so each lane sums as the plain formula does.
V4 butterfly(V4 v, V4i first, V4i second, V4 sign) noexcept {
  return __builtin_shuffle(v, first) + __builtin_shuffle(v, second) * sign;
}

// Orthonormal 8-point Walsh-Hadamard transform of lo and hi in place, rows in
// natural order. Row 1 has the signs 1, -1, 1, -1, ... and row 2 the signs
// 1, 1, -1, -1, ...: the left and right outputs are those two rows,
// orthogonal, so the sides are decorrelated and the tail is wide.
void hadamard(V4& lo, V4& hi) noexcept {
  const V4 a = lo + hi;
  const V4 b = lo - hi;
  const V4 outer{1, 1, -1, -1};
  const V4 inner{1, -1, 1, -1};
  const V4 a2 = butterfly(a, V4i{0, 1, 0, 1}, V4i{2, 3, 2, 3}, outer);
  const V4 b2 = butterfly(b, V4i{0, 1, 0, 1}, V4i{2, 3, 2, 3}, outer);
  lo = butterfly(a2, V4i{0, 0, 2, 2}, V4i{1, 1, 3, 3}, inner) * kNorm;
  hi = butterfly(b2, V4i{0, 0, 2, 2}, V4i{1, 1, 3, 3}, inner) * kNorm;
}
constexpr std::size_t kLeftRow = 1;
constexpr std::size_t kRightRow = 2;

// All eight lines in one AVX register.
using V8 = float __attribute__((vector_size(32)));
using V8i = int __attribute__((vector_size(32)));

[[gnu::always_inline]] inline V8 load8(const float* p) noexcept {
  V8 v;
  std::memcpy(&v, p, sizeof v);
  return v;
}

// One stage of the transform: lane i with lane i ^ stride, the lower one
// getting the sum and the upper one the difference.
template <int Stride>
[[gnu::always_inline]] inline V8 butterfly8(V8 v) noexcept {
  V8i partner;
  V8 sign;
  for (int i = 0; i < 8; ++i) {
    partner[i] = i ^ Stride;
    sign[i] = (i & Stride) != 0 ? -1.0f : 1.0f;
  }
  return v * sign + __builtin_shuffle(v, partner);
}

// The same transform as hadamard(), on one register and without the scale,
// which the wide loop folds into its gains.
[[gnu::always_inline]] inline V8 hadamard8(V8 v) noexcept {
  return butterfly8<1>(butterfly8<2>(butterfly8<4>(v)));
}

// Lane i of frame j of the lines' returns is lane i of row j of line i's
// reading: whole rows loaded and blended, rather than eight loads and stores
// of single samples.
[[gnu::always_inline]] inline V8 returnsOf(const std::array<const float*, Reverb::kLines>& rows,
                                           std::size_t at) noexcept {
  V8 v = load8(rows[0] + at);
  v = __builtin_shuffle(v, load8(rows[1] + at), V8i{0, 9, 2, 3, 4, 5, 6, 7});
  v = __builtin_shuffle(v, load8(rows[2] + at), V8i{0, 1, 10, 3, 4, 5, 6, 7});
  v = __builtin_shuffle(v, load8(rows[3] + at), V8i{0, 1, 2, 11, 4, 5, 6, 7});
  v = __builtin_shuffle(v, load8(rows[4] + at), V8i{0, 1, 2, 3, 12, 5, 6, 7});
  v = __builtin_shuffle(v, load8(rows[5] + at), V8i{0, 1, 2, 3, 4, 13, 6, 7});
  v = __builtin_shuffle(v, load8(rows[6] + at), V8i{0, 1, 2, 3, 4, 5, 14, 7});
  return __builtin_shuffle(v, load8(rows[7] + at), V8i{0, 1, 2, 3, 4, 5, 6, 15});
}

}  // namespace

void Reverb::Delay::init(std::size_t samples) {
  length = std::max<std::size_t>(samples, 1);
  buffer.assign(std::bit_ceil(length + kMaxBlock), 0.0f);
  mask = buffer.size() - 1;
}

Reverb::Reverb(int rate, int channels) : rate_(rate), channels_(channels) {
  const double scale = rate / 44100.0;
  for (std::size_t i = 0; i < kLines; ++i)
    lineLengths_[i] = std::max<std::size_t>(
        1, static_cast<std::size_t>(std::lround(static_cast<double>(kLineLengths[i]) * scale)));
  const std::size_t frames = std::bit_ceil(lineLengths_.back() + 1);
  ring_.assign(frames * kLines, 0.0f);
  ringMask_ = frames - 1;
  for (std::size_t i = 0; i < kDiffusers; ++i)
    diffusers_[i].init(
        static_cast<std::size_t>(std::lround(static_cast<double>(kDiffuserLengths[i]) * scale)));
  shelfCoef_ =
      1.0f - std::exp(-2.0f * std::numbers::pi_v<float> * kShelfHz / static_cast<float>(rate));
  wetSmoothing_ = static_cast<float>(1.0 - std::exp(-1.0 / (kWetSmoothingSeconds * rate)));
  for (const Delay& d : diffusers_) blockFrames_ = std::min(blockFrames_, d.length);
  blockFrames_ = std::min(blockFrames_, lineLengths_.front());
}

bool Reverb::setParameters(const void* record) noexcept {
  const auto* p = static_cast<const BASS_DX8_REVERB*>(record);
  if (std::isnan(p->fInGain) || std::isnan(p->fReverbMix) || std::isnan(p->fReverbTime) ||
      std::isnan(p->fHighFreqRTRatio))
    return false;
  inGainDb_.store(std::clamp(p->fInGain, kSilentDb, 0.0f), std::memory_order_relaxed);
  mixDb_.store(std::clamp(p->fReverbMix, kSilentDb, 0.0f), std::memory_order_relaxed);
  timeMs_.store(std::clamp(p->fReverbTime, 0.001f, 3000.0f), std::memory_order_relaxed);
  hfRatio_.store(std::clamp(p->fHighFreqRTRatio, 0.001f, 0.999f), std::memory_order_relaxed);
  version_.fetch_add(1, std::memory_order_release);
  return true;
}

void Reverb::getParameters(void* record) const noexcept {
  auto* p = static_cast<BASS_DX8_REVERB*>(record);
  p->fInGain = inGainDb_.load(std::memory_order_relaxed);
  p->fReverbMix = mixDb_.load(std::memory_order_relaxed);
  p->fReverbTime = timeMs_.load(std::memory_order_relaxed);
  p->fHighFreqRTRatio = hfRatio_.load(std::memory_order_relaxed);
}

void Reverb::updateParameters() noexcept {
  inGain_ = dbToGain(inGainDb_.load(std::memory_order_relaxed));
  wetTarget_ = dbToGain(mixDb_.load(std::memory_order_relaxed));
  const double seconds = static_cast<double>(timeMs_.load(std::memory_order_relaxed)) / 1000.0;
  const double highSeconds =
      seconds * static_cast<double>(hfRatio_.load(std::memory_order_relaxed));
  for (std::size_t i = 0; i < kLines; ++i) {
    // A pass through a line of d samples must lose d / (T60 * rate) of 60 dB.
    const double passes = static_cast<double>(lineLengths_[i]) / rate_;
    lowGain_[i] = static_cast<float>(std::pow(10.0, -3.0 * passes / seconds));
    highGain_[i] = static_cast<float>(std::pow(10.0, -3.0 * passes / highSeconds));
  }
}

// A Schroeder all-pass over a block no longer than its delay, so that every
// sample it reads was written before the block began. `early`, when given,
// gets what circulates in it, at the level of the early reflections.
void Reverb::allpass(Delay& d, float g, std::size_t frames, float* early) noexcept {
  const std::size_t size = d.mask + 1;
  for (std::size_t k = 0; k < frames;) {
    // A run in which neither the reads nor the writes wrap. The ring is a
    // block longer than the delay, so what the run reads and what it writes
    // never meet: the arithmetic runs several samples at a time.
    const std::size_t from = (cursor_ + k - d.length) & d.mask;
    const std::size_t to = (cursor_ + k) & d.mask;
    const std::size_t run = std::min({frames - k, size - from, size - to});
    const float* __restrict out = d.buffer.data() + from;
    float* __restrict x = block_.data() + k;
    float* __restrict w = d.buffer.data() + to;
    for (std::size_t j = 0; j < run; ++j) {
      w[j] = x[j] + g * out[j];
      x[j] = out[j] - g * w[j];
    }
    if (early != nullptr)
      for (std::size_t j = 0; j < run; ++j) early[k + j] = out[j] * kEarlyGain;
    k += run;
  }
}

// The early reflections: what circulates in the last two diffusers, one for
// each side, heard from a few milliseconds after the sound until the lines
// return it. Their delayed signal, not their output, which would also carry
// part of the sound itself with no delay at all.
void Reverb::diffuseBlock(std::size_t frames) noexcept {
  allpass(diffusers_[0], kDiffuserGains[0], frames, nullptr);
  allpass(diffusers_[1], kDiffuserGains[1], frames, nullptr);
  allpass(diffusers_[2], kDiffuserGains[2], frames, earlyLeft_.data());
  allpass(diffusers_[3], kDiffuserGains[3], frames, earlyRight_.data());
}

void Reverb::process(float* interleaved, std::size_t frames) noexcept {
  if (const auto version = version_.load(std::memory_order_acquire); version != seen_) {
    const bool first = seen_ == 0;
    seen_ = version;
    updateParameters();
    if (first) wet_ = wetTarget_;
  }
  if (resting()) return;
  const auto chans = static_cast<std::size_t>(channels_);
  while (frames > 0) {
    const std::size_t n = std::min(frames, blockFrames_);
    processBlock(interleaved, n);
    interleaved += n * chans;
    frames -= n;
  }
}

// At -96 dB nothing of the tail is heard: once the level has come down to
// it, the network stops and the signal passes as it is. When the level rises
// again the network starts from silence, not from what it held when it
// stopped.
bool Reverb::resting() noexcept {
  constexpr float kUnheard = 1e-5f;  // -100 dB
  if (wetTarget_ == 0.0f && wet_ < kUnheard) {
    wet_ = 0.0f;
    return true;
  }
  if (wet_ == 0.0f) silence();
  return false;
}

void Reverb::silence() noexcept {
  std::fill(ring_.begin(), ring_.end(), 0.0f);
  for (Delay& d : diffusers_) std::fill(d.buffer.begin(), d.buffer.end(), 0.0f);
  shelfState_.fill(0.0f);
}

void Reverb::processBlock(float* interleaved, std::size_t frames) noexcept {
  const auto chans = static_cast<std::size_t>(channels_);
  const float inScale = inGain_ / static_cast<float>(chans);
  if (chans == 2) {
    // The common case, as a loop the compiler runs several frames at a time.
    for (std::size_t k = 0; k < frames; ++k)
      block_[k] = (interleaved[2 * k] + interleaved[2 * k + 1]) * inScale;
  } else {
    for (std::size_t k = 0; k < frames; ++k) {
      float mono = 0.0f;
      for (std::size_t c = 0; c < chans; ++c) mono += interleaved[k * chans + c];
      block_[k] = mono * inScale;
    }
  }
  diffuseBlock(frames);

  for (std::size_t k = 0; k < frames;) k += runLines(k, frames - k);
  cursor_ += frames;
  if (chans == 2)
    mixStereo(interleaved, frames);
  else
    mixAny(interleaved, frames);
}

// The lines over frames [k, k + most) of the block, up to the first frame
// at which a line's reading or the writing wraps around the ring; returns
// how many frames ran. Within the run every line reads consecutive frames,
// so its samples are found without masking.
std::size_t Reverb::runLines(std::size_t k, std::size_t most) noexcept {
  const std::size_t size = ringMask_ + 1;
  const std::size_t to = (cursor_ + k) & ringMask_;
  std::size_t run = std::min(most, size - to);
  // Where each line's reading starts: a row of the ring, of which the line
  // takes its own lane.
  std::array<const float*, kLines> rows{};
  for (std::size_t i = 0; i < kLines; ++i) {
    const std::size_t from = (cursor_ + k - lineLengths_[i]) & ringMask_;
    run = std::min(run, size - from);
    rows[i] = ring_.data() + from * kLines;
  }
  float* write = ring_.data() + to * kLines;
  if (wideRegisters())
    runLinesWide(rows, write, k, run);
  else
    runLinesNarrow(rows, write, k, run);
  return run;
}

void Reverb::runLinesNarrow(const std::array<const float*, kLines>& rows, float* write,
                            std::size_t k, std::size_t run) noexcept {
  // The input enters every line, with signs of its own.
  const V4 feed = V4{-1, 1, -1, 1} * kNorm;
  const V4 highLo = load4(highGain_.data());
  const V4 highHi = load4(highGain_.data() + 4);
  const V4 restLo = load4(lowGain_.data()) - highLo;
  const V4 restHi = load4(lowGain_.data() + 4) - highHi;
  const V4 coef = V4{} + shelfCoef_;
  const V4 keep = 1.0f - coef;
  // What the lines return, frame by frame: vector loads, rather than vectors
  // built from eight loads each.
  std::array<float, kMaxBlock * kLines> returned;
  for (std::size_t j = 0; j < run; ++j)
    for (std::size_t i = 0; i < kLines; ++i) returned[j * kLines + i] = rows[i][j * kLines + i];
  V4 shelfLo = load4(shelfState_.data());
  V4 shelfHi = load4(shelfState_.data() + 4);
  for (std::size_t j = 0; j < run; ++j) {
    const std::size_t at = j * kLines;
    const V4 outLo = load4(returned.data() + at);
    const V4 outHi = load4(returned.data() + at + 4);
    // Shelf: the low part decays at lowGain, the rest at highGain.
    shelfLo = keep * shelfLo + coef * outLo;
    shelfHi = keep * shelfHi + coef * outHi;
    V4 lo = highLo * outLo + restLo * shelfLo;
    V4 hi = highHi * outHi + restHi * shelfHi;
    hadamard(lo, hi);
    wetLeft_[k + j] = lo[kLeftRow] + earlyLeft_[k + j];
    wetRight_[k + j] = lo[kRightRow] + earlyRight_[k + j];
    const float in = block_[k + j];
    store4(write + at, lo + feed * in);
    store4(write + at + 4, hi + feed * in);
  }
  store4(shelfState_.data(), shelfLo);
  store4(shelfState_.data() + 4, shelfHi);
}

// The same network with the eight lines in one register, for processors with
// AVX2 and FMA; the transform's scale is folded into the gains and the feed.
[[gnu::target("avx2,fma")]] void Reverb::runLinesWide(const std::array<const float*, kLines>& rows,
                                                      float* write, std::size_t k,
                                                      std::size_t run) noexcept {
  const V8 feed = V8{-1, 1, -1, 1, -1, 1, -1, 1} * kNorm;
  const V8 high = load8(highGain_.data());
  const V8 scaledHigh = high * kNorm;
  const V8 scaledRest = (load8(lowGain_.data()) - high) * kNorm;
  const V8 coef = V8{} + shelfCoef_;
  const V8 keep = 1.0f - coef;
  V8 shelf = load8(shelfState_.data());
  // A copy the stores below cannot reach, so the pointers stay in registers.
  const std::array<const float*, kLines> from = rows;
  for (std::size_t j = 0; j < run; ++j) {
    const std::size_t at = j * kLines;
    const V8 out = returnsOf(from, at);
    shelf = keep * shelf + coef * out;
    const V8 mixed = hadamard8(scaledHigh * out + scaledRest * shelf);
    wetLeft_[k + j] = mixed[kLeftRow] + earlyLeft_[k + j];
    wetRight_[k + j] = mixed[kRightRow] + earlyRight_[k + j];
    const V8 next = mixed + feed * block_[k + j];
    std::memcpy(write + at, &next, sizeof next);
  }
  std::memcpy(shelfState_.data(), &shelf, sizeof shelf);
}

// The wet level lives in a register: the samples are floats too, and a store
// to them would otherwise reload it every frame. Once a step leaves it where
// it was, every later step does too: the rest of the block needs no steps,
// which frees the frames from waiting on each other.
void Reverb::mixStereo(float* interleaved, std::size_t frames) noexcept {
  float wet = wet_;
  const float target = wetTarget_;
  const float smoothing = wetSmoothing_;
  std::size_t k = 0;
  for (bool moving = true; k < frames && moving; ++k) {
    const float next = wet + smoothing * (target - wet);
    moving = next != wet;
    wet = next;
    interleaved[2 * k] += wet * wetLeft_[k];
    interleaved[2 * k + 1] += wet * wetRight_[k];
  }
  for (; k < frames; ++k) {
    interleaved[2 * k] += wet * wetLeft_[k];
    interleaved[2 * k + 1] += wet * wetRight_[k];
  }
  wet_ = wet;
}

void Reverb::mixAny(float* interleaved, std::size_t frames) noexcept {
  const auto chans = static_cast<std::size_t>(channels_);
  float wet = wet_;
  for (std::size_t k = 0; k < frames; ++k) {
    wet += wetSmoothing_ * (wetTarget_ - wet);
    for (std::size_t c = 0; c < chans; ++c)
      interleaved[k * chans + c] += wet * (c % 2 == 0 ? wetLeft_[k] : wetRight_[k]);
  }
  wet_ = wet;
}

}  // namespace yarvo::audio
