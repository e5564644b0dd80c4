#include "engines/media/MidiFile.h"

#include <algorithm>
#include <limits>

namespace yarvo {
namespace {

constexpr std::string_view kRiff = "RIFF";
constexpr std::string_view kRmid = "RMID";
constexpr std::string_view kRiffData = "data";
constexpr std::string_view kHeader = "MThd";
constexpr std::string_view kTrack = "MTrk";
constexpr std::size_t kChunkHeaderBytes = 8;
constexpr std::size_t kHeaderFieldBytes = 6;
constexpr std::uint32_t kDefaultMicrosecondsPerQuarter = 500000;  // 120 beats a minute
constexpr double kMicrosecondsPerSecond = 1e6;

constexpr std::uint8_t kMeta = 0xFF;
constexpr std::uint8_t kSysex = 0xF0;
constexpr std::uint8_t kSysexEscape = 0xF7;
constexpr std::uint8_t kMetaEndOfTrack = 0x2F;
constexpr std::uint8_t kMetaTempo = 0x51;

// Bounded reads over a byte range: every read checks what is left, and a
// read past the end fails instead of reading on.
class Bytes {
 public:
  explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

  bool done() const { return at_ >= bytes_.size(); }
  std::size_t left() const { return bytes_.size() - at_; }

  std::optional<std::uint8_t> peek() const {
    if (done()) return std::nullopt;
    return static_cast<std::uint8_t>(bytes_[at_]);
  }

  std::optional<std::uint8_t> byte() {
    const auto value = peek();
    if (value) ++at_;
    return value;
  }

  // `count` bytes, or as many as are left when `clip` allows it.
  std::optional<std::string_view> take(std::uint64_t count, bool clip = false) {
    if (count > left()) {
      if (!clip) return std::nullopt;
      count = left();
    }
    const auto part = bytes_.substr(at_, static_cast<std::size_t>(count));
    at_ += part.size();
    return part;
  }

  std::optional<std::uint32_t> bigEndian(int count) {
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i) {
      const auto b = byte();
      if (!b) return std::nullopt;
      value = value << 8 | *b;
    }
    return value;
  }

  std::optional<std::uint32_t> littleEndian32() {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) {
      const auto b = byte();
      if (!b) return std::nullopt;
      value |= static_cast<std::uint32_t>(*b) << (8 * i);
    }
    return value;
  }

  // A variable-length quantity: at most four bytes of seven bits each.
  std::optional<std::uint32_t> variableLength() {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) {
      const auto b = byte();
      if (!b) return std::nullopt;
      value = value << 7 | (*b & 0x7Fu);
      if ((*b & 0x80u) == 0) return value;
    }
    return std::nullopt;
  }

 private:
  std::string_view bytes_;
  std::size_t at_ = 0;
};

// The standard MIDI file inside a RIFF "RMID" file: its "data" chunk, cut
// at the end of the file. The bytes themselves when they are not RIFF.
std::optional<std::string_view> unwrapRiff(std::string_view bytes) {
  if (!bytes.starts_with(kRiff)) return bytes;
  if (bytes.size() < 12 || bytes.substr(8, 4) != kRmid) return std::nullopt;
  Bytes chunks(bytes.substr(12));
  while (chunks.left() >= kChunkHeaderBytes) {
    const auto id = chunks.take(4);
    const auto size = chunks.littleEndian32();
    const auto body = chunks.take(*size, true);
    if (*id == kRiffData) return body;
    chunks.take(*size & 1u, true);  // chunks start on even offsets
  }
  return std::nullopt;
}

// How ticks become seconds: a tempo map for ticks per quarter note, or a
// fixed count of ticks a second for SMPTE time.
class TempoMap {
 public:
  static std::optional<TempoMap> fromDivision(std::uint16_t division) {
    TempoMap map;
    if ((division & 0x8000u) == 0) {
      if (division == 0) return std::nullopt;
      map.ticksPerQuarter_ = division;
      map.segments_.push_back({0, 0, secondsPerTick(kDefaultMicrosecondsPerQuarter, division)});
      return map;
    }
    const int framesCode = -static_cast<std::int8_t>(division >> 8);
    const int ticksPerFrame = division & 0xFF;
    const double framesPerSecond = framesCode == 29 ? 30000.0 / 1001.0 : framesCode;
    if (ticksPerFrame == 0 ||
        (framesCode != 24 && framesCode != 25 && framesCode != 29 && framesCode != 30)) {
      return std::nullopt;
    }
    map.segments_.push_back({0, 0, 1.0 / (framesPerSecond * ticksPerFrame)});
    return map;
  }

