#include "engines/BassApi.h"

namespace yarvo {

namespace {

class Library final : public BassApi {
 public:
  BOOL BASS_Init(int device, DWORD freq, DWORD flags, HWND win, const void* dsguid) override {
    return yarvo::BASS_Init(device, freq, flags, win, dsguid);
  }
  BOOL BASS_Free() override { return yarvo::BASS_Free(); }
  BOOL BASS_SetConfig(DWORD option, DWORD value) override {
    return yarvo::BASS_SetConfig(option, value);
  }
  HSTREAM BASS_StreamCreateFile(BOOL mem, const void* file, QWORD offset, QWORD length,
                                DWORD flags) override {
    return yarvo::BASS_StreamCreateFile(mem, file, offset, length, flags);
  }
  HMUSIC BASS_MusicLoad(BOOL mem, const void* file, QWORD offset, DWORD length, DWORD flags,
                        DWORD freq) override {
    return yarvo::BASS_MusicLoad(mem, file, offset, length, flags, freq);
  }
  BOOL BASS_StreamFree(HSTREAM handle) override { return yarvo::BASS_StreamFree(handle); }
  BOOL BASS_MusicFree(HMUSIC handle) override { return yarvo::BASS_MusicFree(handle); }
  HFX BASS_ChannelSetFX(DWORD handle, DWORD type, int priority) override {
    return yarvo::BASS_ChannelSetFX(handle, type, priority);
  }
  BOOL BASS_FXGetParameters(HFX handle, void* params) override {
    return yarvo::BASS_FXGetParameters(handle, params);
  }
  BOOL BASS_FXSetParameters(HFX handle, const void* params) override {
    return yarvo::BASS_FXSetParameters(handle, params);
  }
  BOOL BASS_ChannelPlay(DWORD handle, BOOL restart) override {
    return yarvo::BASS_ChannelPlay(handle, restart);
  }
  BOOL BASS_ChannelPause(DWORD handle) override { return yarvo::BASS_ChannelPause(handle); }
  BOOL BASS_ChannelStop(DWORD handle) override { return yarvo::BASS_ChannelStop(handle); }
  DWORD BASS_ChannelIsActive(DWORD handle) override { return yarvo::BASS_ChannelIsActive(handle); }
  QWORD BASS_ChannelGetPosition(DWORD handle, DWORD mode) override {
    return yarvo::BASS_ChannelGetPosition(handle, mode);
  }
  QWORD BASS_ChannelGetLength(DWORD handle, DWORD mode) override {
    return yarvo::BASS_ChannelGetLength(handle, mode);
  }
  BOOL BASS_ChannelSetPosition(DWORD handle, QWORD pos, DWORD mode) override {
    return yarvo::BASS_ChannelSetPosition(handle, pos, mode);
  }
  double BASS_ChannelBytes2Seconds(DWORD handle, QWORD pos) override {
    return yarvo::BASS_ChannelBytes2Seconds(handle, pos);
  }
  BOOL BASS_ChannelGetInfo(DWORD handle, BASS_CHANNELINFO* info) override {
    return yarvo::BASS_ChannelGetInfo(handle, info);
  }
  DWORD BASS_ChannelGetData(DWORD handle, void* buffer, DWORD length) override {
    return yarvo::BASS_ChannelGetData(handle, buffer, length);
  }
};

}  // namespace

BassApi& LibraryBass() {
  static Library library;
  return library;
}

}  // namespace yarvo
