#include "engines/media/FluidSynth.h"
#include "engines/media/FluidSynthApi.h"

#include <array>
#include <climits>
#include <mutex>

namespace yarvo {
namespace {

constexpr int kLeftOffset = 0;
constexpr int kRightOffset = 1;
constexpr int kStereoStride = 2;
constexpr int kScratchFrames = 64;  // FluidSynth's own block

void silenceMessages() {
  static std::once_flag once;
  std::call_once(once, [] {
    for (const int level : {FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG}) {
      FluidSynthLibrary()->fluid_set_log_function(level, nullptr, nullptr);
    }
  });
}

}  // namespace

void FluidSynth::Destroy::operator()(fluid_settings_t* settings) const {
  FluidSynthLibrary()->delete_fluid_settings(settings);
}

void FluidSynth::Destroy::operator()(fluid_synth_t* synth) const {
  FluidSynthLibrary()->delete_fluid_synth(synth);
}

FluidSynth::FluidSynth(Key, fluid_settings_t* settings, int rate)
    : settings_(settings), rate_(rate) {}

FluidSynth::~FluidSynth() = default;

std::unique_ptr<FluidSynth> FluidSynth::create(const std::filesystem::path& soundFont, int rate) {
  if (FluidSynthLibrary() == nullptr) {
    return nullptr;
  }
  silenceMessages();
  fluid_settings_t* settings = FluidSynthLibrary()->new_fluid_settings();
  if (settings == nullptr) {
    return nullptr;
  }
  auto synth = std::make_unique<FluidSynth>(Key{}, settings, rate);
  // Locking the sound font's samples into memory needs a privilege that a
  // player does not have, and only saves page faults.
  if (FluidSynthLibrary()->fluid_settings_setnum(settings, "synth.sample-rate", rate) != FLUID_OK ||
      FluidSynthLibrary()->fluid_settings_setint(settings, "synth.lock-memory", 0) != FLUID_OK) {
    return nullptr;
  }
  synth->synth_.reset(FluidSynthLibrary()->new_fluid_synth(settings));
  if (!synth->synth_ || FluidSynthLibrary()->fluid_synth_sfload(
                            synth->synth_.get(), soundFont.c_str(), 1) == FLUID_FAILED) {
    return nullptr;
  }
  return synth;
}

void FluidSynth::send(const MidiEvent& event, const std::vector<std::uint8_t>& sysex) {
  fluid_synth_t* synth = synth_.get();
  const int channel = event.status & 0x0F;
  const int data1 = event.data1;
  const int data2 = event.data2;
  switch (event.status & 0xF0) {
    case 0x80:
      FluidSynthLibrary()->fluid_synth_noteoff(synth, channel, data1);
      break;
    case 0x90:
      FluidSynthLibrary()->fluid_synth_noteon(synth, channel, data1,
                                              data2);  // velocity 0 is a note off
      break;
    case 0xA0:
      FluidSynthLibrary()->fluid_synth_key_pressure(synth, channel, data1, data2);
      break;
    case 0xB0:
      FluidSynthLibrary()->fluid_synth_cc(synth, channel, data1, data2);
      break;
    case 0xC0:
      FluidSynthLibrary()->fluid_synth_program_change(synth, channel, data1);
      break;
    case 0xD0:
      FluidSynthLibrary()->fluid_synth_channel_pressure(synth, channel, data1);
      break;
    case 0xE0:
      FluidSynthLibrary()->fluid_synth_pitch_bend(synth, channel, data1 | data2 << 7);
      break;
    case 0xF0:
      if (event.sysexLength <= INT_MAX &&
          event.sysexOffset + std::size_t{event.sysexLength} <= sysex.size()) {
        FluidSynthLibrary()->fluid_synth_sysex(
            synth, reinterpret_cast<const char*>(sysex.data() + event.sysexOffset),
            static_cast<int>(event.sysexLength), nullptr, nullptr, nullptr, 0);
      }
      break;
    default:
      break;
  }
}

void FluidSynth::noteOn(int channel, int key, int velocity) {
  FluidSynthLibrary()->fluid_synth_noteon(synth_.get(), channel, key, velocity);
}

// FluidSynth lets a voice that is turned off fade for a while (about a third
// of a second) instead of cutting it: that fading is rendered here and thrown
// away, and a second reset clears the reverb and chorus that took it in.
void FluidSynth::reset() {
  fluid_synth_t* synth = synth_.get();
  FluidSynthLibrary()->fluid_synth_system_reset(synth);
  std::array<float, 2 * kScratchFrames> scratch{};
  for (int frames = 0;
       FluidSynthLibrary()->fluid_synth_get_active_voice_count(synth) > 0 && frames < rate_;
       frames += kScratchFrames) {
    write(scratch.data(), kScratchFrames);
  }
  FluidSynthLibrary()->fluid_synth_system_reset(synth);
}

void FluidSynth::releaseAll() { FluidSynthLibrary()->fluid_synth_all_notes_off(synth_.get(), -1); }

void FluidSynth::write(float* stereo, std::size_t frames) {
  FluidSynthLibrary()->fluid_synth_write_float(synth_.get(), static_cast<int>(frames), stereo,
                                               kLeftOffset, kStereoStride, stereo, kRightOffset,
                                               kStereoStride);
}

}  // namespace yarvo
