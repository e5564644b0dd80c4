#pragma once
// FluidSynth's functions, from the library opened at the first MIDI file
// rather than at the player's start.

#include <fluidsynth.h>

namespace yarvo {

// clang-format off
#define YARVO_FLUIDSYNTH_FUNCTIONS(F) \
  F(fluid_set_log_function) \
  F(new_fluid_settings) \
  F(delete_fluid_settings) \
  F(fluid_settings_setnum) \
  F(fluid_settings_setint) \
  F(new_fluid_synth) \
  F(delete_fluid_synth) \
  F(fluid_synth_sfload) \
  F(fluid_synth_noteon) \
  F(fluid_synth_noteoff) \
  F(fluid_synth_key_pressure) \
  F(fluid_synth_cc) \
  F(fluid_synth_program_change) \
  F(fluid_synth_channel_pressure) \
  F(fluid_synth_pitch_bend) \
  F(fluid_synth_sysex) \
  F(fluid_synth_system_reset) \
  F(fluid_synth_get_active_voice_count) \
  F(fluid_synth_all_notes_off) \
  F(fluid_synth_write_float)
// clang-format on

struct FluidSynthApi {
#define YARVO_POINTER(name) decltype(&::name) name = nullptr;
  YARVO_FLUIDSYNTH_FUNCTIONS(YARVO_POINTER)
#undef YARVO_POINTER
};

// The functions, or null when FluidSynth cannot be opened. The library is
// opened once and stays open.
const FluidSynthApi* FluidSynthLibrary();

}  // namespace yarvo
