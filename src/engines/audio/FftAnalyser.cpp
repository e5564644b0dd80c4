#include "engines/audio/FftAnalyser.h"

#include <fftw3.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace yarvo::audio {
namespace {

struct FftwFree {
  void operator()(void* p) const noexcept { fftwf_free(p); }
};
struct PlanDestroy {
  void operator()(fftwf_plan_s* plan) const noexcept { fftwf_destroy_plan(plan); }
};

// The Hann window has a coherent gain of 1/2, and a real sine puts half its
// amplitude in the positive bin: 4/N brings a full-scale sine to 1.0.
constexpr float kScale = 4.0f / static_cast<float>(FftAnalyser::kSize);

}  // namespace

struct FftAnalyser::Impl {
  std::unique_ptr<float, FftwFree> input{static_cast<float*>(fftwf_malloc(sizeof(float) * kSize))};
  std::unique_ptr<fftwf_complex, FftwFree> output{
      static_cast<fftwf_complex*>(fftwf_malloc(sizeof(fftwf_complex) * (kBins + 1)))};
  std::unique_ptr<fftwf_plan_s, PlanDestroy> plan;
  std::vector<float> window = std::vector<float>(kSize);

  Impl() {
    if (!input || !output) throw std::bad_alloc();
    plan.reset(
        fftwf_plan_dft_r2c_1d(static_cast<int>(kSize), input.get(), output.get(), FFTW_ESTIMATE));
    if (!plan) throw std::bad_alloc();
    for (std::size_t n = 0; n < kSize; ++n)
      window[n] = static_cast<float>(
          0.5 - 0.5 * std::cos(2.0 * std::numbers::pi * static_cast<double>(n) / kSize));
  }
};

FftAnalyser::FftAnalyser() : impl_(std::make_unique<Impl>()) {}
FftAnalyser::~FftAnalyser() = default;

void FftAnalyser::compute(const float* interleaved, int channels, float* magnitudes) noexcept {
  const auto chans = static_cast<std::size_t>(channels);
  const float share = 1.0f / static_cast<float>(chans);
  float* __restrict in = impl_->input.get();
  const float* __restrict window = impl_->window.data();
  if (chans == 2) {
    // The common case, as a loop the compiler runs several frames at a time.
    for (std::size_t n = 0; n < kSize; ++n)
      in[n] = (interleaved[2 * n] + interleaved[2 * n + 1]) * share * window[n];
  } else {
    for (std::size_t n = 0; n < kSize; ++n) {
      float mono = 0.0f;
      for (std::size_t c = 0; c < chans; ++c) mono += interleaved[n * chans + c];
      in[n] = mono * share * window[n];
    }
  }
  fftwf_execute(impl_->plan.get());
  const fftwf_complex* out = impl_->output.get();
  for (std::size_t k = 0; k < kBins; ++k)
    magnitudes[k] = std::sqrt(out[k][0] * out[k][0] + out[k][1] * out[k][1]) * kScale;
}

}  // namespace yarvo::audio
