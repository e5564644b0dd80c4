#pragma once
// The audio library's calls played out on the manual clock: a channel's
// position runs with the test's time while it plays, so a test can tick the
// engine form through a whole song without a sound device or a decoder.
// Every call is logged by name.

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "engines/BassApi.h"
#include "support/ManualClock.h"

namespace yarvo::test {

class FakeBass final : public BassApi {
 public:
  explicit FakeBass(const ManualClock& clock) : clock_(clock) {}

  // A file the fake can open: as a stream, or (music) only as a module.
  void AddFile(const std::string& path, double seconds, bool music = false);

  BOOL BASS_Init(int device, DWORD freq, DWORD flags, HWND win, const void* dsguid) override;
  BOOL BASS_Free() override;
  BOOL BASS_SetConfig(DWORD option, DWORD value) override;
  HSTREAM BASS_StreamCreateFile(BOOL mem, const void* file, QWORD offset, QWORD length,
                                DWORD flags) override;
  HMUSIC BASS_MusicLoad(BOOL mem, const void* file, QWORD offset, DWORD length, DWORD flags,
                        DWORD freq) override;
  BOOL BASS_StreamFree(HSTREAM handle) override;
  BOOL BASS_MusicFree(HMUSIC handle) override;
  HFX BASS_ChannelSetFX(DWORD handle, DWORD type, int priority) override;
  BOOL BASS_FXGetParameters(HFX handle, void* params) override;
  BOOL BASS_FXSetParameters(HFX handle, const void* params) override;
  BOOL BASS_ChannelPlay(DWORD handle, BOOL restart) override;
  BOOL BASS_ChannelPause(DWORD handle) override;
  BOOL BASS_ChannelStop(DWORD handle) override;
  DWORD BASS_ChannelIsActive(DWORD handle) override;
  QWORD BASS_ChannelGetPosition(DWORD handle, DWORD mode) override;
  QWORD BASS_ChannelGetLength(DWORD handle, DWORD mode) override;
  BOOL BASS_ChannelSetPosition(DWORD handle, QWORD pos, DWORD mode) override;
  double BASS_ChannelBytes2Seconds(DWORD handle, QWORD pos) override;
  BOOL BASS_ChannelGetInfo(DWORD handle, BASS_CHANNELINFO* info) override;
  DWORD BASS_ChannelGetData(DWORD handle, void* buffer, DWORD length) override;

  // The file a live channel plays, "" for none.
  std::string PlayingFile() const;
  // How many calls of `name` were made.
  int Calls(const std::string& name) const;

  std::vector<std::string> log;
  DWORD volume = 0;
  bool initialised = false;
  std::map<HFX, BASS_DX8_PARAMEQ> bands;
  std::map<HFX, BASS_DX8_REVERB> reverbs;

  static constexpr double kBytesPerSecond = 176400;  // 44.1 kHz, 16-bit stereo

 private:
  struct Channel {
    std::string file;
    bool music = false;
    QWORD length = 0;
    QWORD base = 0;          // position when it last started or halted
    std::int64_t since = 0;  // clock time it last started
    bool playing = false;
    bool paused = false;
  };
  Channel* Find(DWORD handle);
  QWORD Position(const Channel& channel) const;
  DWORD Open(const void* file, bool music);

  const ManualClock& clock_;
  struct File {
    double seconds;
    bool music;
  };
  std::map<std::string, File> files_;
  std::map<DWORD, Channel> channels_;
  std::map<HFX, DWORD> effects_;
  DWORD next_ = 1;
};

}  // namespace yarvo::test
