// The MIDI reader: times through the tempo map, merged tracks, the RIFF
// wrapper, and how damaged files are read or refused.
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "MidiWriter.h"
#include "engines/media/MidiFile.h"

namespace yarvo {
namespace {

using test::bigEndian;
using test::midiFile;
using test::MidiTrack;
using test::variableLength;

std::string bytes(std::initializer_list<int> values) {
  std::string text;
  for (const int value : values) text += static_cast<char>(value);
  return text;
}

std::string header(std::uint32_t length, int format, int tracks, std::uint16_t division) {
  return "MThd" + bigEndian(length, 4) + bigEndian(static_cast<std::uint32_t>(format), 2) +
         bigEndian(static_cast<std::uint32_t>(tracks), 2) + bigEndian(division, 2);
}

std::string trackChunk(const std::string& body, std::uint32_t length) {
  return "MTrk" + bigEndian(length, 4) + body;
}

constexpr std::uint16_t kTicksPerQuarter = 480;
constexpr std::uint32_t kHalfSecond = 500000;  // a quarter at 120 a minute
constexpr std::uint32_t kOneSecond = 1000000;  // a quarter at 60 a minute

struct Expected {
  double seconds;
  std::uint8_t status;
  std::uint8_t data1;
};

void expectEvents(const MidiSong& song, const std::vector<Expected>& expected) {
  ASSERT_EQ(song.events.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_NEAR(song.events[i].seconds, expected[i].seconds, 1e-9);
    EXPECT_EQ(song.events[i].status, expected[i].status);
    EXPECT_EQ(song.events[i].data1, expected[i].data1);
  }
}

// Quarters at 120 a minute, then from beat 2 at 60 a minute: notes on the
// beats 0, 1, 2 and 3 fall at 0, 0.5, 1 and 2 seconds, the end (beat 4) at 3.
const std::vector<Expected> kFourNotes = {{0.0, 0x90, 60},  {0.25, 0x80, 60}, {0.5, 0x91, 62},
                                          {0.75, 0x81, 62}, {1.0, 0x90, 64},  {1.5, 0x80, 64},
                                          {2.0, 0x91, 65},  {2.5, 0x81, 65}};

MidiTrack fourNotes(MidiTrack track) {
  for (std::uint32_t beat = 0; beat < 4; ++beat) {
    track.note(beat * kTicksPerQuarter, kTicksPerQuarter / 2, static_cast<int>(beat % 2),
               60 + 2 * static_cast<int>(beat) - (beat == 3 ? 1 : 0));
  }
  return track.end(4 * kTicksPerQuarter);
}

MidiTrack tempoMap() {
  return MidiTrack().tempo(0, kHalfSecond).tempo(2 * kTicksPerQuarter, kOneSecond);
}

TEST(MidiFile, FormatZeroTakesItsTimesThroughTheTempoChanges) {
  MidiTrack track = fourNotes(MidiTrack());
  track.tempo(0, kHalfSecond).tempo(2 * kTicksPerQuarter, kOneSecond);
  const auto song = readMidiFile(midiFile(0, kTicksPerQuarter, {track}));
  ASSERT_TRUE(song);
  expectEvents(*song, kFourNotes);
  EXPECT_NEAR(song->length, 3.0, 1e-9);
}

// The tempo map of the first track times the others'; events of the same
// tick keep the order of their tracks; the longest track gives the length.
TEST(MidiFile, FormatOneMergesItsTracksUnderOneTempoMap) {
  MidiTrack drums;
  drums.program(0, 9, 1).end(5 * kTicksPerQuarter);
  const auto song =
      readMidiFile(midiFile(1, kTicksPerQuarter, {tempoMap(), fourNotes(MidiTrack()), drums}));
  ASSERT_TRUE(song);
  std::vector<Expected> expected = kFourNotes;
  expected.insert(expected.begin() + 1, {0.0, 0xC9, 1});
  expectEvents(*song, expected);
  EXPECT_NEAR(song->length, 4.0, 1e-9);
}

// Chords on one channel: every status byte but the first of a tick repeats.
MidiTrack chords(bool runningStatus) {
  MidiTrack track(runningStatus);
  track.note(0, 480, 0, 60).note(0, 480, 0, 64).note(480, 480, 0, 67).note(480, 480, 0, 72);
  return track;
}

TEST(MidiFile, RunningStatusAndTheRiffWrapperReadAsThePlainFile) {
  const std::string plainBytes = midiFile(0, kTicksPerQuarter, {chords(false)});
  const std::string running = midiFile(0, kTicksPerQuarter, {chords(true)});
  ASSERT_LT(running.size(), plainBytes.size()) << "the writer used running status";
  const auto plain = readMidiFile(plainBytes);
  ASSERT_TRUE(plain);
  ASSERT_EQ(plain->events.size(), 8u);
  for (const std::string& file : {running, test::rmiFile(running)}) {
    SCOPED_TRACE(file.substr(0, 4));
    EXPECT_TRUE(looksLikeMidi(file.substr(0, 12)));
    const auto song = readMidiFile(file);
    ASSERT_TRUE(song);
    ASSERT_EQ(song->events.size(), plain->events.size());
    for (std::size_t i = 0; i < song->events.size(); ++i) {
      const MidiEvent& a = song->events[i];
      const MidiEvent& b = plain->events[i];
      EXPECT_EQ(a.seconds, b.seconds);
      EXPECT_EQ(a.status, b.status);
      EXPECT_EQ(a.data1, b.data1);
      EXPECT_EQ(a.data2, b.data2);
    }
    EXPECT_EQ(song->length, plain->length);
  }
  EXPECT_FALSE(looksLikeMidi("RIFF" + std::string(4, '\0') + "WAVE"));
}

TEST(MidiFile, SmpteTimeCountsTicksASecondAndIgnoresTempo) {
  // 25 frames a second of 40 ticks: 1000 ticks a second.
  constexpr std::uint16_t division = (256 - 25) << 8 | 40;
  MidiTrack track;
  track.tempo(0, kOneSecond).note(500, 250, 0, 69).end(2000);
  const auto song = readMidiFile(midiFile(0, division, {track}));
  ASSERT_TRUE(song);
  expectEvents(*song, {{0.5, 0x90, 69}, {0.75, 0x80, 69}});
  EXPECT_NEAR(song->length, 2.0, 1e-9);
}

TEST(MidiFile, SystemExclusiveMessagesKeepTheirBytesAndEndRunningStatus) {
  MidiTrack track;
  track
      .message(0, {0xF0, 0x05, 0x7E, 0x7F, 0x09, 0x01, 0xF7})  // General MIDI on
      .message(0, {0xF7, 0x02, 0xF8, 0xFA})                    // an escape, skipped
      .note(10, 10, 0, 60);
  auto song = readMidiFile(midiFile(0, kTicksPerQuarter, {track}));
  ASSERT_TRUE(song);
  ASSERT_EQ(song->events.size(), 3u);
  const MidiEvent& sysex = song->events[0];
  EXPECT_EQ(sysex.status, 0xF0);
  EXPECT_EQ(std::vector<std::uint8_t>(song->sysex.begin() + sysex.sysexOffset,
                                      song->sysex.begin() + sysex.sysexOffset + sysex.sysexLength),
            (std::vector<std::uint8_t>{0x7E, 0x7F, 0x09, 0x01}));
  // A data byte right after a system exclusive message has no status to run on.
  const std::string body = bytes(
      {0x00, 0x90, 0x3C, 0x64, 0x00, 0xF0, 0x01, 0xF7, 0x00, 0x3C, 0x00, 0x00, 0xFF, 0x2F, 0x00});
  song = readMidiFile(header(6, 0, 1, kTicksPerQuarter) +
                      trackChunk(body, static_cast<std::uint32_t>(body.size())));
  ASSERT_TRUE(song);
  EXPECT_EQ(song->events.size(), 2u) << "the note on and the system exclusive message";
}

// A note at tick 0 and one at tick 480 (0.5 s), then the end at 960 (1 s).
const std::string kTwoNotes =
    bytes({0x00, 0x90, 0x3C, 0x64, 0x83, 0x60, 0x90, 0x3E, 0x64, 0x83, 0x60, 0xFF, 0x2F, 0x00});

// Damage that players read around: what is read before it stays.
TEST(MidiFile, DamagedTracksEndWhereTheDamageIs) {
  const auto size = static_cast<std::uint32_t>(kTwoNotes.size());
  const std::string head = header(6, 0, 1, kTicksPerQuarter);
  const std::pair<const char*, std::string> cases[] = {
      {"cut inside the second note", head + trackChunk(kTwoNotes.substr(0, 7), size)},
      {"a chunk longer than the file", head + trackChunk(kTwoNotes.substr(0, 9), 1000)},
      {"a real-time byte after the second note",
       head + trackChunk(kTwoNotes.substr(0, 9) + bytes({0x00, 0xF8}), size)},
      {"a data byte after a meta event, which ends running status",
       head + trackChunk(kTwoNotes.substr(0, 9) + bytes({0x00, 0xFF, 0x01, 0x00, 0x00, 0x3C, 0x40}),
                         size)},
      {"a delta time of five bytes",
       head + trackChunk(
                  kTwoNotes.substr(0, 9) + bytes({0x81, 0x81, 0x81, 0x81, 0x01, 0x90, 0x40, 0x40}),
                  17)},
  };
  for (const auto& [what, bytes] : cases) {
    SCOPED_TRACE(what);
    const auto song = readMidiFile(bytes);
    ASSERT_TRUE(song);
    ASSERT_GE(song->events.size(), 1u);
    EXPECT_LE(song->events.size(), 2u);
    EXPECT_EQ(song->events[0].data1, 0x3C);
  }
  // The header may be longer than six bytes, and chunks of other kinds
  // come between tracks.
  const auto song = readMidiFile(header(8, 0, 1, kTicksPerQuarter) + "!!" + "XFIH" +
                                 bigEndian(3, 4) + "abc" + trackChunk(kTwoNotes, size));
  ASSERT_TRUE(song);
  EXPECT_EQ(song->events.size(), 2u);
  EXPECT_NEAR(song->length, 1.0, 1e-9);
}

constexpr std::uint16_t kSmpte23 = (256 - 23) << 8 | 40;
constexpr std::uint16_t kSmpte25NoTicks = (256 - 25) << 8;

TEST(MidiFile, InputWithoutAHeaderOrATrackIsRefused) {
  const std::string track = trackChunk(kTwoNotes, static_cast<std::uint32_t>(kTwoNotes.size()));
  const std::pair<const char*, std::string> cases[] = {
      {"empty", ""},
      {"another kind of file", "ID3\x03" + std::string(40, '\0')},
      {"a header of five bytes", header(5, 0, 1, kTicksPerQuarter) + track},
      {"a header longer than the file", header(100, 0, 1, kTicksPerQuarter)},
      {"no ticks a quarter", header(6, 0, 1, 0) + track},
      {"SMPTE at 23 frames a second", header(6, 0, 1, kSmpte23) + track},
      {"SMPTE with no ticks a frame", header(6, 0, 1, kSmpte25NoTicks) + track},
      {"format 3", header(6, 3, 1, kTicksPerQuarter) + track},
      {"no tracks announced", header(6, 0, 0, kTicksPerQuarter) + track},
      {"no track present", header(6, 1, 2, kTicksPerQuarter)},
      {"RIFF of another kind", "RIFF" + std::string(4, '\0') + "WAVE" + track},
      {"RMID without a data chunk", "RIFF" + std::string(4, '\0') + "RMID"},
  };
  for (const auto& [what, bytes] : cases) {
    EXPECT_FALSE(readMidiFile(bytes)) << what;
  }
}

TEST(MidiFile, TimeBeyondADayIsCut) {
  // Four ticks of the longest delta at the slowest tempo and one tick a
  // quarter: about 50,000 days.
  std::string body = bytes({0x00, 0xFF, 0x51, 0x03, 0xFF, 0xFF, 0xFF});
  for (int i = 0; i < 4; ++i) body += variableLength(0x0FFFFFFF) + bytes({0x90, 0x3C, 0x64});
  body += bytes({0x00, 0xFF, 0x2F, 0x00});
  const auto song =
      readMidiFile(header(6, 0, 1, 1) + trackChunk(body, static_cast<std::uint32_t>(body.size())));
  ASSERT_TRUE(song);
  EXPECT_EQ(song->length, kMaxMidiSeconds);
  EXPECT_TRUE(song->events.empty());
}

}  // namespace
}  // namespace yarvo
