#include "engines/audio/Resampler.h"

#include <speex/speex_resampler.h>

namespace yarvo::audio {
namespace {
constexpr int kQuality = 5;
}

std::unique_ptr<Resampler> Resampler::create(int channels, int fromRate, int toRate) {
  int err = RESAMPLER_ERR_SUCCESS;
  SpeexResamplerState* state =
      speex_resampler_init(static_cast<spx_uint32_t>(channels), static_cast<spx_uint32_t>(fromRate),
                           static_cast<spx_uint32_t>(toRate), kQuality, &err);
  if (state == nullptr || err != RESAMPLER_ERR_SUCCESS) {
    if (state != nullptr) speex_resampler_destroy(state);
    return nullptr;
  }
  // Without this the first output frames would be the filter's zero history.
  speex_resampler_skip_zeros(state);
  return std::make_unique<Resampler>(State(state));
}

void Resampler::StateDeleter::operator()(SpeexResamplerState_* state) const noexcept {
  speex_resampler_destroy(state);
}

void Resampler::process(const float* in, std::size_t& inFrames, float* out,
                        std::size_t& outFrames) noexcept {
  auto inLen = static_cast<spx_uint32_t>(inFrames);
  auto outLen = static_cast<spx_uint32_t>(outFrames);
  speex_resampler_process_interleaved_float(state_.get(), in, &inLen, out, &outLen);
  inFrames = inLen;
  outFrames = outLen;
}

void Resampler::reset() noexcept {
  speex_resampler_reset_mem(state_.get());
  speex_resampler_skip_zeros(state_.get());
}

}  // namespace yarvo::audio
