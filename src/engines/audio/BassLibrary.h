#pragma once
// The state behind the BASS calls: the output, the mixer, and the tables that
// turn handles into channels and effects. One per process; the BASS functions
// in Bass.cpp forward here and turn any exception into a failed result.
//
// Interface thread only. Handles come from one counter that never goes back,
// so a handle freed, or left from before a BASS_Free, matches nothing.
//
// The output outlives BASS_Free: the player frees the library between any
// two songs, and the next BASS_Init takes the same output (and the sound
// server's stream, if it was not yet released for silence), so the next song
// is heard at once. Every change a user makes (pause, stop, free, seek)
// discards what the output holds and puts the channels back to what was
// heard, so it is heard at once too.

#include "engines/audio/AudioOutput.h"
#include "engines/audio/Bass.h"
#include "engines/audio/Channel.h"
#include "engines/audio/FftAnalyser.h"
#include "engines/audio/Mixer.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace yarvo::audio {

class BassLibrary {
 public:
  static BassLibrary& instance();
  // A program that ends without BASS_Free still stops the output before the
  // channels it plays go away.
  ~BassLibrary() { closeOutput(); }
  BassLibrary() = default;
  BassLibrary(const BassLibrary&) = delete;
  BassLibrary& operator=(const BassLibrary&) = delete;

  bool init(int device, DWORD freq);
  bool free();
  bool setConfig(DWORD option, DWORD value);
  // False when no output can run.
  bool play(Channel& channel, bool restart);
  // False when the channel is not playing.
  bool pause(Channel& channel);
  void stop(Channel& channel);
  // False beyond the channel's end.
  bool setPosition(Channel& channel, std::uint64_t frame);
  // The output frame heard now, for the channels' positions.
  [[nodiscard]] std::uint64_t heardFrame() const noexcept;

  DWORD createStream(const void* file, DWORD flags);
  DWORD loadMusic(const void* file, DWORD flags, DWORD freq);
  bool freeChannel(DWORD handle, Channel::Kind kind);

  DWORD setEffect(DWORD handle, DWORD type);
  // nullptr when the handle is no live effect.
  Effect* effect(DWORD handle) const;
  // nullptr when the handle is no live channel.
  Channel* channel(DWORD handle) const;

  DWORD channelData(Channel& channel, void* buffer, DWORD length);

 private:
  DWORD adopt(std::unique_ptr<Channel> channel);
  bool startOutput();
  void openOutput(int device, int wishedRate);
  void closeOutput();
  void applyVolume();
  // Throws away what the output holds; every channel goes back to what was
  // heard but `seeking`, which goes to `frame`.
  void discard(Channel* seeking = nullptr, std::uint64_t frame = 0);

  // Declared so that destruction runs output, mixer, channels: nothing is
  // destroyed while something that reads it may still run.
  std::unordered_map<DWORD, std::unique_ptr<Channel>> channels_;
  struct EffectEntry {
    DWORD channel;
    Effect* effect;
  };
  std::unordered_map<DWORD, EffectEntry> effects_;
  std::unique_ptr<Mixer> mixer_;
  std::unique_ptr<AudioOutput> output_;
  // What the output was made for.
  int device_ = 0;
  std::uint64_t factoryVersion_ = 0;
  bool initialised_ = false;
  DWORD nextHandle_ = 1;
  float volume_ = 1.0f;
  std::unique_ptr<FftAnalyser> spectrum_;
  std::vector<float> scratch_;
};

}  // namespace yarvo::audio
