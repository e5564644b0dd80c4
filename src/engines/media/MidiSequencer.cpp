#include "engines/media/MidiSequencer.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace yarvo {
namespace {

// Long enough for a released note and the reverb behind it to die away.
constexpr double kFadingSeconds = 2.0;

constexpr std::uint8_t kNoteOff = 0x80;
constexpr std::uint8_t kNoteOn = 0x90;
constexpr std::uint8_t kControlChange = 0xB0;
constexpr std::uint8_t kAllSoundOff = 120;
constexpr std::uint8_t kAllNotesOff = 123;
constexpr std::size_t kChannels = 16;
constexpr std::size_t kKeys = 128;

// The velocity of every note that sounds at some moment, by channel and key;
// 0 for none.
using SoundingNotes = std::array<std::array<std::uint8_t, kKeys>, kChannels>;

}  // namespace

MidiSequencer::MidiSequencer(MidiSong song, FluidSynth& synth, int rate)
    : song_(std::move(song)), synth_(synth), rate_(rate) {
  lengthFrames_ = toFrame(song_.length);
  endFrame_ = lengthFrames_;
  eventFrames_.reserve(song_.events.size());
  for (const MidiEvent& event : song_.events) {
    eventFrames_.push_back(toFrame(event.seconds));
  }
}

std::int64_t MidiSequencer::toFrame(double seconds) const {
  return std::llround(std::clamp(seconds, 0.0, kMaxMidiSeconds) * rate_);
}

std::int64_t MidiSequencer::nextEventFrame() const {
  return next_ < eventFrames_.size() ? eventFrames_[next_] : lengthFrames_;
}

std::int64_t MidiSequencer::heardFrameOfSong(std::uint64_t heardFrame) const {
  audio::PositionTrail::Heard heard;
  return trail_.at(heardFrame, generation_, heard) ? static_cast<std::int64_t>(heard.position)
                                                   : position_;
}

double MidiSequencer::heardPosition(std::uint64_t heardFrame) const {
  std::lock_guard lock(mutex_);
  return static_cast<double>(heardFrameOfSong(heardFrame)) / rate_;
}

bool MidiSequencer::heardEnd(std::uint64_t heardFrame) const {
  std::lock_guard lock(mutex_);
  return ended_ && heardFrameOfSong(heardFrame) >= position_;
}

void MidiSequencer::setPaused(bool paused) {
  std::lock_guard lock(mutex_);
  paused_ = paused;
}

std::size_t MidiSequencer::render(float* stereo, std::size_t frames) noexcept {
  std::lock_guard lock(mutex_);
  if (paused_) {
    std::fill(stereo, stereo + 2 * frames, 0.0f);
    return 0;
  }
  const std::int64_t from = position_;
  std::size_t done = 0;
  while (done < frames) {
    auto chunk = static_cast<std::int64_t>(frames - done);
    if (!ended_) {
      playDueEvents();
      if (position_ >= endFrame_) {
        finish();
        continue;
      }
      chunk = std::min({chunk, endFrame_ - position_, nextEventFrame() - position_});
      position_ += chunk;
    } else if (fadingLeft_ > 0) {
      chunk = std::min(chunk, fadingLeft_);
      fadingLeft_ -= chunk;
    } else {
      std::fill(stereo + 2 * done, stereo + 2 * frames, 0.0f);
      break;
    }
    synth_.write(stereo + 2 * done, static_cast<std::size_t>(chunk));
    done += static_cast<std::size_t>(chunk);
  }
  scale(stereo, done);
  if (done > 0) {
    const std::uint64_t first = rendered_.load(std::memory_order_relaxed);
    trail_.add({first, first + done, static_cast<std::uint64_t>(from),
                static_cast<std::uint64_t>(position_), 0, generation_});
    rendered_.store(first + done, std::memory_order_release);
  }
  return done;
}

void MidiSequencer::playDueEvents() {
  while (next_ < eventFrames_.size() && eventFrames_[next_] <= position_ &&
         eventFrames_[next_] < endFrame_) {
    synth_.send(song_.events[next_++], song_.sysex);
  }
}

void MidiSequencer::finish() {
  synth_.releaseAll();
  ended_ = true;
  fadingLeft_ = std::llround(kFadingSeconds * rate_);
}

void MidiSequencer::scale(float* stereo, std::size_t frames) const {
  if (leftGain_ == 1.0f && rightGain_ == 1.0f) {
    return;
  }
  for (std::size_t i = 0; i < frames; ++i) {
    stereo[2 * i] *= leftGain_;
    stereo[2 * i + 1] *= rightGain_;
  }
}

void MidiSequencer::seek(double seconds) {
  std::lock_guard lock(mutex_);
  const std::int64_t target = std::min(toFrame(seconds), lengthFrames_);
  synth_.reset();
  SoundingNotes sounding{};
  for (next_ = 0; next_ < eventFrames_.size() && eventFrames_[next_] < target; ++next_) {
    const MidiEvent& event = song_.events[next_];
    const auto kind = static_cast<std::uint8_t>(event.status & 0xF0);
    auto& channel = sounding[event.status & 0x0F];
    if (kind == kNoteOn || kind == kNoteOff) {
      channel[event.data1] = kind == kNoteOn ? event.data2 : 0;
      continue;
    }
    if (kind == kControlChange && (event.data1 == kAllSoundOff || event.data1 == kAllNotesOff)) {
      channel.fill(0);
    }
    synth_.send(event, song_.sysex);
  }
  position_ = target;
  ++generation_;
  ended_ = false;
  fadingLeft_ = 0;
  if (target >= endFrame_) {
    return;
  }
  for (std::size_t c = 0; c < kChannels; ++c) {
    for (std::size_t key = 0; key < kKeys; ++key) {
      if (sounding[c][key] != 0) {
        synth_.noteOn(static_cast<int>(c), static_cast<int>(key), sounding[c][key]);
      }
    }
  }
}

void MidiSequencer::setEnd(std::optional<double> seconds) {
  std::lock_guard lock(mutex_);
  endFrame_ = seconds ? std::min(toFrame(*seconds), lengthFrames_) : lengthFrames_;
}

void MidiSequencer::setGains(float left, float right) {
  std::lock_guard lock(mutex_);
  leftGain_ = left;
  rightGain_ = right;
}

}  // namespace yarvo
