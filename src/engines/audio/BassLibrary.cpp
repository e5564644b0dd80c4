#include "engines/audio/BassLibrary.h"

#include "engines/audio/Decoder.h"
#include "engines/audio/ParamEq.h"
#include "engines/audio/Reverb.h"
#include "engines/audio/TrackerDecoder.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>

namespace yarvo::audio {
namespace {

constexpr DWORD kDefaultRate = 44100;
constexpr DWORD kMaxVolume = 10000;
constexpr DWORD kFailedData = 0xFFFFFFFF;
constexpr DWORD kFftFlag = 0x80000000;
constexpr DWORD kDataFlags = BASS_DATA_FLOAT | kFftFlag;

}  // namespace

BassLibrary& BassLibrary::instance() {
  static BassLibrary library;
  return library;
}

bool BassLibrary::init(int device, DWORD freq) {
  if (initialised_) return false;
  if (device < -1 || device > 1) return false;
  const int wished = static_cast<int>(freq >= 8000 && freq <= 192000 ? freq : kDefaultRate);
  if (!output_ || device != device_ || factoryVersion_ != outputFactoryVersion() || output_->lost())
    openOutput(device, wished);
  applyVolume();
  initialised_ = true;
  return true;
}

void BassLibrary::openOutput(int device, int wishedRate) {
  closeOutput();
  device_ = device;
  factoryVersion_ = outputFactoryVersion();
  output_ = makeOutput(device, wishedRate);
  mixer_ = std::make_unique<Mixer>(output_->rate(), output_->realTime());
}

void BassLibrary::closeOutput() {
  if (output_) output_->stop();
  effects_.clear();
  channels_.clear();
  output_.reset();
  mixer_.reset();
}

// The channels leave the mixer before what the output holds of them is
// thrown away, so none of it is heard after this; the output rests.
bool BassLibrary::free() {
  if (!initialised_) return false;
  for (const auto& [handle, channel] : channels_) mixer_->detach(*channel);
  discard();
  effects_.clear();
  channels_.clear();
  initialised_ = false;
  return true;
}

// The output starts with the first channel played, not at init: a player that
// is opened and left alone keeps the sound device idle and its thread asleep.
bool BassLibrary::play(Channel& channel, bool restart) {
  channel.play(restart);
  if (startOutput()) return true;
  channel.stop();
  return false;
}

bool BassLibrary::startOutput() {
  if (output_->start(*mixer_)) return true;
  // A device that opened but will not run: play into nothing instead, at
  // the rate the channels already convert to.
  auto fallback = makeOutput(0, mixer_->rate());
  if (!fallback->start(*mixer_)) return false;
  output_->stop();
  output_ = std::move(fallback);
  // It is "no sound": the next BASS_Init asks for the device again.
  device_ = 0;
  applyVolume();
  return true;
}

bool BassLibrary::pause(Channel& channel) {
  if (!channel.pause()) return false;
  discard();
  return true;
}

void BassLibrary::stop(Channel& channel) {
  channel.stop();
  discard();
}

bool BassLibrary::setPosition(Channel& channel, std::uint64_t frame) {
  if (frame > channel.lengthFrames()) return false;
  discard(&channel, frame);
  return true;
}

void BassLibrary::discard(Channel* seeking, std::uint64_t frame) {
  output_->discard([&](std::uint64_t heard) {
    for (const auto& [handle, channel] : channels_) {
      if (channel.get() != seeking) channel->rewind(heard);
    }
    if (seeking != nullptr) seeking->setPosition(frame);
  });
}

std::uint64_t BassLibrary::heardFrame() const noexcept {
  return output_ ? output_->heardFrame() : 0;
}

bool BassLibrary::setConfig(DWORD option, DWORD value) {
  if (option != BASS_CONFIG_GVOL_STREAM) return false;
  volume_ = static_cast<float>(std::min(value, kMaxVolume)) / static_cast<float>(kMaxVolume);
  if (output_) applyVolume();
  return true;
}

// A sound server applies the volume to what it already holds, so the new
// volume is heard at once; the mixer's applies only to what it renders next.
void BassLibrary::applyVolume() { mixer_->setVolume(output_->setVolume(volume_) ? 1.0f : volume_); }

DWORD BassLibrary::adopt(std::unique_ptr<Channel> channel) {
  const DWORD handle = nextHandle_++;
  mixer_->attach(*channel);
  channels_.emplace(handle, std::move(channel));
  return handle;
}

DWORD BassLibrary::createStream(const void* file, DWORD flags) {
  if (!initialised_ || file == nullptr) return 0;
  std::string path(static_cast<const char*>(file));
  auto decoder = openStreamDecoder(path);
  if (!decoder) return 0;
  return adopt(std::make_unique<Channel>(Channel::Kind::Stream, std::move(decoder), std::move(path),
                                         flags, mixer_->rate()));
}

DWORD BassLibrary::loadMusic(const void* file, DWORD flags, DWORD freq) {
  if (!initialised_ || file == nullptr) return 0;
  std::string path(static_cast<const char*>(file));
  const int rate = freq >= 8000 && freq <= 192000 ? static_cast<int>(freq) : mixer_->rate();
  auto decoder =
      openTrackerDecoder(path, rate, (flags & (BASS_MUSIC_RAMP | BASS_MUSIC_RAMPS)) != 0);
  if (!decoder) return 0;
  return adopt(std::make_unique<Channel>(Channel::Kind::Music, std::move(decoder), std::move(path),
                                         flags, mixer_->rate()));
}

bool BassLibrary::freeChannel(DWORD handle, Channel::Kind kind) {
  const auto it = channels_.find(handle);
  if (it == channels_.end() || it->second->kind() != kind) return false;
  mixer_->detach(*it->second);
  std::erase_if(effects_, [handle](const auto& entry) { return entry.second.channel == handle; });
  channels_.erase(it);
  discard();
  return true;
}

Channel* BassLibrary::channel(DWORD handle) const {
  const auto it = channels_.find(handle);
  return it == channels_.end() ? nullptr : it->second.get();
}

DWORD BassLibrary::setEffect(DWORD handle, DWORD type) {
  Channel* target = channel(handle);
  if (target == nullptr) return 0;
  std::unique_ptr<Effect> effect;
  if (type == BASS_FX_DX8_PARAMEQ)
    effect = std::make_unique<ParamEq>(target->rate(), target->channels());
  else if (type == BASS_FX_DX8_REVERB)
    effect = std::make_unique<Reverb>(target->rate(), target->channels());
  else
    return 0;
  Effect* added = target->addEffect(std::move(effect));
  if (added == nullptr) return 0;
  const DWORD fx = nextHandle_++;
  effects_.emplace(fx, EffectEntry{handle, added});
  return fx;
}

Effect* BassLibrary::effect(DWORD handle) const {
  const auto it = effects_.find(handle);
  return it == effects_.end() ? nullptr : it->second.effect;
}

DWORD BassLibrary::channelData(Channel& channel, void* buffer, DWORD length) {
  if (buffer == nullptr) return kFailedData;
  const auto chans = static_cast<std::size_t>(channel.channels());
  const std::uint64_t heard = heardFrame();
  if (length == BASS_DATA_FFT2048) {
    if (!spectrum_) spectrum_ = std::make_unique<FftAnalyser>();
    scratch_.resize(FftAnalyser::kSize * chans);
    channel.heardSamples(scratch_.data(), FftAnalyser::kSize, heard);
    spectrum_->compute(scratch_.data(), channel.channels(), static_cast<float*>(buffer));
    return static_cast<DWORD>(FftAnalyser::kBins * sizeof(float));
  }
  if ((length & kFftFlag) != 0) return kFailedData;
  const bool asFloat = (length & BASS_DATA_FLOAT) != 0;
  const std::size_t bytes = length & ~kDataFlags;
  const std::size_t sampleBytes = asFloat ? sizeof(float) : sizeof(std::int16_t);
  const std::size_t frames = std::min(bytes / sampleBytes / chans, Channel::kRecentFrames / 2);
  scratch_.resize(frames * chans);
  channel.heardSamples(scratch_.data(), frames, heard);
  if (asFloat) {
    std::memcpy(buffer, scratch_.data(), frames * chans * sizeof(float));
  } else {
    auto* out = static_cast<std::int16_t*>(buffer);
    for (std::size_t i = 0; i < frames * chans; ++i)
      out[i] =
          static_cast<std::int16_t>(std::lround(std::clamp(scratch_[i], -1.0f, 1.0f) * 32767.0f));
  }
  return static_cast<DWORD>(frames * chans * sampleBytes);
}

}  // namespace yarvo::audio
