#include "engines/audio/ParamEq.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#if defined(__SSE__)
#include <xmmintrin.h>
#endif

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

// Two stereo bands in one SSE register (GCC and Clang vector extension):
// lanes 0 and 1 are left and right of the even band, 2 and 3 of the odd one.
using V4 = float __attribute__((vector_size(16)));
constexpr std::size_t kMaxPairs = kMaxCascade / 2;

// `in` with its lanes 0 and 1 replaced by the frame at `x`, loaded straight
// into the register: writing the lanes one by one goes through memory, and the
// wide load after two narrow stores stalls every frame.
V4 takeFrame(V4 in, const float* x) noexcept {
#if defined(__SSE__)
  return _mm_loadl_pi(in, reinterpret_cast<const __m64*>(x));
#else
  in[0] = x[0];
  in[1] = x[1];
  return in;
#endif
}

struct Wavefront {
  std::array<V4, kMaxPairs> b0{}, b1{}, b2{}, a1{}, a2{}, z1{}, z2{}, in{};
};

// The frame loop with the number of register pairs known to the compiler,
// so that the state stays in registers.
template <std::size_t Pairs>
void runWavefront(Wavefront& w, std::size_t outLane, float* interleaved,
                  std::size_t frames) noexcept {
  std::array<V4, Pairs> z1, z2, in, y;
  for (std::size_t v = 0; v < Pairs; ++v) {
    z1[v] = w.z1[v];
    z2[v] = w.z2[v];
    in[v] = w.in[v];
  }
  for (std::size_t f = 0; f < frames; ++f) {
    float* x = interleaved + 2 * f;
    in[0] = takeFrame(in[0], x);
    for (std::size_t v = 0; v < Pairs; ++v) {
      y[v] = w.b0[v] * in[v] + z1[v];
      z1[v] = w.b1[v] * in[v] - w.a1[v] * y[v] + z2[v];
      z2[v] = w.b2[v] * in[v] - w.a2[v] * y[v];
    }
    x[0] = y[Pairs - 1][outLane];
    x[1] = y[Pairs - 1][outLane + 1];
    // Each band's output moves on to the next band: two lanes up.
    for (std::size_t v = Pairs - 1; v > 0; --v)
      in[v] = V4{y[v - 1][2], y[v - 1][3], y[v][0], y[v][1]};
    in[0] = V4{0.0f, 0.0f, y[0][0], y[0][1]};
  }
  for (std::size_t v = 0; v < Pairs; ++v) {
    w.z1[v] = z1[v];
    w.z2[v] = z2[v];
    w.in[v] = in[v];
  }
}

template <std::size_t... P>
constexpr auto makeWavefrontTable(std::index_sequence<P...>) {
  return std::array<void (*)(Wavefront&, std::size_t, float*, std::size_t) noexcept, sizeof...(P)>{
      &runWavefront<P + 1>...};
}

constexpr auto kWavefronts = makeWavefrontTable(std::make_index_sequence<kMaxPairs>());

}  // namespace

// A wavefront: band s works on frame t - s while band 0 takes frame t, so
// every band of every side computes at once, two bands to a register, and no
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
    const std::size_t v = s / 2;
    const std::size_t lane = (s % 2) * 2;
    for (std::size_t c = 0; c < 2; ++c) {
      w.b0[v][lane + c] = band.k_.b0;
      w.b1[v][lane + c] = band.k_.b1;
      w.b2[v][lane + c] = band.k_.b2;
      w.a1[v][lane + c] = band.k_.a1;
      w.a2[v][lane + c] = band.k_.a2;
      w.z1[v][lane + c] = band.z1_[c];
      w.z2[v][lane + c] = band.z2_[c];
      w.in[v][lane + c] = band.pipe_[c];
    }
  }
  // With an odd count the last register's upper half has all-zero
  // coefficients and stays zero; the output is in its lower half.
  const std::size_t outLane = count % 2 == 0 ? 2 : 0;
  kWavefronts[(count + 1) / 2 - 1](w, outLane, interleaved, frames);
  for (std::size_t s = 0; s < count; ++s) {
    ParamEq& band = *bands[s];
    const std::size_t v = s / 2;
    const std::size_t lane = (s % 2) * 2;
    for (std::size_t c = 0; c < 2; ++c) {
      band.z1_[c] = w.z1[v][lane + c];
      band.z2_[c] = w.z2[v][lane + c];
      band.pipe_[c] = w.in[v][lane + c];
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
