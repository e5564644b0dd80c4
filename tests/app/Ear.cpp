#include "Ear.h"

#include <chrono>
#include <cmath>

#include "PlayerProcess.h"
#include "support/SoundAnalysis.h"

namespace yarvo::test {

using namespace std::chrono_literals;

Ear::Ear(const SoundServer& sound, std::filesystem::path raw)
    : raw_(std::move(raw)), recorder_(sound.Record(raw_)) {}

double Ear::Heard() const {
  const Recording heard = Recording::fromStereo(ReadRecording(raw_), SoundServer::kRate);
  const std::size_t span = heard.at(0.4);
  if (heard.left.size() < span) return 0;
  const std::size_t from = heard.left.size() - span;
  if (level(heard.left, from, span) < 0.02) return 0;
  return dominantFrequency(heard.left, from, span, SoundServer::kRate);
}

bool Ear::Hears(double frequency) const {
  return WaitUntil([&] { return std::abs(Heard() - frequency) < frequency * 0.02; }, 10s);
}

bool Ear::HearsSilence() const {
  return WaitUntil([&] { return Heard() == 0; }, 5s);
}

}  // namespace yarvo::test
