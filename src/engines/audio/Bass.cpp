#include "engines/audio/Bass.h"

#include "engines/audio/BassLibrary.h"

#include <cmath>

namespace yarvo {
namespace {

using audio::BassLibrary;
using audio::Channel;

constexpr QWORD kFailedPosition = ~QWORD{0};
constexpr DWORD kFailedData = 0xFFFFFFFF;

// The library's boundary: nothing thrown inside (allocation, thread start)
// reaches the caller; it becomes the call's failure value.
template <typename Result, typename Body>
Result guarded(Result failure, Body body) noexcept {
  try {
    return body();
  } catch (...) {
    return failure;
  }
}

BOOL toBool(bool value) noexcept { return value ? BASS_TRUE : BASS_FALSE; }

// Bytes per frame of the 16-bit positions the caller counts in.
QWORD frameBytes(const Channel& channel) noexcept {
  return static_cast<QWORD>(channel.channels()) * 2;
}

}  // namespace

BOOL BASS_Init(int device, DWORD freq, DWORD /*flags*/, HWND /*win*/, const void* /*dsguid*/) {
  return guarded(BASS_FALSE, [&] { return toBool(BassLibrary::instance().init(device, freq)); });
}

BOOL BASS_Free() {
  return guarded(BASS_FALSE, [] { return toBool(BassLibrary::instance().free()); });
}

BOOL BASS_SetConfig(DWORD option, DWORD value) {
  return guarded(BASS_FALSE,
                 [&] { return toBool(BassLibrary::instance().setConfig(option, value)); });
}

HSTREAM BASS_StreamCreateFile(BOOL mem, const void* file, QWORD offset, QWORD length, DWORD flags) {
  if (mem != 0 || offset != 0 || length != 0) return 0;
  return guarded(HSTREAM{0}, [&] { return BassLibrary::instance().createStream(file, flags); });
}

HMUSIC BASS_MusicLoad(BOOL mem, const void* file, QWORD offset, DWORD length, DWORD flags,
                      DWORD freq) {
  if (mem != 0 || offset != 0 || length != 0) return 0;
  return guarded(HMUSIC{0}, [&] { return BassLibrary::instance().loadMusic(file, flags, freq); });
}

BOOL BASS_StreamFree(HSTREAM handle) {
  return guarded(BASS_FALSE, [&] {
    return toBool(BassLibrary::instance().freeChannel(handle, Channel::Kind::Stream));
  });
}

BOOL BASS_MusicFree(HMUSIC handle) {
  return guarded(BASS_FALSE, [&] {
    return toBool(BassLibrary::instance().freeChannel(handle, Channel::Kind::Music));
  });
}

HFX BASS_ChannelSetFX(DWORD handle, DWORD type, int /*priority*/) {
  return guarded(HFX{0}, [&] { return BassLibrary::instance().setEffect(handle, type); });
}

BOOL BASS_FXGetParameters(HFX handle, void* params) {
  audio::Effect* effect = BassLibrary::instance().effect(handle);
  if (effect == nullptr || params == nullptr) return BASS_FALSE;
  effect->getParameters(params);
  return BASS_TRUE;
}

BOOL BASS_FXSetParameters(HFX handle, const void* params) {
  audio::Effect* effect = BassLibrary::instance().effect(handle);
  if (effect == nullptr || params == nullptr) return BASS_FALSE;
  return toBool(effect->setParameters(params));
}

BOOL BASS_ChannelPlay(DWORD handle, BOOL restart) {
  return guarded(BASS_FALSE, [&] {
    BassLibrary& library = BassLibrary::instance();
    Channel* channel = library.channel(handle);
    return toBool(channel != nullptr && library.play(*channel, restart != 0));
  });
}

BOOL BASS_ChannelPause(DWORD handle) {
  return guarded(BASS_FALSE, [&] {
    BassLibrary& library = BassLibrary::instance();
    Channel* channel = library.channel(handle);
    return toBool(channel != nullptr && library.pause(*channel));
  });
}

BOOL BASS_ChannelStop(DWORD handle) {
  return guarded(BASS_FALSE, [&] {
    BassLibrary& library = BassLibrary::instance();
    Channel* channel = library.channel(handle);
    if (channel == nullptr) return BASS_FALSE;
    library.stop(*channel);
    return BASS_TRUE;
  });
}

DWORD BASS_ChannelIsActive(DWORD handle) {
  const BassLibrary& library = BassLibrary::instance();
  const Channel* channel = library.channel(handle);
  return channel == nullptr ? BASS_ACTIVE_STOPPED : channel->activity(library.heardFrame());
}

QWORD BASS_ChannelGetPosition(DWORD handle, DWORD mode) {
  const BassLibrary& library = BassLibrary::instance();
  const Channel* channel = library.channel(handle);
  if (channel == nullptr || mode != BASS_POS_BYTE) return kFailedPosition;
  return channel->position(library.heardFrame()) * frameBytes(*channel);
}

QWORD BASS_ChannelGetLength(DWORD handle, DWORD mode) {
  const Channel* channel = BassLibrary::instance().channel(handle);
  if (channel == nullptr || mode != BASS_POS_BYTE) return kFailedPosition;
  return channel->lengthFrames() * frameBytes(*channel);
}

BOOL BASS_ChannelSetPosition(DWORD handle, QWORD pos, DWORD mode) {
  return guarded(BASS_FALSE, [&] {
    BassLibrary& library = BassLibrary::instance();
    Channel* channel = library.channel(handle);
    if (channel == nullptr || mode != BASS_POS_BYTE) return BASS_FALSE;
    return toBool(library.setPosition(*channel, pos / frameBytes(*channel)));
  });
}

double BASS_ChannelBytes2Seconds(DWORD handle, QWORD pos) {
  const Channel* channel = BassLibrary::instance().channel(handle);
  if (channel == nullptr) return -1.0;
  return static_cast<double>(pos / frameBytes(*channel)) / channel->rate();
}

BOOL BASS_ChannelGetInfo(DWORD handle, BASS_CHANNELINFO* info) {
  const Channel* channel = BassLibrary::instance().channel(handle);
  if (channel == nullptr || info == nullptr) return BASS_FALSE;
  *info = BASS_CHANNELINFO{static_cast<DWORD>(channel->rate()),
                           static_cast<DWORD>(channel->channels()),
                           channel->flags(),
                           channel->contentType(),
                           16,
                           0,
                           0,
                           channel->path().c_str()};
  return BASS_TRUE;
}

DWORD BASS_ChannelGetData(DWORD handle, void* buffer, DWORD length) {
  return guarded(kFailedData, [&] {
    Channel* channel = BassLibrary::instance().channel(handle);
    if (channel == nullptr) return kFailedData;
    return BassLibrary::instance().channelData(*channel, buffer, length);
  });
}

}  // namespace yarvo
