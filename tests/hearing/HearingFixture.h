#pragma once
// The program on the real audio library and its default output, playing into
// a private PulseAudio null sink whose monitor parec records: what a user
// hears, pinned against the moment of a press. The program's timers follow
// the steady clock, a few milliseconds at a time, as the app's event loop
// would run them; the presses are the program's own handlers (keyboard
// shortcuts, a double click on a row, the seek bar).
//
// Songs are mono WAV files of steady tones, each song (or each second of the
// stepped song) at its own frequency, so that the recording tells which song,
// and which second of it, is heard at any frame.

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "director/Program.h"
#include "support/ProgramFixture.h"
#include "support/SoundServer.h"

namespace yarvo::test {

class HearingFixture : public ProgramFixture {
 protected:
  using Clock = std::chrono::steady_clock;
  using Ms = std::chrono::milliseconds;

  static constexpr int kRate = SoundServer::kRate;
  static constexpr double kLevel = 0.5;
  // Keys of the keyboard page as the app binds them.
  static constexpr int kPlayKey = 13, kPauseKey = 32, kStopKey = 83, kNextKey = 39,
                       kPreviousKey = 37, kVolumeDownKey = 40;

  // The recorder asks the sink for `recorderLatencyMs`: a short latency
  // makes the sink render in short blocks, so the recording follows real
  // time closely; a long one leaves the sink free to sleep in long blocks, as
  // it does with no one listening closely.
  explicit HearingFixture(int recorderLatencyMs = 20);
  ~HearingFixture() override;

  // Skips the test where no private sound server can run; otherwise writes
  // the songs, starts the recorder and the program.
  void SetUp() override;

  // A row of the playlist: a steady tone of `hz`, or with `stepHz` a tone
  // that rises by that much every second.
  void AddSong(const std::string& name, double seconds, double hz, double stepHz = 0);
  Program& P() { return *program_; }

  // Runs the program's timers in real time for `span`.
  void Live(Ms span);
  // The moment of a press: the steady time just before `press` runs.
  template <typename Action>
  Clock::time_point Press(Action&& press) {
    const auto at = Clock::now();
    press();
    return at;
  }
  void Key(int code);
  void DoubleClick(int row);

  // The recording so far, stereo frames, and the frame recorded at `at`.
  std::vector<float> Recording() const;
  std::size_t FrameAt(Clock::time_point at) const;

  // The first frame from `from` on where a tone of `hz` is heard at half its
  // level or more; the frame after the last such frame of the stretch that
  // starts there, for EndOfTone.
  std::optional<std::size_t> StartOfTone(const std::vector<float>& heard, double hz,
                                         std::size_t from) const;
  std::optional<std::size_t> EndOfTone(const std::vector<float>& heard, double hz,
                                       std::size_t from) const;
  // The level of a tone of `hz`, and of everything, over `count` frames.
  double Level(const std::vector<float>& heard, double hz, std::size_t from,
               std::size_t count) const;
  double Loudness(const std::vector<float>& heard, std::size_t from, std::size_t count) const;

  static std::size_t Frames(Ms span) {
    return static_cast<std::size_t>(span.count()) * kRate / 1000;
  }
  static double Millis(std::ptrdiff_t frames) { return 1000.0 * double(frames) / kRate; }

  SoundServer sound_;

 private:
  void KeepTime();

  int recorderLatencyMs_;
  // The engine form makes the program's folder the current one; the folder
  // goes with the test.
  std::filesystem::path workingFolder_ = std::filesystem::current_path();
  std::unique_ptr<ChildProcess> recorder_;
  std::filesystem::path recording_;
  Clock::time_point start_;
  // When the recording's first frame was taken, by the file's length at each
  // look of KeepTime.
  std::vector<Clock::time_point> recordingStarts_;
  std::unique_ptr<Program> program_;
};

}  // namespace yarvo::test
