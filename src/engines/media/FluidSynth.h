#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <vector>

#include "engines/media/MidiFile.h"

struct _fluid_hashtable_t;
struct _fluid_synth_t;

namespace yarvo {

// A FluidSynth synthesizer with one sound font loaded, at a fixed sample
// rate. Its calls may come from two threads: FluidSynth locks itself.
class FluidSynth {
 public:
  // nullptr when FluidSynth cannot start or the sound font does not load.
  // FluidSynth's messages below panics are silenced for the whole process:
  // a player has nobody to read them.
  static std::unique_ptr<FluidSynth> create(const std::filesystem::path& soundFont, int rate);

  FluidSynth(const FluidSynth&) = delete;
  FluidSynth& operator=(const FluidSynth&) = delete;
  ~FluidSynth();

  // Plays one message; `sysex` holds the bytes of system exclusive ones.
  void send(const MidiEvent& event, const std::vector<std::uint8_t>& sysex);
  void noteOn(int channel, int key, int velocity);
  // Every voice falls silent at once (what it would still sound is rendered
  // and dropped) and every channel returns to its power-on state: programs,
  // controllers, pitch bend, effects. Takes the time of rendering up to a
  // second of the fading voices.
  void reset();
  // Every sounding note is let go, to fade as its instrument does.
  void releaseAll();
  // Renders `frames` frames of interleaved stereo into `stereo`.
  void write(float* stereo, std::size_t frames);

 private:
  struct Destroy {
    void operator()(_fluid_hashtable_t* settings) const;
    void operator()(_fluid_synth_t* synth) const;
  };
  // Only `create` makes synthesizers.
  struct Key {
    explicit Key() = default;
  };

 public:
  FluidSynth(Key, _fluid_hashtable_t* settings, int rate);

 private:
  std::unique_ptr<_fluid_hashtable_t, Destroy> settings_;
  std::unique_ptr<_fluid_synth_t, Destroy> synth_;  // goes before its settings
  int rate_;
};

}  // namespace yarvo
