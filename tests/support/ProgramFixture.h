#pragma once
// A fresh program per test, in a temporary program folder with its Data and
// Playlists folders, driven by a manual clock and recording platform.

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "director/Program.h"
#include "support/FakeBass.h"
#include "support/ManualClock.h"
#include "support/Recorders.h"
#include "support/TempDir.h"

namespace yarvo {
class StringList;
class ctlScrollbar;
}  // namespace yarvo

namespace yarvo::test {

void WriteBytes(const std::string& path, const std::string& bytes);
std::string ReadBytes(const std::string& path);
std::vector<std::string> Rows(const StringList& list);
// A press and a release of the left button in the middle of a bar's thumb.
void PressAndReleaseThumb(ctlScrollbar& bar);
// A settings.ini of 72 lines, empty but for the given ones.
std::string SettingsWith(std::initializer_list<std::pair<int, std::string>> lines);

class ProgramFixture : public ::testing::Test {
 protected:
  ProgramFixture();
  ~ProgramFixture() override;

  // Makes the Program and starts it as the app does, by loading Main; the
  // program folder is the temporary folder. Tests that prepare files call it
  // after preparing them.
  Program& Start();
  Program& P() { return *program_; }
  // Ends the program without saving and starts a new one in the same folder,
  // with `settings` as its settings.ini when given.
  Program& Restart(const std::string& settings = {});

  TempDir folder;
  ManualClock clock;
  RecordingDesktop desktop;
  FakeProcess process;
  FakeBass bass{clock};
  ScriptedRandom random;

 private:
  std::unique_ptr<Program> program_;
};

}  // namespace yarvo::test
