#include "engines/audio/AudioOutput.h"

#include "engines/audio/CubebOutput.h"
#include "engines/audio/NullOutput.h"

#include <utility>

namespace yarvo::audio {
namespace {

OutputFactory& factorySlot() {
  static OutputFactory factory;
  return factory;
}

std::unique_ptr<AudioOutput> defaultOutput(int device, int rate) {
  if (device != 0) {
    if (auto output = CubebOutput::open(rate)) return output;
  }
  return std::make_unique<NullOutput>(rate);
}

}  // namespace

void setOutputFactory(OutputFactory factory) { factorySlot() = std::move(factory); }

std::unique_ptr<AudioOutput> makeOutput(int device, int rate) {
  if (const OutputFactory& factory = factorySlot()) {
    if (auto output = factory(device, rate)) return output;
  }
  return defaultOutput(device, rate);
}

}  // namespace yarvo::audio
