#pragma once
// The audio library's public surface: the BASS calls, records and constants the
// player's audio engine is written against.
//
// Threads: every call is made on the one interface thread. Audio is rendered on
// an output thread of the library's own; no call blocks for longer than it takes
// to open a file, to stop a channel's decoder or to reach the sound server.
// Pause, stop, free, seek and the volume are heard at once: what the output
// holds of the audio before them is thrown away, not played out.
// Failures: a call that fails returns 0 (FALSE), or (DWORD)-1 where 0 is a valid
// answer (BASS_ChannelGetData), or -1 cast to QWORD (positions and lengths).
// Handles are never reused within a process, so a handle that was freed, or that
// belongs to an earlier BASS_Init, fails harmlessly like 0 and unknown values.
// Paths are UTF-8; the Unicode flag is accepted and means nothing here.

#include <cstdint>

namespace yarvo {

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using QWORD = std::uint64_t;
using BOOL = int;
using HSTREAM = DWORD;
using HMUSIC = DWORD;
using HFX = DWORD;
using HSAMPLE = DWORD;
using HPLUGIN = DWORD;
using HWND = void*;

inline constexpr BOOL BASS_TRUE = 1;
inline constexpr BOOL BASS_FALSE = 0;

// Channel creation flags.
inline constexpr DWORD BASS_SAMPLE_FX = 128;
inline constexpr DWORD BASS_MUSIC_RAMP = 512;
inline constexpr DWORD BASS_MUSIC_RAMPS = 1024;
inline constexpr DWORD BASS_UNICODE = 0x80000000;

// Effect types of BASS_ChannelSetFX.
inline constexpr DWORD BASS_FX_DX8_PARAMEQ = 7;
inline constexpr DWORD BASS_FX_DX8_REVERB = 8;

// BASS_SetConfig options. The stream volume is linear, 0 (silent) to 10000 (full).
inline constexpr DWORD BASS_CONFIG_GVOL_STREAM = 5;

// Position mode: bytes of 16-bit interleaved PCM at the channel's own rate.
inline constexpr DWORD BASS_POS_BYTE = 0;

// BASS_ChannelGetData selectors, combined with a byte count for sample data.
inline constexpr DWORD BASS_DATA_FLOAT = 0x40000000;
inline constexpr DWORD BASS_DATA_FFT2048 = 0x80000003;

// BASS_ChannelIsActive results.
inline constexpr DWORD BASS_ACTIVE_STOPPED = 0;
inline constexpr DWORD BASS_ACTIVE_PLAYING = 1;
inline constexpr DWORD BASS_ACTIVE_STALLED = 2;
inline constexpr DWORD BASS_ACTIVE_PAUSED = 3;

// Content types of BASS_CHANNELINFO::ctype.
inline constexpr DWORD BASS_CTYPE_STREAM = 0x10000;
inline constexpr DWORD BASS_CTYPE_STREAM_OGG = 0x10002;
inline constexpr DWORD BASS_CTYPE_STREAM_MP1 = 0x10003;
inline constexpr DWORD BASS_CTYPE_STREAM_MP2 = 0x10004;
inline constexpr DWORD BASS_CTYPE_STREAM_MP3 = 0x10005;
inline constexpr DWORD BASS_CTYPE_STREAM_AIFF = 0x10006;
inline constexpr DWORD BASS_CTYPE_STREAM_WAV_PCM = 0x50001;
inline constexpr DWORD BASS_CTYPE_STREAM_WAV_FLOAT = 0x50003;
inline constexpr DWORD BASS_CTYPE_MUSIC_MOD = 0x20000;
inline constexpr DWORD BASS_CTYPE_MUSIC_MTM = 0x20001;
inline constexpr DWORD BASS_CTYPE_MUSIC_S3M = 0x20002;
inline constexpr DWORD BASS_CTYPE_MUSIC_XM = 0x20003;
inline constexpr DWORD BASS_CTYPE_MUSIC_IT = 0x20004;

// Peaking equaliser band. fCenter in Hz (80..16000), fBandwidth in semitones
// (1..36), fGain in dB (-15..+15). Values outside are clamped.
struct BASS_DX8_PARAMEQ {
  float fCenter;
  float fBandwidth;
  float fGain;
};

// Room reverb. fInGain dB (-96..0, default 0), fReverbMix dB (-96..0, default
// 0; -96 is no reverb), fReverbTime ms (0.001..3000, default 1000),
// fHighFreqRTRatio (0.001..0.999, default 0.001): the decay time of the highs
// as a share of fReverbTime. Values outside are clamped.
struct BASS_DX8_REVERB {
  float fInGain;
  float fReverbMix;
  float fReverbTime;
  float fHighFreqRTRatio;
};

// chans is the file's channel count; freq its sample rate. filename stays valid
// while the channel exists.
struct BASS_CHANNELINFO {
  DWORD freq;
  DWORD chans;
  DWORD flags;
  DWORD ctype;
  DWORD origres;
  HPLUGIN plugin;
  HSAMPLE sample;
  const char* filename;
};

// device -1 (default) or 1: the desktop's sound server; 0: no sound, audio is
// consumed at real-time speed. freq is the rate wished for when the device has
// no preference. Fails when already initialised. A sound server is asked for
// its rate only; no stream is opened on it until a channel plays.
BOOL BASS_Init(int device, DWORD freq, DWORD flags, HWND win, const void* dsguid);
// Frees every channel and effect; nothing of them is heard after it. The
// output rests and lets the device go after a few seconds of silence unless
// a BASS_Init and a play come first.
BOOL BASS_Free();
BOOL BASS_SetConfig(DWORD option, DWORD value);

// Opens a stream (MPEG layers 1-3, WAV, Ogg Vorbis, FLAC, AIFF, ...) found by
// content. mem must be false; offset and length must be 0. 0 when the file is no
// stream, including tracker modules.
HSTREAM BASS_StreamCreateFile(BOOL mem, const void* file, QWORD offset, QWORD length, DWORD flags);
// Opens a tracker module (MOD, S3M, XM, IT, ...). freq 0 renders at the output's
// rate. 0 when the file is no module.
HMUSIC BASS_MusicLoad(BOOL mem, const void* file, QWORD offset, DWORD length, DWORD flags,
                      DWORD freq);
// Each frees only its own kind of channel.
BOOL BASS_StreamFree(HSTREAM handle);
BOOL BASS_MusicFree(HMUSIC handle);

// Effects run in the order they were set, on the channel's samples at its own
// rate; new parameters are heard once the output has played what it holds.
HFX BASS_ChannelSetFX(DWORD handle, DWORD type, int priority);
BOOL BASS_FXGetParameters(HFX handle, void* params);
BOOL BASS_FXSetParameters(HFX handle, const void* params);

// restart non-zero plays from the start; otherwise play resumes where it halted.
// A channel that ended plays again from the start. A channel counts as
// playing until the end of its file has been heard.
BOOL BASS_ChannelPlay(DWORD handle, BOOL restart);
BOOL BASS_ChannelPause(DWORD handle);
BOOL BASS_ChannelStop(DWORD handle);
// BASS_ACTIVE_PLAYING, BASS_ACTIVE_PAUSED, or BASS_ACTIVE_STOPPED (0) for a
// stopped, ended, freed or unknown channel.
DWORD BASS_ChannelIsActive(DWORD handle);

// Positions and lengths in bytes (mode BASS_POS_BYTE only). The position is
// that of the audio being heard, not of what the output holds before it is
// heard, so it stands still while paused.
QWORD BASS_ChannelGetPosition(DWORD handle, DWORD mode);
QWORD BASS_ChannelGetLength(DWORD handle, DWORD mode);
BOOL BASS_ChannelSetPosition(DWORD handle, QWORD pos, DWORD mode);
// Negative when the handle is invalid.
double BASS_ChannelBytes2Seconds(DWORD handle, QWORD pos);
BOOL BASS_ChannelGetInfo(DWORD handle, BASS_CHANNELINFO* info);

// Reads what is being heard on the channel, after its effects and before the
// volume. BASS_DATA_FFT2048: 1024 floats, magnitudes of a Hann-windowed
// 2048-frame mono mix, a full-scale sine peaking near 1.0; returns 4096.
// A byte count, with BASS_DATA_FLOAT: the most recent interleaved samples as
// floats -1..1; without it as 16-bit integers. Returns the bytes written, or
// (DWORD)-1 on failure.
DWORD BASS_ChannelGetData(DWORD handle, void* buffer, DWORD length);

}  // namespace yarvo
