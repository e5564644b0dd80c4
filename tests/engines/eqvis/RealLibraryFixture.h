#pragma once
// A program on the real audio library (LibraryBass) instead of the fake, with
// a capture output in place of the sound server: at manual pace the test
// renders the audio itself; at real-time pace the output's own thread plays
// it on the steady clock. Timers still run on the manual clock.

#include <memory>
#include <string>

#include "CaptureOutput.h"
#include "TestSignals.h"
#include "director/Program.h"
#include "engines/BassApi.h"
#include "engines/audio/AudioOutput.h"
#include "engines/audio/Bass.h"
#include "engines/frmBass.h"
#include "support/ProgramFixture.h"

namespace yarvo::test {

class RealLibraryFixture : public ProgramFixture {
 protected:
  using Pace = audio::test::CaptureOutput::Pace;

  explicit RealLibraryFixture(Pace pace = Pace::Manual) : pace_(pace) {
    audio::setOutputFactory([this](int, int rate) {
      auto output = std::make_unique<audio::test::CaptureOutput>(rate, pace_);
      capture_ = output.get();
      return output;
    });
  }

  ~RealLibraryFixture() override {
    real_.reset();
    // The engine form is destroyed without its Unload here: free the library
    // for the next test's BASS_Init.
    BASS_Free();
    audio::setOutputFactory({});
  }

  Program& StartReal() {
    real_ = std::make_unique<Program>(Services{clock, desktop, process, LibraryBass(), random});
    real_->Main();
    return *real_;
  }
  Program& R() { return *real_; }

  // Plays `path` through the engine form, as the director does.
  void PlayFile(const std::filesystem::path& path) {
    auto& engine = R().frmBass();
    engine.FileToPlay.Text = path.string();
    engine.PLAYtheBass();
  }

  // Manual pace: renders `seconds` of output.
  void Render(double seconds) {
    constexpr std::size_t kStep = 441;
    for (auto frames = static_cast<std::size_t>(seconds * 44100); frames > 0;) {
      const std::size_t n = std::min(frames, kStep);
      capture_->pump(n);
      frames -= n;
    }
  }

  audio::test::TempDir media_;
  audio::test::CaptureOutput* capture_ = nullptr;

 private:
  Pace pace_;
  std::unique_ptr<Program> real_;
};

}  // namespace yarvo::test
