#pragma once
// Timing one piece of work beside its floor in the same iteration, so that
// whatever else the machine does weighs on both alike.

#include <benchmark/benchmark.h>

#include <chrono>

namespace yarvo::bench {

inline double secondsOf(auto&& work) {
  const auto start = std::chrono::steady_clock::now();
  benchmark::DoNotOptimize(work());
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace yarvo::bench
