#include "support/FakeBass.h"

#include <algorithm>
#include <cmath>

namespace yarvo::test {

void FakeBass::AddFile(const std::string& path, double seconds, bool music) {
  files_[path] = {seconds, music};
}

FakeBass::Channel* FakeBass::Find(DWORD handle) {
  const auto found = channels_.find(handle);
  return found == channels_.end() ? nullptr : &found->second;
}

QWORD FakeBass::Position(const Channel& c) const {
  if (!c.playing) return c.base;
  const double elapsed = double(clock_.Now() - c.since) / 1000.0 * kBytesPerSecond;
  return std::min(c.length, c.base + static_cast<QWORD>(elapsed));
}

DWORD FakeBass::Open(const void* file, bool music) {
  const std::string path = static_cast<const char*>(file);
  const auto found = files_.find(path);
  if (!initialised || found == files_.end() || found->second.music != music) return 0;
  Channel channel;
  channel.file = path;
  channel.music = music;
  channel.length = static_cast<QWORD>(found->second.seconds * kBytesPerSecond);
  channels_[next_] = channel;
  return next_++;
}

BOOL FakeBass::BASS_Init(int, DWORD, DWORD, HWND, const void*) {
  log.push_back("BASS_Init");
  if (initialised) return BASS_FALSE;
  initialised = true;
  return BASS_TRUE;
}

BOOL FakeBass::BASS_Free() {
  log.push_back("BASS_Free");
  channels_.clear();
  effects_.clear();
  const bool was = initialised;
  initialised = false;
  return was ? BASS_TRUE : BASS_FALSE;
}

BOOL FakeBass::BASS_SetConfig(DWORD option, DWORD value) {
  log.push_back("BASS_SetConfig");
  if (option != BASS_CONFIG_GVOL_STREAM || value > 10000) return BASS_FALSE;
  volume = value;
  return BASS_TRUE;
}

HSTREAM FakeBass::BASS_StreamCreateFile(BOOL, const void* file, QWORD, QWORD, DWORD) {
  log.push_back("BASS_StreamCreateFile");
  return Open(file, false);
}

HMUSIC FakeBass::BASS_MusicLoad(BOOL, const void* file, QWORD, DWORD, DWORD, DWORD) {
  log.push_back("BASS_MusicLoad");
  return Open(file, true);
}

BOOL FakeBass::BASS_StreamFree(HSTREAM handle) {
  log.push_back("BASS_StreamFree");
  const Channel* c = Find(handle);
  if (!c || c->music) return BASS_FALSE;
  channels_.erase(handle);
  return BASS_TRUE;
}

BOOL FakeBass::BASS_MusicFree(HMUSIC handle) {
  log.push_back("BASS_MusicFree");
  const Channel* c = Find(handle);
  if (!c || !c->music) return BASS_FALSE;
  channels_.erase(handle);
  return BASS_TRUE;
}

HFX FakeBass::BASS_ChannelSetFX(DWORD handle, DWORD type, int) {
  log.push_back("BASS_ChannelSetFX");
  if (!Find(handle) || (type != BASS_FX_DX8_PARAMEQ && type != BASS_FX_DX8_REVERB)) return 0;
  const HFX fx = next_++;
  effects_[fx] = handle;
  if (type == BASS_FX_DX8_PARAMEQ) bands[fx] = {100, 12, 0};
  if (type == BASS_FX_DX8_REVERB) reverbs[fx] = {0, 0, 1000, 0.001f};
  return fx;
}

BOOL FakeBass::BASS_FXGetParameters(HFX handle, void* params) {
  if (!effects_.count(handle)) return BASS_FALSE;
  if (bands.count(handle)) *static_cast<BASS_DX8_PARAMEQ*>(params) = bands[handle];
  if (reverbs.count(handle)) *static_cast<BASS_DX8_REVERB*>(params) = reverbs[handle];
  return BASS_TRUE;
}

BOOL FakeBass::BASS_FXSetParameters(HFX handle, const void* params) {
  if (!effects_.count(handle)) return BASS_FALSE;
  if (bands.count(handle)) bands[handle] = *static_cast<const BASS_DX8_PARAMEQ*>(params);
  if (reverbs.count(handle)) reverbs[handle] = *static_cast<const BASS_DX8_REVERB*>(params);
  return BASS_TRUE;
}

BOOL FakeBass::BASS_ChannelPlay(DWORD handle, BOOL) {
  log.push_back("BASS_ChannelPlay");
  Channel* c = Find(handle);
  if (!c) return BASS_FALSE;
  if (!c->playing) {
    c->playing = true;
    c->paused = false;
    c->since = clock_.Now();
  }
  return BASS_TRUE;
}

BOOL FakeBass::BASS_ChannelPause(DWORD handle) {
  log.push_back("BASS_ChannelPause");
  Channel* c = Find(handle);
  if (!c || !c->playing) return BASS_FALSE;
  c->base = Position(*c);
  c->playing = false;
  c->paused = true;
  return BASS_TRUE;
}

BOOL FakeBass::BASS_ChannelStop(DWORD handle) {
  log.push_back("BASS_ChannelStop");
  Channel* c = Find(handle);
  if (!c) return BASS_FALSE;
  c->base = Position(*c);
  c->playing = false;
  c->paused = false;
  return BASS_TRUE;
}

DWORD FakeBass::BASS_ChannelIsActive(DWORD handle) {
  Channel* c = Find(handle);
  if (!c) return BASS_ACTIVE_STOPPED;
  if (c->paused) return BASS_ACTIVE_PAUSED;
  return c->playing && Position(*c) < c->length ? BASS_ACTIVE_PLAYING : BASS_ACTIVE_STOPPED;
}

QWORD FakeBass::BASS_ChannelGetPosition(DWORD handle, DWORD) {
  Channel* c = Find(handle);
  return c ? Position(*c) : static_cast<QWORD>(-1);
}

QWORD FakeBass::BASS_ChannelGetLength(DWORD handle, DWORD) {
  Channel* c = Find(handle);
  return c ? c->length : static_cast<QWORD>(-1);
}

BOOL FakeBass::BASS_ChannelSetPosition(DWORD handle, QWORD pos, DWORD) {
  log.push_back("BASS_ChannelSetPosition");
  Channel* c = Find(handle);
  if (!c || pos > c->length) return BASS_FALSE;
  c->base = pos;
  c->since = clock_.Now();
  return BASS_TRUE;
}

double FakeBass::BASS_ChannelBytes2Seconds(DWORD handle, QWORD pos) {
  return Find(handle) ? double(pos) / kBytesPerSecond : -1;
}

BOOL FakeBass::BASS_ChannelGetInfo(DWORD handle, BASS_CHANNELINFO* info) {
  if (!Find(handle)) return BASS_FALSE;
  *info = {};
  info->freq = 44100;
  info->chans = 2;
  return BASS_TRUE;
}

DWORD FakeBass::BASS_ChannelGetData(DWORD handle, void*, DWORD) {
  return Find(handle) ? 0 : static_cast<DWORD>(-1);
}

std::string FakeBass::PlayingFile() const {
  for (const auto& [handle, c] : channels_) {
    if (c.playing) return c.file;
  }
  return {};
}

int FakeBass::Calls(const std::string& name) const {
  return static_cast<int>(std::count(log.begin(), log.end(), name));
}

}  // namespace yarvo::test
