// The MIDI reader on hostile bytes. Besides never crashing or hanging, it
// must hand the sequencer only what the sequencer relies on: events in time
// order within the song's length, channel messages with data bytes below
// 0x80, system exclusive bytes inside the song; a file it reads is one the
// service sends to it; and a file reads the same inside a RIFF wrapper.

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "engines/media/MidiFile.h"

namespace {

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "midifile: %s\n", what);
  std::abort();
}

std::string LittleEndian32(std::size_t value) {
  std::string bytes;
  for (int i = 0; i < 4; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
  return bytes;
}

std::string Wrapped(std::string_view midi) {
  std::string body = "RMIDdata" + LittleEndian32(midi.size());
  body.append(midi);
  return "RIFF" + LittleEndian32(body.size()) + body;
}

void CheckMessage(const yarvo::MidiEvent& event, const yarvo::MidiSong& song) {
  if (event.status == 0xF0) {
    if (std::uint64_t{event.sysexOffset} + event.sysexLength > song.sysex.size())
      Fail("system exclusive bytes lie outside the song");
    return;
  }
  if (event.status < 0x80 || event.status > 0xEF) Fail("a status that is no channel message");
  if (event.data1 >= 0x80 || event.data2 >= 0x80) Fail("a data byte with its top bit set");
  const int kind = event.status & 0xF0;
  if ((kind == 0xC0 || kind == 0xD0) && event.data2 != 0) Fail("a second byte on a short message");
}

void CheckSong(const yarvo::MidiSong& song) {
  if (!std::isfinite(song.length) || song.length < 0 || song.length > yarvo::kMaxMidiSeconds)
    Fail("a length outside the allowed range");
  double last = 0;
  for (const yarvo::MidiEvent& event : song.events) {
    if (!(event.seconds >= last)) Fail("events out of time order");
    if (event.seconds > song.length) Fail("an event after the end");
    last = event.seconds;
    CheckMessage(event, song);
  }
}

bool SameSong(const yarvo::MidiSong& a, const yarvo::MidiSong& b) {
  if (a.length != b.length || a.events.size() != b.events.size() || a.sysex != b.sysex)
    return false;
  for (std::size_t i = 0; i < a.events.size(); ++i) {
    const auto& x = a.events[i];
    const auto& y = b.events[i];
    if (x.seconds != y.seconds || x.status != y.status || x.data1 != y.data1 ||
        x.data2 != y.data2 || x.sysexOffset != y.sysexOffset || x.sysexLength != y.sysexLength)
      return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto song = yarvo::readMidiFile(bytes);
  if (!song) return 0;
  CheckSong(*song);
  if (!yarvo::looksLikeMidi(bytes.substr(0, 12)))
    Fail("a readable file that the service would not send");
  if (bytes.starts_with("MThd")) {
    const auto wrapped = yarvo::readMidiFile(Wrapped(bytes));
    if (!wrapped || !SameSong(*song, *wrapped)) Fail("the wrapped file reads otherwise");
  }
  return 0;
}
