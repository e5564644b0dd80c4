#pragma once
// What a private sound server's sink plays, recorded from the moment the
// object is made, as a listener would tell it: the strongest tone of the
// last moment, or silence.

#include <filesystem>
#include <memory>

#include "support/SoundServer.h"

namespace yarvo::test {

class Ear {
 public:
  // Records into `raw` until the object goes.
  Ear(const SoundServer& sound, std::filesystem::path raw);

  // The strongest tone of the last 0.4 s the sink played, 0 for silence.
  double Heard() const;
  // Waits up to 10 s for the sink to play `frequency` (within 2 %).
  bool Hears(double frequency) const;
  // Waits up to 5 s for silence.
  bool HearsSilence() const;

 private:
  std::filesystem::path raw_;
  std::unique_ptr<ChildProcess> recorder_;
};

}  // namespace yarvo::test
