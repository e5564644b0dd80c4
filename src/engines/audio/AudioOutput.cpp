#include "engines/audio/AudioOutput.h"

#include "engines/audio/CubebOutput.h"
#include "engines/audio/NullOutput.h"
#include "engines/audio/PulseOutput.h"

#include <utility>

namespace yarvo::audio {
namespace {

struct FactorySlot {
  OutputFactory factory;
  std::uint64_t version = 0;
};

FactorySlot& factorySlot() {
  static FactorySlot slot;
  return slot;
}

// The sound server through its own protocol first (PulseAudio, or PipeWire's
// server for it): only there can a playback-sized buffer be flushed at once.
// cubeb finds JACK or ALSA where no such server runs.
std::unique_ptr<AudioOutput> defaultOutput(int device, int rate) {
  if (device != 0) {
    if (auto output = PulseOutput::open(rate)) return output;
    if (auto output = CubebOutput::open(rate)) return output;
  }
  return std::make_unique<NullOutput>(rate);
}

}  // namespace

void setOutputFactory(OutputFactory factory) {
  factorySlot().factory = std::move(factory);
  ++factorySlot().version;
}

std::uint64_t outputFactoryVersion() { return factorySlot().version; }

std::unique_ptr<AudioOutput> makeOutput(int device, int rate) {
  if (const OutputFactory& factory = factorySlot().factory) {
    if (auto output = factory(device, rate)) return output;
  }
  return defaultOutput(device, rate);
}

}  // namespace yarvo::audio
