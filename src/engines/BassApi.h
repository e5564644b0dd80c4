#pragma once
// The audio library's calls as the engine form makes them, behind one
// interface: the program's own audio library in the app (LibraryBass), a
// recording fake that follows a manual clock in tests. Every call keeps the
// library's contract (engines/audio/Bass.h): 0 is failure, stale handles fail
// harmlessly.

#include "engines/audio/Bass.h"

namespace yarvo {

class BassApi {
 public:
  virtual ~BassApi() = default;
  virtual BOOL BASS_Init(int device, DWORD freq, DWORD flags, HWND win, const void* dsguid) = 0;
  virtual BOOL BASS_Free() = 0;
  virtual BOOL BASS_SetConfig(DWORD option, DWORD value) = 0;
  virtual HSTREAM BASS_StreamCreateFile(BOOL mem, const void* file, QWORD offset, QWORD length,
                                        DWORD flags) = 0;
  virtual HMUSIC BASS_MusicLoad(BOOL mem, const void* file, QWORD offset, DWORD length, DWORD flags,
                                DWORD freq) = 0;
  virtual BOOL BASS_StreamFree(HSTREAM handle) = 0;
  virtual BOOL BASS_MusicFree(HMUSIC handle) = 0;
  virtual HFX BASS_ChannelSetFX(DWORD handle, DWORD type, int priority) = 0;
  virtual BOOL BASS_FXGetParameters(HFX handle, void* params) = 0;
  virtual BOOL BASS_FXSetParameters(HFX handle, const void* params) = 0;
  virtual BOOL BASS_ChannelPlay(DWORD handle, BOOL restart) = 0;
  virtual BOOL BASS_ChannelPause(DWORD handle) = 0;
  virtual BOOL BASS_ChannelStop(DWORD handle) = 0;
  virtual DWORD BASS_ChannelIsActive(DWORD handle) = 0;
  virtual QWORD BASS_ChannelGetPosition(DWORD handle, DWORD mode) = 0;
  virtual QWORD BASS_ChannelGetLength(DWORD handle, DWORD mode) = 0;
  virtual BOOL BASS_ChannelSetPosition(DWORD handle, QWORD pos, DWORD mode) = 0;
  virtual double BASS_ChannelBytes2Seconds(DWORD handle, QWORD pos) = 0;
  virtual BOOL BASS_ChannelGetInfo(DWORD handle, BASS_CHANNELINFO* info) = 0;
  virtual DWORD BASS_ChannelGetData(DWORD handle, void* buffer, DWORD length) = 0;
};

// The program's own audio library.
BassApi& LibraryBass();

}  // namespace yarvo
