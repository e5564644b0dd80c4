#include "engines/audio/ParamEq.h"

#include "engines/audio/WideRegisters.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <numbers>
#include <utility>

namespace yarvo::audio {
namespace {

constexpr float kMinCenter = 80.0f;
constexpr float kMaxCenter = 16000.0f;
// Above this share of the rate the cookbook's bandwidth formula breaks down;
// a band set higher works at this frequency instead.
constexpr double kMaxCenterShareOfRate = 0.45;
constexpr std::size_t kMaxCascade = 32;

}  // namespace

ParamEq::ParamEq(int rate, int channels) : rate_(rate), channels_(channels) {}

bool ParamEq::setParameters(const void* record) noexcept {
  const auto* p = static_cast<const BASS_DX8_PARAMEQ*>(record);
  if (std::isnan(p->fCenter) || std::isnan(p->fBandwidth) || std::isnan(p->fGain)) return false;
  center_.store(std::clamp(p->fCenter, kMinCenter, kMaxCenter), std::memory_order_relaxed);
  bandwidth_.store(std::clamp(p->fBandwidth, 1.0f, 36.0f), std::memory_order_relaxed);
  gain_.store(std::clamp(p->fGain, -15.0f, 15.0f), std::memory_order_relaxed);
  version_.fetch_add(1, std::memory_order_release);
  return true;
}

void ParamEq::getParameters(void* record) const noexcept {
  auto* p = static_cast<BASS_DX8_PARAMEQ*>(record);
  p->fCenter = center_.load(std::memory_order_relaxed);
  p->fBandwidth = bandwidth_.load(std::memory_order_relaxed);
  p->fGain = gain_.load(std::memory_order_relaxed);
}

void ParamEq::updateCoefficients() noexcept {
  const auto gainDb = static_cast<double>(gain_.load(std::memory_order_relaxed));
  const bool wasBypassed = bypass_;
  bypass_ = gainDb == 0.0;
  if (bypass_) {
    k_ = Coefficients{};
    return;
  }
  if (wasBypassed) {
    z1_.fill(0.0f);
    z2_.fill(0.0f);
  }
  const double center = std::min(static_cast<double>(center_.load(std::memory_order_relaxed)),
                                 kMaxCenterShareOfRate * rate_);
  const double octaves = static_cast<double>(bandwidth_.load(std::memory_order_relaxed)) / 12.0;
  const double w0 = 2.0 * std::numbers::pi * center / rate_;
  const double sinW0 = std::sin(w0);
  const double alpha = sinW0 * std::sinh(std::numbers::ln2 / 2.0 * octaves * w0 / sinW0);
  const double a = std::pow(10.0, gainDb / 40.0);
  const double a0 = 1.0 + alpha / a;
  k_.b0 = static_cast<float>((1.0 + alpha * a) / a0);
  k_.b1 = static_cast<float>(-2.0 * std::cos(w0) / a0);
  k_.b2 = static_cast<float>((1.0 - alpha * a) / a0);
  k_.a1 = k_.b1;
  k_.a2 = static_cast<float>((1.0 - alpha / a) / a0);
}

bool ParamEq::refresh() noexcept {
  if (const auto version = version_.load(std::memory_order_acquire); version != seen_) {
    seen_ = version;
    updateCoefficients();
  }
  return !bypass_;
}

void ParamEq::process(float* interleaved, std::size_t frames) noexcept {
  ParamEq* self = this;
  processCascade(&self, 1, interleaved, frames);
}

void ParamEq::processCascade(ParamEq* const* bands, std::size_t count, float* interleaved,
                             std::size_t frames) noexcept {
  count = std::min(count, kMaxCascade);
  if (count == 0) return;
  if (bands[0]->channels_ == 2)
    cascadeStereo(bands, count, interleaved, frames);
  else
    cascadeAny(bands, count, interleaved, frames);
}

namespace {

// Bands side by side in one register (GCC and Clang vector extension), left
// and right of band s in lanes 2s and 2s + 1 of the whole wavefront: two bands
// to an SSE register, four to an AVX one.
using V4 = float __attribute__((vector_size(16)));
using V8 = float __attribute__((vector_size(32)));

// For each register type: its lane indices for shuffles, and the same bits
// as pairs of lanes, one stereo frame to a lane.
template <class Vec>
struct RegisterTypes;
template <>
struct RegisterTypes<V4> {
  using Index = std::int32_t __attribute__((vector_size(16)));
  using Frames = double __attribute__((vector_size(16)));
};
template <>
struct RegisterTypes<V8> {
  using Index = std::int32_t __attribute__((vector_size(32)));
  using Frames = double __attribute__((vector_size(32)));
};
template <class Vec>
using LaneIndex = typename RegisterTypes<Vec>::Index;
template <class Vec>
using FrameLanes = typename RegisterTypes<Vec>::Frames;
template <class Vec>
constexpr std::size_t kLanes = sizeof(Vec) / sizeof(float);

struct Wavefront {
  std::array<float, 2 * kMaxCascade> b0{}, b1{}, b2{}, a1{}, a2{}, z1{}, z2{}, in{};
};

template <class Vec>
[[gnu::always_inline]] inline Vec loadRegister(const std::array<float, 2 * kMaxCascade>& lanes,
                                               std::size_t r) noexcept {
  Vec v;
  std::memcpy(&v, lanes.data() + r * kLanes<Vec>, sizeof v);
  return v;
}

template <class Vec>
[[gnu::always_inline]] inline void storeRegister(std::array<float, 2 * kMaxCascade>& lanes,
                                                 std::size_t r, Vec v) noexcept {
  std::memcpy(lanes.data() + r * kLanes<Vec>, &v, sizeof v);
}

// `in` with lanes 0 and 1 replaced by the frame at `x`, loaded straight into
// a register: writing the lanes one by one goes through memory, and the wide
// load after two narrow stores stalls every frame.
template <class Vec>
[[gnu::always_inline]] inline Vec takeFrame(Vec in, const float* x) noexcept {
  double bits = 0.0;
  std::memcpy(&bits, x, sizeof bits);
  FrameLanes<Vec> frame{};
  frame[0] = bits;
  LaneIndex<Vec> keep;
  for (std::size_t i = 0; i < kLanes<Vec>; ++i)
    keep[i] = static_cast<std::int32_t>(i < 2 ? kLanes<Vec> + i : i);
  return __builtin_shuffle(in, reinterpret_cast<Vec>(frame), keep);
}

// Lanes 2 up from `low` and `high` taken as one: the two top lanes of `low`,
// then all but the two top lanes of `high`.
template <class Vec>
[[gnu::always_inline]] inline Vec shiftUp(Vec low, Vec high) noexcept {
  LaneIndex<Vec> from;
  for (std::size_t i = 0; i < kLanes<Vec>; ++i)
    from[i] = static_cast<std::int32_t>(kLanes<Vec> - 2 + i);
  return __builtin_shuffle(low, high, from);
}

// The frame loop for registers R..., every register index a constant, so
// that the compiler keeps the state in registers rather than in arrays on the
// stack. `out` is the frame lane of the last register that holds the last
// band. Each step is written so that what a frame waits for is short: z1 needs
// y only for its last term, and y needs only z1 and in.
template <class Vec, std::size_t... R>
[[gnu::always_inline]] inline void runWavefront(Wavefront& w, std::size_t out, float* interleaved,
                                                std::size_t frames,
                                                std::index_sequence<R...>) noexcept {
  constexpr std::size_t kLast = sizeof...(R) - 1;
  const std::array<Vec, sizeof...(R)> b0{loadRegister<Vec>(w.b0, R)...};
  const std::array<Vec, sizeof...(R)> b1{loadRegister<Vec>(w.b1, R)...};
  const std::array<Vec, sizeof...(R)> b2{loadRegister<Vec>(w.b2, R)...};
  const std::array<Vec, sizeof...(R)> a1{loadRegister<Vec>(w.a1, R)...};
  const std::array<Vec, sizeof...(R)> a2{loadRegister<Vec>(w.a2, R)...};
  std::array<Vec, sizeof...(R)> z1{loadRegister<Vec>(w.z1, R)...};
  std::array<Vec, sizeof...(R)> z2{loadRegister<Vec>(w.z2, R)...};
  std::array<Vec, sizeof...(R)> in{loadRegister<Vec>(w.in, R)...};
  std::array<Vec, sizeof...(R)> y{};
  for (std::size_t f = 0; f < frames; ++f) {
    float* x = interleaved + 2 * f;
    in[0] = takeFrame(in[0], x);
    ((y[R] = b0[R] * in[R] + z1[R], z1[R] = (b1[R] * in[R] + z2[R]) - a1[R] * y[R],
      z2[R] = b2[R] * in[R] - a2[R] * y[R]),
     ...);
    const double last = reinterpret_cast<FrameLanes<Vec>>(y[kLast])[out];
    std::memcpy(x, &last, sizeof last);
    // Each band's output moves on to the next band: two lanes up.
    ((in[R] = shiftUp(R == 0 ? Vec{} : y[R == 0 ? 0 : R - 1], y[R])), ...);
  }
  (storeRegister(w.z1, R, z1[R]), ...);
  (storeRegister(w.z2, R, z2[R]), ...);
  (storeRegister(w.in, R, in[R]), ...);
}

template <std::size_t Registers>
void runWavefrontSse(Wavefront& w, std::size_t out, float* interleaved,
                     std::size_t frames) noexcept {
  runWavefront<V4>(w, out, interleaved, frames, std::make_index_sequence<Registers>());
}

// The same code for processors with AVX2 and FMA: twice the bands to a
// register, and each multiply-add one instruction with one rounding.
template <std::size_t Registers>
[[gnu::target("avx2,fma")]] void runWavefrontAvx2(Wavefront& w, std::size_t out, float* interleaved,
                                                  std::size_t frames) noexcept {
  runWavefront<V8>(w, out, interleaved, frames, std::make_index_sequence<Registers>());
}

using WavefrontRun = void (*)(Wavefront&, std::size_t, float*, std::size_t) noexcept;

// By number of registers, less one.
template <std::size_t... R>
constexpr std::array<WavefrontRun, sizeof...(R)> sseTable(std::index_sequence<R...>) {
  return {&runWavefrontSse<R + 1>...};
}
template <std::size_t... R>
constexpr std::array<WavefrontRun, sizeof...(R)> avx2Table(std::index_sequence<R...>) {
  return {&runWavefrontAvx2<R + 1>...};
}
constexpr auto kSseWavefronts = sseTable(std::make_index_sequence<2 * kMaxCascade / 4>());
constexpr auto kAvx2Wavefronts = avx2Table(std::make_index_sequence<2 * kMaxCascade / 8>());

// The wavefront of `count` bands in the registers that suit the processor.
void runWavefront(Wavefront& w, std::size_t count, float* interleaved,
                  std::size_t frames) noexcept {
  if (wideRegisters())
    kAvx2Wavefronts[(count - 1) / 4](w, (count - 1) % 4, interleaved, frames);
  else
    kSseWavefronts[(count - 1) / 2](w, (count - 1) % 2, interleaved, frames);
}

}  // namespace

// A wavefront: band s works on frame t - s while band 0 takes frame t, so
// every band of every side computes at once, several bands to a register, and no
// band waits for the one before it within a frame. Each frame leaves the last
// band count - 1 frames after it entered the first. Bypassed bands run as the
// identity, so that this delay does not change with the sliders.
void ParamEq::cascadeStereo(ParamEq* const* bands, std::size_t count, float* interleaved,
                            std::size_t frames) noexcept {
  if (restingStereo(bands, count)) {
    delayStereo(bands, count, interleaved, frames);
    return;
  }
  Wavefront w;
  for (std::size_t s = 0; s < count; ++s) {
    ParamEq& band = *bands[s];
    band.refresh();
    for (std::size_t c = 0; c < 2; ++c) {
      const std::size_t lane = 2 * s + c;
      w.b0[lane] = band.k_.b0;
      w.b1[lane] = band.k_.b1;
      w.b2[lane] = band.k_.b2;
      w.a1[lane] = band.k_.a1;
      w.a2[lane] = band.k_.a2;
      w.z1[lane] = band.z1_[c];
      w.z2[lane] = band.z2_[c];
      w.in[lane] = band.pipe_[c];
    }
  }
  // Lanes past the last band have all-zero coefficients and stay zero.
  runWavefront(w, count, interleaved, frames);
  for (std::size_t s = 0; s < count; ++s) {
    ParamEq& band = *bands[s];
    for (std::size_t c = 0; c < 2; ++c) {
      band.z1_[c] = w.z1[2 * s + c];
      band.z2_[c] = w.z2[2 * s + c];
      band.pipe_[c] = w.in[2 * s + c];
    }
  }
}

bool ParamEq::restingStereo(ParamEq* const* bands, std::size_t count) noexcept {
  bool resting = true;
  for (std::size_t s = 0; s < count; ++s) {
    ParamEq& band = *bands[s];
    // Every band takes its new parameters, resting or not.
    resting = !band.refresh() && band.z1_[0] == 0.0f && band.z1_[1] == 0.0f &&
              band.z2_[0] == 0.0f && band.z2_[1] == 0.0f && resting;
  }
  return resting;
}

// The wavefront's identity bands pass each frame on one band per frame: the
// pipe of band s holds the input of s frames ago, and the output is the input
// of count - 1 frames ago. Only the sign of a zero sample may differ from
// running the identity filters.
void ParamEq::delayStereo(ParamEq* const* bands, std::size_t count, float* interleaved,
                          std::size_t frames) noexcept {
  const std::size_t delay = count - 1;
  if (delay == 0 || frames == 0) return;
  // The input as one history: the pipes, oldest first, then the block.
  std::array<float, 2 * kMaxCascade> older{};
  for (std::size_t s = 1; s <= delay; ++s) {
    for (std::size_t c = 0; c < 2; ++c) older[2 * (delay - s) + c] = bands[s]->pipe_[c];
  }
  auto history = [&](std::size_t frame, std::size_t c) {
    return frame < delay ? older[2 * frame + c] : interleaved[2 * (frame - delay) + c];
  };
  std::array<float, 2 * kMaxCascade> pipes{};
  for (std::size_t s = 1; s <= delay; ++s) {
    for (std::size_t c = 0; c < 2; ++c) pipes[2 * s + c] = history(delay + frames - s, c);
  }
  if (frames > delay) {
    std::copy_backward(interleaved, interleaved + 2 * (frames - delay), interleaved + 2 * frames);
  }
  for (std::size_t k = 0; k < std::min(frames, delay); ++k) {
    for (std::size_t c = 0; c < 2; ++c) interleaved[2 * k + c] = older[2 * k + c];
  }
  for (std::size_t s = 1; s <= delay; ++s) {
    for (std::size_t c = 0; c < 2; ++c) bands[s]->pipe_[c] = pipes[2 * s + c];
  }
  bands[0]->pipe_ = {};
}

void ParamEq::cascadeAny(ParamEq* const* bands, std::size_t count, float* interleaved,
                         std::size_t frames) noexcept {
  std::array<ParamEq*, kMaxCascade> active{};
  std::size_t n = 0;
  for (std::size_t i = 0; i < count; ++i)
    if (bands[i]->refresh()) active[n++] = bands[i];
  if (n == 0) return;
  const auto chans = static_cast<std::size_t>(active[0]->channels_);
  std::array<Coefficients, kMaxCascade> k{};
  for (std::size_t s = 0; s < n; ++s) k[s] = active[s]->k_;
  for (std::size_t c = 0; c < chans; ++c) {
    std::array<float, kMaxCascade> z1{}, z2{};
    for (std::size_t s = 0; s < n; ++s) {
      z1[s] = active[s]->z1_[c];
      z2[s] = active[s]->z2_[c];
    }
    float* x = interleaved + c;
    for (std::size_t f = 0; f < frames; ++f, x += chans) {
      float v = *x;
      for (std::size_t s = 0; s < n; ++s) {
        const float out = k[s].b0 * v + z1[s];
        z1[s] = k[s].b1 * v - k[s].a1 * out + z2[s];
        z2[s] = k[s].b2 * v - k[s].a2 * out;
        v = out;
      }
      *x = v;
    }
    for (std::size_t s = 0; s < n; ++s) {
      active[s]->z1_[c] = z1[s];
      active[s]->z2_[c] = z2[s];
    }
  }
}

}  // namespace yarvo::audio
