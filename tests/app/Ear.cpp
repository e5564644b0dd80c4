#include "Ear.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <fstream>
#include <vector>

#include "PlayerProcess.h"
#include "support/SoundAnalysis.h"

namespace yarvo::test {

using namespace std::chrono_literals;

Ear::Ear(const SoundServer& sound, std::filesystem::path raw)
    : raw_(std::move(raw)), recorder_(sound.Record(raw_)) {}

// Only the last 0.4 s is read: the recording grows for the whole test, and
// reading it all at every look made the looks slower than the patience.
double Ear::Heard() const {
  constexpr std::size_t kFrames = SoundServer::kRate * 2 / 5;
  constexpr std::size_t kBytes = kFrames * 2 * sizeof(float);
  std::ifstream raw(raw_, std::ios::binary | std::ios::ate);
  const auto size = static_cast<std::size_t>(std::max<std::streamoff>(raw.tellg(), 0));
  if (!raw || size < kBytes) return 0;
  const std::size_t whole = size - size % (2 * sizeof(float));
  std::vector<float> stereo(kFrames * 2);
  raw.seekg(static_cast<std::streamoff>(whole - kBytes));
  raw.read(reinterpret_cast<char*>(stereo.data()), static_cast<std::streamsize>(kBytes));
  if (!raw) return 0;
  const Recording heard = Recording::fromStereo(stereo, SoundServer::kRate);
  if (level(heard.left, 0, heard.left.size()) < 0.02) return 0;
  return dominantFrequency(heard.left, 0, heard.left.size(), SoundServer::kRate);
}

bool Ear::Hears(double frequency) const {
  return WaitUntil([&] { return std::abs(Heard() - frequency) < frequency * 0.02; }, 10s);
}

bool Ear::HearsSilence() const {
  return WaitUntil([&] { return Heard() == 0; }, 5s);
}

}  // namespace yarvo::test
