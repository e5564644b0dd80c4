#pragma once
// The state behind the BASS calls: the output, the mixer, and the tables that
// turn handles into channels and effects. One per process; the BASS functions
// in Bass.cpp forward here and turn any exception into a failed result.
//
// Interface thread only. Handles come from one counter that never goes back,
// so a handle freed, or left from before a BASS_Free, matches nothing.

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
  ~BassLibrary() { free(); }
  BassLibrary() = default;
  BassLibrary(const BassLibrary&) = delete;
  BassLibrary& operator=(const BassLibrary&) = delete;

  bool init(int device, DWORD freq);
  bool free();
  bool setConfig(DWORD option, DWORD value);
  // False when no output can run.
  bool play(Channel& channel, bool restart);

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
  bool running_ = false;
  DWORD nextHandle_ = 1;
  float volume_ = 1.0f;
  std::unique_ptr<FftAnalyser> spectrum_;
  std::vector<float> scratch_;
};

}  // namespace yarvo::audio
