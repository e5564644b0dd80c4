#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace yarvo {

// One message of a song for the synthesizer, at its time from the start.
struct MidiEvent {
  double seconds = 0;
  // A channel message (0x80 to 0xEF) with its one or two data bytes, each
  // below 0x80 (a message with one data byte has data2 0); or 0xF0, a system
  // exclusive message whose bytes between F0 and F7 lie in `MidiSong::sysex`.
  std::uint8_t status = 0;
  std::uint8_t data1 = 0;
  std::uint8_t data2 = 0;
  std::uint32_t sysexOffset = 0;
  std::uint32_t sysexLength = 0;
};

// What the sequencer plays of a MIDI file: every track merged into one list
// in time order (events at the same tick keep the order of their tracks),
// times taken through the file's tempo map.
struct MidiSong {
  std::vector<MidiEvent> events;
  std::vector<std::uint8_t> sysex;
  // Seconds to the end of the longest track (its end-of-track event).
  double length = 0;
};

// Songs longer than this are cut here: no real file comes near it, and every
// time in the song then fits a 32-bit count of milliseconds.
inline constexpr double kMaxMidiSeconds = 24.0 * 60 * 60;

// True when the first bytes of a file are those of a standard MIDI file
// ("MThd") or of one wrapped in a RIFF "RMID" file (.rmi).
bool looksLikeMidi(std::string_view head);

// Reads a standard MIDI file, format 0, 1 or 2 (all played as one merged
// song), bare or RIFF-wrapped. Damage is read around the way players do: a
// track cut short or broken by a byte that cannot stand where it does ends
// there, with what came before it kept; a chunk longer than the file ends
// with the file; chunks of other kinds are skipped. Nothing for input that
// has no valid header or no track. Any input, however malformed, returns in
// time linear in its size plus the sorting of its events.
std::optional<MidiSong> readMidiFile(std::string_view bytes);

}  // namespace yarvo