  // Tempo changes in tick order; ignored in SMPTE time.
  void setTempo(std::uint64_t tick, std::uint32_t microsecondsPerQuarter) {
    if (ticksPerQuarter_ == 0) return;
    const double start = seconds(tick);
    if (segments_.back().tick == tick) segments_.pop_back();
    segments_.push_back({tick, start, secondsPerTick(microsecondsPerQuarter, ticksPerQuarter_)});
  }

  double seconds(std::uint64_t tick) const {
    const auto after =
        std::upper_bound(segments_.begin(), segments_.end(), tick,
                         [](std::uint64_t t, const Segment& s) { return t < s.tick; });
    const Segment& segment = *std::prev(after);
    return segment.seconds + static_cast<double>(tick - segment.tick) * segment.secondsPerTick;
  }

 private:
  struct Segment {
    std::uint64_t tick;
    double seconds;
    double secondsPerTick;
  };

  static double secondsPerTick(std::uint32_t microsecondsPerQuarter, std::uint32_t ticks) {
    return microsecondsPerQuarter / (kMicrosecondsPerSecond * ticks);
  }

  std::uint32_t ticksPerQuarter_ = 0;  // 0 in SMPTE time
  std::vector<Segment> segments_;      // by tick; the first at tick 0
};

struct TimedEvent {
  std::uint64_t tick;
  MidiEvent event;
};

struct TempoChange {
  std::uint64_t tick;
  std::uint32_t microsecondsPerQuarter;
};

// What the tracks hold, before their ticks become seconds.
struct Tracks {
  std::vector<TimedEvent> events;
  std::vector<TempoChange> tempos;
  std::vector<std::uint64_t> ends;  // the tick where each track ends
  std::vector<std::uint8_t> sysex;
};

int dataBytesOf(std::uint8_t status) {
  const int kind = status & 0xF0;
  return kind == 0xC0 || kind == 0xD0 ? 1 : 2;
}

// Reads one message after its delta time; false where the track must end.
class TrackReader {
 public:
  TrackReader(std::string_view body, Tracks& into) : bytes_(body), into_(into) {}

  std::uint64_t read() {
    std::uint64_t end = 0;
    while (!bytes_.done()) {
      const auto delta = bytes_.variableLength();
      if (!delta) break;
      tick_ += *delta;
      if (!readMessage()) break;
      end = tick_;
      if (ended_) break;
    }
    return end;
  }

 private:
  bool readMessage() {
    const auto first = bytes_.peek();
    if (!first) return false;
    if (*first < 0x80) return running_ != 0 && readChannel(running_);
    bytes_.byte();
    if (*first < 0xF0) {
      running_ = *first;
      return readChannel(*first);
    }
    // System exclusive and meta events cancel running status.
    running_ = 0;
    if (*first == kMeta) return readMeta();
    if (*first == kSysex || *first == kSysexEscape) return readSysex(*first);
    return false;  // a real-time or common message cannot stand in a file
  }

  bool readChannel(std::uint8_t status) {
    MidiEvent event;
    event.status = status;
    std::uint8_t* data[] = {&event.data1, &event.data2};
    for (int i = 0; i < dataBytesOf(status); ++i) {
      const auto b = bytes_.byte();
      if (!b || *b >= 0x80) return false;
      *data[i] = *b;
    }
    into_.events.push_back({tick_, event});
    return true;
  }

  bool readMeta() {
    const auto type = bytes_.byte();
    const auto length = type ? bytes_.variableLength() : std::nullopt;
    const auto body = length ? bytes_.take(*length) : std::nullopt;
    if (!body) return false;
    if (*type == kMetaEndOfTrack) {
      ended_ = true;
    } else if (*type == kMetaTempo && body->size() >= 3) {
      Bytes tempo(*body);
      into_.tempos.push_back({tick_, *tempo.bigEndian(3)});
    }
    return true;
  }

