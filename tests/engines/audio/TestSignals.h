#pragma once
// Media files made by the tests, and measurements of what the library played.

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "support/TempDir.h"

namespace yarvo::audio::test {

using yarvo::test::TempDir;

// Interleaved float samples; `channels` per frame.
struct Signal {
  int rate = 44100;
  int channels = 1;
  std::vector<float> samples;
};

Signal sine(double hz, double amplitude, double seconds, int rate = 44100);
// Silence with one sample of `amplitude` at `at` seconds.
Signal click(double at, double amplitude, double seconds, int rate = 44100);
// Left channel from `left`, right from `right` (both mono, same length).
Signal stereo(const Signal& left, const Signal& right);

// 16-bit PCM WAV, or 32-bit float WAV with `asFloat`, through libsndfile.
void writeWav(const std::filesystem::path& path, const Signal& signal, bool asFloat = false);
// A 1 kHz sine from ffmpeg's generator (amplitude 1/8), `seconds` long, mono
// 44.1 kHz, encoded with `codec` (libmp3lame, libvorbis, pcm_s16le) into `path`.
bool ffmpegSine(const std::filesystem::path& path, const std::string& codec, double seconds);
// 500 Hz for one second, then 2 kHz for one, amplitude 1/4, mono 44.1 kHz,
// encoded with `codec`.
bool ffmpegTwoTones(const std::filesystem::path& path, const std::string& codec);
// A four-channel ProTracker module: one looped 32-sample sine, four notes in
// the first channel of a single 64-row pattern.
void writeModule(const std::filesystem::path& path);
// Period 428 (C-2) of the module's notes, played from a 32-sample loop.
inline constexpr double kModuleToneHz = 3546895.0 / 428.0 / 32.0;
void writeBytes(const std::filesystem::path& path, const std::vector<unsigned char>& bytes);

// Amplitude of the `hz` component of one channel of interleaved `stereo`
// frames from `from` for `count` frames (a single-bin DFT; exact when the
// window holds whole cycles).
double toneAmplitude(const std::vector<float>& stereo, int channel, double hz, int rate,
                     std::size_t from, std::size_t count);
double rms(const std::vector<float>& stereo, std::size_t fromFrame, std::size_t frames);
double peak(const std::vector<float>& stereo, std::size_t fromFrame, std::size_t frames);
double toDb(double ratio);

}  // namespace yarvo::audio::test
