#include "engines/audio/WideRegisters.h"

#include <atomic>

namespace yarvo::audio {
namespace {

bool processorHasThem() noexcept {
  __builtin_cpu_init();
  return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
}

const bool kSupported = processorHasThem();
std::atomic<bool> inUse{kSupported};

}  // namespace

bool wideRegisters() noexcept { return inUse.load(std::memory_order_relaxed); }

bool useWideRegisters(bool wanted) noexcept {
  inUse.store(wanted && kSupported, std::memory_order_relaxed);
  return wanted && kSupported;
}

}  // namespace yarvo::audio