  // An F0 message goes to the synthesizer without its F0 and closing F7; an
  // F7 "escape" carries bytes of any kind (a continued message, real-time
  // bytes) that a synthesizer cannot take by themselves, and is skipped.
  bool readSysex(std::uint8_t status) {
    const auto length = bytes_.variableLength();
    auto body = length ? bytes_.take(*length) : std::nullopt;
    if (!body) return false;
    if (status != kSysex) return true;
    if (!body->empty() && static_cast<std::uint8_t>(body->back()) == kSysexEscape) {
      body->remove_suffix(1);
    }
    MidiEvent event;
    event.status = kSysex;
    event.sysexOffset = static_cast<std::uint32_t>(into_.sysex.size());
    event.sysexLength = static_cast<std::uint32_t>(body->size());
    into_.sysex.insert(into_.sysex.end(), body->begin(), body->end());
    into_.events.push_back({tick_, event});
    return true;
  }

  Bytes bytes_;
  Tracks& into_;
  std::uint64_t tick_ = 0;
  std::uint8_t running_ = 0;
  bool ended_ = false;
};

MidiSong timeSong(Tracks tracks, TempoMap map) {
  // Tracks were read one after the other, each in tick order: a stable sort
  // by tick keeps the tracks' order among events of the same tick.
  const auto byTick = [](const auto& a, const auto& b) { return a.tick < b.tick; };
  std::stable_sort(tracks.tempos.begin(), tracks.tempos.end(), byTick);
  std::stable_sort(tracks.events.begin(), tracks.events.end(), byTick);
  for (const TempoChange& change : tracks.tempos) {
    map.setTempo(change.tick, change.microsecondsPerQuarter);
  }
  MidiSong song;
  for (const std::uint64_t end : tracks.ends) {
    song.length = std::max(song.length, map.seconds(end));
  }
  song.length = std::min(song.length, kMaxMidiSeconds);
  song.events.reserve(tracks.events.size());
  for (const TimedEvent& timed : tracks.events) {
    const double seconds = map.seconds(timed.tick);
    if (seconds > song.length) break;
    song.events.push_back(timed.event);
    song.events.back().seconds = seconds;
  }
  song.sysex = std::move(tracks.sysex);
  return song;
}

}  // namespace

bool looksLikeMidi(std::string_view head) {
  return head.starts_with(kHeader) ||
         (head.starts_with(kRiff) && head.size() >= 12 && head.substr(8, 4) == kRmid);
}

std::optional<MidiSong> readMidiFile(std::string_view bytes) {
  // Offsets into the song's system exclusive bytes are 32 bits.
  if (bytes.size() > std::numeric_limits<std::uint32_t>::max()) return std::nullopt;
  const auto file = unwrapRiff(bytes);
  if (!file || !file->starts_with(kHeader)) return std::nullopt;
  Bytes chunks(*file);
  chunks.take(kHeader.size());
  const auto headerLength = chunks.bigEndian(4);
  const auto header = headerLength ? chunks.take(*headerLength) : std::nullopt;
  if (!header || header->size() < kHeaderFieldBytes) return std::nullopt;
  Bytes fields(*header);
  const auto format = fields.bigEndian(2);
  const auto trackCount = fields.bigEndian(2);
  const auto map = TempoMap::fromDivision(static_cast<std::uint16_t>(*fields.bigEndian(2)));
  if (*format > 2 || *trackCount == 0 || !map) return std::nullopt;

  Tracks tracks;
  while (tracks.ends.size() < *trackCount && chunks.left() >= kChunkHeaderBytes) {
    const auto id = chunks.take(4);
    const auto body = chunks.take(*chunks.bigEndian(4), true);
    if (*id == kTrack) tracks.ends.push_back(TrackReader(*body, tracks).read());
  }
  if (tracks.ends.empty()) return std::nullopt;
  return timeSong(std::move(tracks), *map);
}

}  // namespace yarvo
