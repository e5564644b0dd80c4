#pragma once
// Runs each test against a freshly initialised library whose output is a
// CaptureOutput, and frees the library afterwards.

#include "CaptureOutput.h"
#include "TestSignals.h"

#include "engines/audio/AudioOutput.h"
#include "engines/audio/Bass.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>

namespace yarvo::audio::test {

// Seconds of `handle` played per second of the steady clock over `span`.
inline double playbackSpeed(DWORD handle, std::chrono::milliseconds span) {
  const auto seconds = [&] {
    return BASS_ChannelBytes2Seconds(handle, BASS_ChannelGetPosition(handle, BASS_POS_BYTE));
  };
  const double from = seconds();
  const auto start = std::chrono::steady_clock::now();
  std::this_thread::sleep_for(span);
  const double played = seconds() - from;
  return played / std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

class BassFixture : public ::testing::Test {
 protected:
  // Override before SetUp runs (in the derived constructor) to change them.
  int outputRate_ = 44100;
  CaptureOutput::Pace pace_ = CaptureOutput::Pace::Manual;

  void SetUp() override { ASSERT_TRUE(reopen(outputRate_, pace_)); }

  // Frees the library and starts it again on a new capture output. (A plain
  // BASS_Free and BASS_Init keep the output.)
  bool reopen(int rate, CaptureOutput::Pace pace) {
    BASS_Free();
    outputRate_ = rate;
    pace_ = pace;
    setOutputFactory([this](int, int) {
      auto output = std::make_unique<CaptureOutput>(outputRate_, pace_);
      capture_ = output.get();
      return output;
    });
    return BASS_Init(-1, 44100, 0, nullptr, nullptr) != 0;
  }

  void TearDown() override {
    BASS_Free();
    setOutputFactory({});
  }

  HSTREAM openStream(const std::filesystem::path& path) {
    return BASS_StreamCreateFile(BASS_FALSE, path.c_str(), 0, 0, BASS_SAMPLE_FX | BASS_UNICODE);
  }
  // Writes `signal` to a WAV file of its own and opens it.
  HSTREAM openWav(const Signal& signal, bool asFloat = false) {
    const auto path = dir_ / ("signal" + std::to_string(++files_) + ".wav");
    writeWav(path, signal, asFloat);
    return openStream(path);
  }
  HMUSIC loadMusic(const std::filesystem::path& path) {
    return BASS_MusicLoad(BASS_FALSE, path.c_str(), 0, 0,
                          BASS_SAMPLE_FX | BASS_MUSIC_RAMP | BASS_UNICODE, 0);
  }

  // Manual pace: renders `seconds` of output and returns it.
  std::vector<float> render(double seconds) {
    constexpr std::size_t kStep = 441;
    auto frames = static_cast<std::size_t>(seconds * outputRate_);
    while (frames > 0) {
      const std::size_t n = std::min(frames, kStep);
      capture_->pump(n);
      frames -= n;
    }
    return capture_->take();
  }

  // Manual pace: renders until the channel ends (at most `limit` seconds).
  std::vector<float> renderToEnd(DWORD handle, double limit) {
    std::vector<float> all;
    const auto steps = static_cast<int>(limit * 10);
    for (int i = 0; i < steps && BASS_ChannelIsActive(handle) != BASS_ACTIVE_STOPPED; ++i) {
      const std::vector<float> part = render(0.1);
      all.insert(all.end(), part.begin(), part.end());
    }
    return all;
  }

  TempDir dir_;
  CaptureOutput* capture_ = nullptr;

 private:
  int files_ = 0;
};

}  // namespace yarvo::audio::test
