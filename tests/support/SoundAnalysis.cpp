#include "support/SoundAnalysis.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace yarvo::test {
namespace {

constexpr double kLowest = 100.0;
constexpr double kHighest = 2000.0;
constexpr double kCoarseStep = 2.0;
constexpr double kFineStep = 0.1;
constexpr double kBlockSeconds = 0.01;

// Goertzel's power of one frequency over windowed samples.
double power(const std::vector<double>& windowed, double frequency, int rate) {
  const double coefficient = 2.0 * std::cos(2.0 * std::numbers::pi * frequency / rate);
  double s1 = 0;
  double s2 = 0;
  for (const double x : windowed) {
    const double s0 = x + coefficient * s1 - s2;
    s2 = s1;
    s1 = s0;
  }
  return s1 * s1 + s2 * s2 - coefficient * s1 * s2;
}

// The samples from `from` under a Hann window, which keeps strong partials
// from leaking over the others.
std::vector<double> windowed(const std::vector<float>& samples, std::size_t from,
                             std::size_t count) {
  std::vector<double> result;
  const std::size_t end = std::min(samples.size(), from + count);
  for (std::size_t i = from; i < end; ++i) {
    const double phase = static_cast<double>(i - from) / static_cast<double>(count - 1);
    result.push_back(double{samples[i]} * (0.5 - 0.5 * std::cos(2.0 * std::numbers::pi * phase)));
  }
  return result;
}

double strongestBetween(const std::vector<double>& windowed, double low, double high, double step,
                        int rate) {
  double best = low;
  double bestPower = -1;
  for (double f = low; f <= high; f += step) {
    const double p = power(windowed, f, rate);
    if (p > bestPower) {
      bestPower = p;
      best = f;
    }
  }
  return best;
}

std::size_t blockOf(int rate) { return static_cast<std::size_t>(rate * kBlockSeconds); }

}  // namespace

Recording Recording::fromStereo(const std::vector<float>& stereo, int rate) {
  Recording recording;
  recording.rate = rate;
  for (std::size_t i = 0; i + 1 < stereo.size(); i += 2) {
    recording.left.push_back(stereo[i]);
    recording.right.push_back(stereo[i + 1]);
  }
  return recording;
}

std::size_t Recording::at(double seconds) const {
  return static_cast<std::size_t>(std::max(0.0, std::round(seconds * rate)));
}

double Recording::seconds(std::size_t sample) const { return static_cast<double>(sample) / rate; }

double dominantFrequency(const std::vector<float>& samples, std::size_t from, std::size_t count,
                         int rate) {
  const auto part = windowed(samples, from, count);
  const double coarse = strongestBetween(part, kLowest, kHighest, kCoarseStep, rate);
  return strongestBetween(part, coarse - kCoarseStep, coarse + kCoarseStep, kFineStep, rate);
}

double toneLevel(const std::vector<float>& samples, std::size_t from, std::size_t count, int rate,
                 double frequency) {
  const auto part = windowed(samples, from, count);
  if (part.empty()) return 0.0;
  // A Hann window's mean is one half: a sine of amplitude a gives a * n / 4.
  return std::sqrt(power(part, frequency, rate)) * 4.0 / static_cast<double>(part.size());
}

double level(const std::vector<float>& samples, std::size_t from, std::size_t count) {
  const std::size_t end = std::min(samples.size(), from + count);
  if (end <= from) return 0.0;
  double sum = 0;
  for (std::size_t i = from; i < end; ++i) sum += double{samples[i]} * double{samples[i]};
  return std::sqrt(sum / static_cast<double>(end - from));
}

std::optional<std::size_t> soundFrom(const std::vector<float>& samples, std::size_t from, int rate,
                                     double threshold) {
  const std::size_t block = blockOf(rate);
  for (std::size_t at = from; at + block <= samples.size(); at += block / 10) {
    if (level(samples, at, block) > threshold) return at;
  }
  return std::nullopt;
}

std::optional<std::size_t> silenceFrom(const std::vector<float>& samples, std::size_t from,
                                       int rate, double threshold) {
  const std::size_t block = blockOf(rate);
  for (std::size_t at = from; at + block <= samples.size(); at += block / 10) {
    if (level(samples, at, block) <= threshold) return at;
  }
  return std::nullopt;
}

std::optional<std::size_t> soundUntil(const std::vector<float>& samples, int rate,
                                      double threshold) {
  const std::size_t block = blockOf(rate);
  for (std::size_t end = samples.size(); end >= block; end -= block / 10) {
    if (level(samples, end - block, block) > threshold) return end;
  }
  return std::nullopt;
}

}  // namespace yarvo::test
