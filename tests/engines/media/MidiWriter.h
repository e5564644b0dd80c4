#pragma once
// Standard MIDI files built in memory, for the tests and the benchmark.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace yarvo::test {

// One track: messages at absolute ticks, written in tick order (messages of
// the same tick in the order they were added) with an end-of-track event.
class MidiTrack {
 public:
  // Writes status bytes that repeat the last one only once (running status).
  explicit MidiTrack(bool runningStatus = false) : runningStatus_(runningStatus) {}

  MidiTrack& message(std::uint32_t tick, std::vector<std::uint8_t> bytes);
  MidiTrack& note(std::uint32_t tick, std::uint32_t ticks, int channel, int key,
                  int velocity = 100);
  MidiTrack& program(std::uint32_t tick, int channel, int program);
  MidiTrack& tempo(std::uint32_t tick, std::uint32_t microsecondsPerQuarter);
  // The end-of-track event goes here, or at the last message if that is later.
  MidiTrack& end(std::uint32_t tick);

  // The "MTrk" chunk.
  std::string chunk() const;

 private:
  struct Timed {
    std::uint32_t tick;
    std::vector<std::uint8_t> bytes;
  };
  bool runningStatus_;
  std::vector<Timed> messages_;
  std::uint32_t end_ = 0;
};

std::string variableLength(std::uint32_t value);
std::string bigEndian(std::uint32_t value, int bytes);

// A file of the given format and division ("MThd" and the tracks' chunks).
std::string midiFile(int format, std::uint16_t division, const std::vector<MidiTrack>& tracks);

// `midi` inside a RIFF "RMID" file, behind a chunk of another kind.
std::string rmiFile(const std::string& midi);

// The frequency of a MIDI key: key 69 is A at 440 Hz.
double keyFrequency(int key);

// The song that the MIDI tests play, on an ocarina (a General MIDI program
// with a strong fundamental): quarters at 120 a minute, then from beat 2 at
// 60 a minute. Key 69 (440 Hz) for beats 0 and 1 (0 to 1 s), 76 for beat 2
// (1 to 2 s), 72 for beat 3 (2 to 3 s), then the end. The first two lie far
// enough apart to be told apart in 25 ms of sound.
struct SongNote {
  int key;
  double start;  // seconds
  double end;
};
inline constexpr std::array<SongNote, 3> kSongNotes{
    {{69, 0.0, 1.0}, {76, 1.0, 2.0}, {72, 2.0, 3.0}}};
inline constexpr int kSongMilliseconds = 3000;

// The song as a file of format 0 (one track) or 1 (the tempo map in a track
// of its own, then the notes, written with running status).
std::string songFile(int format);

}  // namespace yarvo::test
