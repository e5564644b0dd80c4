#pragma once
// A program started as the app starts it, on the test stand-ins, in a
// temporary program folder that goes with the object: what every benchmark
// of the program's own routines runs on.

#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>

#include "core/form/Events.h"
#include "director/Program.h"
#include "support/FakeBass.h"
#include "support/ManualClock.h"
#include "support/Recorders.h"
#include "windows/Main.h"

namespace yarvo::bench {

class BenchProgram {
 public:
  BenchProgram() {
    std::string pattern = (std::filesystem::temp_directory_path() / "yarvo-bench-XXXXXX").string();
    folder = ::mkdtemp(pattern.data());
    std::filesystem::create_directories(folder / "Data");
    std::filesystem::create_directories(folder / "Playlists");
    process.programFolder = folder.string();
  }
  ~BenchProgram() {
    program.reset();
    ReleaseRetired();
    std::filesystem::remove_all(folder);
  }
  BenchProgram(const BenchProgram&) = delete;
  BenchProgram& operator=(const BenchProgram&) = delete;

  // Starts a program by loading Main, as the app does; a running one ends first.
  Program& Start() {
    Stop();
    program = std::make_unique<Program>(Services{clock, desktop, process, bass, random});
    program->Main();
    return *program;
  }

  void Stop() {
    program.reset();
    ReleaseRetired();
  }

  std::filesystem::path folder;
  test::ManualClock clock;
  test::RecordingDesktop desktop;
  test::FakeProcess process;
  test::FakeBass bass{clock};
  test::ScriptedRandom random;
  std::unique_ptr<Program> program;
};

}  // namespace yarvo::bench
