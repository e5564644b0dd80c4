#pragma once
// Where random picks come from: restarted from the clock before each pick in
// the app, set by a test to draw exactly what it wants.

#include <random>

namespace yarvo {

class RandomSource {
 public:
  virtual ~RandomSource() = default;
  // Starts the sequence again from the clock.
  virtual void Randomize() = 0;
  // A number in [0, 1).
  virtual double Rnd() = 0;

  // A whole number from 0 to count - 1, drawn uniformly; 0 when count < 1.
  int Below(int count);
};

// The app's source: a Mersenne twister seeded from the steady clock.
class ClockRandom final : public RandomSource {
 public:
  void Randomize() override;
  double Rnd() override;

 private:
  std::mt19937_64 engine_{std::random_device{}()};
};

}  // namespace yarvo
