#include "MidiWriter.h"

#include <algorithm>
#include <cmath>

namespace yarvo::test {

std::string variableLength(std::uint32_t value) {
  std::string bytes(1, static_cast<char>(value & 0x7F));
  while ((value >>= 7) != 0) bytes.insert(bytes.begin(), static_cast<char>(0x80 | (value & 0x7F)));
  return bytes;
}

std::string bigEndian(std::uint32_t value, int bytes) {
  std::string text;
  for (int i = bytes - 1; i >= 0; --i) text += static_cast<char>((value >> (8 * i)) & 0xFF);
  return text;
}

namespace {

std::string littleEndian32(std::uint32_t value) {
  std::string text;
  for (int i = 0; i < 4; ++i) text += static_cast<char>((value >> (8 * i)) & 0xFF);
  return text;
}

std::uint8_t byte(std::int64_t value) { return static_cast<std::uint8_t>(value); }

}  // namespace

MidiTrack& MidiTrack::message(std::uint32_t tick, std::vector<std::uint8_t> bytes) {
  messages_.push_back({tick, std::move(bytes)});
  return *this;
}

MidiTrack& MidiTrack::note(std::uint32_t tick, std::uint32_t ticks, int channel, int key,
                           int velocity) {
  message(tick, {byte(0x90 | channel), byte(key), byte(velocity)});
  return message(tick + ticks, {byte(0x80 | channel), byte(key), 64});
}

MidiTrack& MidiTrack::program(std::uint32_t tick, int channel, int program) {
  return message(tick, {byte(0xC0 | channel), byte(program)});
}

MidiTrack& MidiTrack::tempo(std::uint32_t tick, std::uint32_t microsecondsPerQuarter) {
  return message(tick, {0xFF, 0x51, 0x03, byte(microsecondsPerQuarter >> 16),
                        byte(microsecondsPerQuarter >> 8), byte(microsecondsPerQuarter)});
}

MidiTrack& MidiTrack::end(std::uint32_t tick) {
  end_ = tick;
  return *this;
}

std::string MidiTrack::chunk() const {
  std::vector<Timed> sorted = messages_;
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const Timed& a, const Timed& b) { return a.tick < b.tick; });
  std::string body;
  std::uint32_t at = 0;
  std::uint8_t running = 0;
  for (const Timed& m : sorted) {
    body += variableLength(m.tick - at);
    at = m.tick;
    const bool repeat = runningStatus_ && m.bytes[0] < 0xF0 && m.bytes[0] == running;
    running = m.bytes[0] < 0xF0 ? m.bytes[0] : 0;
    body.append(m.bytes.begin() + (repeat ? 1 : 0), m.bytes.end());
  }
  body += variableLength(std::max(end_, at) - at) + "\xFF\x2F" + std::string(1, '\0');
  return "MTrk" + bigEndian(static_cast<std::uint32_t>(body.size()), 4) + body;
}

std::string midiFile(int format, std::uint16_t division, const std::vector<MidiTrack>& tracks) {
  std::string file = "MThd" + bigEndian(6, 4) + bigEndian(static_cast<std::uint32_t>(format), 2) +
                     bigEndian(static_cast<std::uint32_t>(tracks.size()), 2) +
                     bigEndian(division, 2);
  for (const MidiTrack& track : tracks) file += track.chunk();
  return file;
}

std::string rmiFile(const std::string& midi) {
  // An odd-sized chunk first: its pad byte must be skipped.
  const std::string info = "LIST" + littleEndian32(5) + "INFO!" + std::string(1, '\0');
  const std::string data = "data" + littleEndian32(static_cast<std::uint32_t>(midi.size())) + midi;
  const std::string body = "RMID" + info + data;
  return "RIFF" + littleEndian32(static_cast<std::uint32_t>(body.size())) + body;
}

double keyFrequency(int key) { return 440.0 * std::pow(2.0, (key - 69) / 12.0); }

std::string songFile(int format) {
  constexpr std::uint16_t kTicksPerQuarter = 480;
  constexpr int kOcarina = 79;
  MidiTrack tempo;
  tempo.tempo(0, 500000).tempo(2 * kTicksPerQuarter, 1000000);
  MidiTrack notes(true);
  notes.program(0, 0, kOcarina)
      .note(0, 2 * kTicksPerQuarter, 0, kSongNotes[0].key)
      .note(2 * kTicksPerQuarter, kTicksPerQuarter, 0, kSongNotes[1].key)
      .note(3 * kTicksPerQuarter, kTicksPerQuarter, 0, kSongNotes[2].key);
  if (format == 0) {
    notes.tempo(0, 500000).tempo(2 * kTicksPerQuarter, 1000000);
    return midiFile(0, kTicksPerQuarter, {notes});
  }
  return midiFile(format, kTicksPerQuarter, {tempo, notes});
}

}  // namespace yarvo::test
