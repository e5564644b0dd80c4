#pragma once
// What a recording of the sound server holds: one side of it as a list of
// samples, read for its pitch, its level and where it sounds.

#include <cstddef>
#include <optional>
#include <vector>

namespace yarvo::test {

struct Recording {
  int rate = 0;
  std::vector<float> left;
  std::vector<float> right;

  // The samples of `stereo` (interleaved pairs).
  static Recording fromStereo(const std::vector<float>& stereo, int rate);

  std::size_t at(double seconds) const;
  double seconds(std::size_t sample) const;
};

// The frequency between 100 and 2000 Hz that is strongest in `count`
// samples from `from`, to a tenth of a hertz.
double dominantFrequency(const std::vector<float>& samples, std::size_t from, std::size_t count,
                         int rate);

// The amplitude of the sine at `frequency` in `count` samples from `from`.
double toneLevel(const std::vector<float>& samples, std::size_t from, std::size_t count, int rate,
                 double frequency);

// Root mean square of `count` samples from `from`, cut at the end.
double level(const std::vector<float>& samples, std::size_t from, std::size_t count);

// The first sample at or after `from` whose 10 ms around it are louder than
// `threshold` (root mean square), or nothing.
std::optional<std::size_t> soundFrom(const std::vector<float>& samples, std::size_t from, int rate,
                                     double threshold);

// The first sample at or after `from` that begins 10 ms no louder than
// `threshold`, or nothing.
std::optional<std::size_t> silenceFrom(const std::vector<float>& samples, std::size_t from,
                                       int rate, double threshold);

// The end of the last 10 ms louder than `threshold`, or nothing.
std::optional<std::size_t> soundUntil(const std::vector<float>& samples, int rate,
                                      double threshold);

}  // namespace yarvo::test
