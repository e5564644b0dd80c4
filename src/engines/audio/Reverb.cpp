#include "engines/audio/Reverb.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <numbers>

namespace yarvo::audio {
namespace {

// Line lengths at 44.1 kHz, 32 to 63 ms, mutually prime so their echoes do
// not pile up on common multiples.
constexpr std::array<std::size_t, Reverb::kLines> kLineLengths{1433, 1601, 1867, 2053, 2251, 2399, 2617, 2789};
// Diffuser lengths at 44.1 kHz (2.4 to 8.6 ms) and their feedback.
constexpr std::array<std::size_t, Reverb::kDiffusers> kDiffuserLengths{142, 107, 379, 277};
constexpr std::array<float, Reverb::kDiffusers> kDiffuserGains{0.75f, 0.75f, 0.625f, 0.625f};
// Sign patterns of the two output taps: orthogonal rows of the Hadamard matrix.
constexpr std::array<float, Reverb::kLines> kLeftTap{1, -1, 1, -1, 1, -1, 1, -1};
constexpr std::array<float, Reverb::kLines> kRightTap{1, 1, -1, -1, 1, 1, -1, -1};
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

V4 load4(const float* p) noexcept {
  V4 v;
  std::memcpy(&v, p, sizeof v);
  return v;
}

void store4(float* p, V4 v) noexcept { std::memcpy(p, &v, sizeof v); }

float sum4(V4 v) noexcept { return (v[0] + v[1]) + (v[2] + v[3]); }

// Orthonormal 8-point Walsh-Hadamard transform of lo and hi in place.
void hadamard(V4& lo, V4& hi) noexcept {
  const V4 a = lo + hi;
  const V4 b = lo - hi;
  const V4 a2{a[0] + a[2], a[1] + a[3], a[0] - a[2], a[1] - a[3]};
  const V4 b2{b[0] + b[2], b[1] + b[3], b[0] - b[2], b[1] - b[3]};
  lo = V4{a2[0] + a2[1], a2[0] - a2[1], a2[2] + a2[3], a2[2] - a2[3]} * kNorm;
  hi = V4{b2[0] + b2[1], b2[0] - b2[1], b2[2] + b2[3], b2[2] - b2[3]} * kNorm;
}

}  // namespace

void Reverb::Delay::init(std::size_t samples) {
  length = std::max<std::size_t>(samples, 1);
  buffer.assign(std::bit_ceil(length + 1), 0.0f);
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
    diffusers_[i].init(static_cast<std::size_t>(std::lround(static_cast<double>(kDiffuserLengths[i]) * scale)));
  shelfCoef_ = 1.0f - std::exp(-2.0f * std::numbers::pi_v<float> * kShelfHz / static_cast<float>(rate));
  wetSmoothing_ = static_cast<float>(1.0 - std::exp(-1.0 / (kWetSmoothingSeconds * rate)));
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
  const double highSeconds = seconds * static_cast<double>(hfRatio_.load(std::memory_order_relaxed));
  for (std::size_t i = 0; i < kLines; ++i) {
    // A pass through a line of d samples must lose d / (T60 * rate) of 60 dB.
    const double passes = static_cast<double>(lineLengths_[i]) / rate_;
    lowGain_[i] = static_cast<float>(std::pow(10.0, -3.0 * passes / seconds));
    highGain_[i] = static_cast<float>(std::pow(10.0, -3.0 * passes / highSeconds));
  }
}

float Reverb::diffuse(float in, float& earlyLeft, float& earlyRight) noexcept {
  std::array<float, kDiffusers> stage{};
  for (std::size_t i = 0; i < kDiffusers; ++i) {
    Delay& d = diffusers_[i];
    const float g = kDiffuserGains[i];
    const float delayed = d.buffer[(cursor_ - d.length) & d.mask];
    const float w = in + g * delayed;
    in = delayed - g * w;
    d.buffer[cursor_ & d.mask] = w;
    stage[i] = delayed;
  }
  // The early reflections: what circulates in the last two diffusers, one
  // for each side, heard from a few milliseconds after the sound until the
  // lines return it. Their delayed signal, not their output, which would
  // also carry part of the sound itself with no delay at all.
  earlyLeft = stage[2] * kEarlyGain;
  earlyRight = stage[3] * kEarlyGain;
  return in;
}

void Reverb::process(float* interleaved, std::size_t frames) noexcept {
  if (const auto version = version_.load(std::memory_order_acquire); version != seen_) {
    const bool first = seen_ == 0;
    seen_ = version;
    updateParameters();
    if (first) wet_ = wetTarget_;
  }
  const auto chans = static_cast<std::size_t>(channels_);
  const float inScale = inGain_ / static_cast<float>(chans);
  // The loop keeps the eight lines' state in four registers.
  V4 shelfLo = load4(shelfState_.data());
  V4 shelfHi = load4(shelfState_.data() + 4);
  const V4 highLo = load4(highGain_.data());
  const V4 highHi = load4(highGain_.data() + 4);
  const V4 restLo = load4(lowGain_.data()) - highLo;
  const V4 restHi = load4(lowGain_.data() + 4) - highHi;
  const V4 leftLo = load4(kLeftTap.data());
  const V4 leftHi = load4(kLeftTap.data() + 4);
  const V4 rightLo = load4(kRightTap.data());
  const V4 rightHi = load4(kRightTap.data() + 4);
  // The input enters every line, with the signs of a third tap pattern.
  const V4 feedLo = V4{kLeftTap[3], kLeftTap[4], kLeftTap[5], kLeftTap[6]};
  const V4 feedHi = V4{kLeftTap[7], kLeftTap[0], kLeftTap[1], kLeftTap[2]};
  const V4 coef = V4{} + shelfCoef_;

  for (std::size_t f = 0; f < frames; ++f) {
    float* frame = interleaved + f * chans;
    float mono = 0.0f;
    for (std::size_t c = 0; c < chans; ++c) mono += frame[c];
    float earlyLeft = 0.0f;
    float earlyRight = 0.0f;
    const float in = diffuse(mono * inScale, earlyLeft, earlyRight) * kNorm;

    std::array<float, kLines> read{};
    for (std::size_t i = 0; i < kLines; ++i) read[i] = ring_[((cursor_ - lineLengths_[i]) & ringMask_) * kLines + i];
    const V4 outLo = load4(read.data());
    const V4 outHi = load4(read.data() + 4);
    // Shelf: the low part decays at lowGain, the rest at highGain.
    shelfLo += coef * (outLo - shelfLo);
    shelfHi += coef * (outHi - shelfHi);
    V4 yLo = highLo * outLo + restLo * shelfLo;
    V4 yHi = highHi * outHi + restHi * shelfHi;
    const float left = sum4(yLo * leftLo + yHi * leftHi) * kNorm + earlyLeft;
    const float right = sum4(yLo * rightLo + yHi * rightHi) * kNorm + earlyRight;
    hadamard(yLo, yHi);
    float* write = ring_.data() + (cursor_ & ringMask_) * kLines;
    store4(write, yLo + feedLo * in);
    store4(write + 4, yHi + feedHi * in);
    ++cursor_;

    wet_ += wetSmoothing_ * (wetTarget_ - wet_);
    for (std::size_t c = 0; c < chans; ++c) frame[c] += wet_ * ((c % 2 == 0) ? left : right);
  }
  store4(shelfState_.data(), shelfLo);
  store4(shelfState_.data() + 4, shelfHi);
}

}  // namespace yarvo::audio
