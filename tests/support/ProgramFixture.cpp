#include "support/ProgramFixture.h"

#include <unistd.h>

#include <fstream>
#include <sstream>

#include "core/DataForm.h"
#include "core/form/StringList.h"
#include "core/form/Twips.h"
#include "engines/media/MCore.h"
#include "engines/media/MciSendString.h"
#include "windows/Main.h"
#include "windows/ctlScrollbar.h"

namespace yarvo::test {

void WriteBytes(const std::string& path, const std::string& bytes) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

std::vector<std::string> Rows(const StringList& list) { return list.Items(); }

void PressAndReleaseThumb(ctlScrollbar& bar) {
  MouseEvent e;
  e.button = MouseButton::Left;
  e.x = (bar.Picture4.Left + bar.Picture2.Left + bar.Picture2.Width / 2) * kTwipsPerPixel;
  e.y = (bar.Picture4.Top + bar.Picture2.Top + bar.Picture2.Height / 2) * kTwipsPerPixel;
  bar.MouseDown(e);
  bar.MouseUp(e);
}

std::string SettingsWith(std::initializer_list<std::pair<int, std::string>> lines) {
  std::vector<std::string> text(72);
  for (const auto& [line, value] : lines) text.at(static_cast<std::size_t>(line)) = value;
  std::string bytes;
  for (const auto& line : text) bytes += line + "\r\n";
  return bytes;
}

ProgramFixture::ProgramFixture() {
  std::filesystem::create_directories(folder.path() / "Data");
  std::filesystem::create_directories(folder.path() / "Playlists");
  process.programFolder = folder.path().string();
  // Every play is checked against the blocked names, and a list of fewer
  // than ten closes the program: ten that no test's file matches.
  std::string names;
  for (int i = 0; i < 10; ++i) names += "#no-such-artist-" + std::to_string(i) + "#\r\n";
  WriteBytes(folder / "Data/mnin.data", names);
  // The media service's driver table lives in the test's folder, and media
  // opened by a test play silently with no picture.
  setMciDriverFile(folder.path() / "system.ini");
  configureMciService({"null", false, std::chrono::milliseconds(10000)});
}

Program& ProgramFixture::Restart(const std::string& settings) {
  program_.reset();
  if (!settings.empty()) WriteBytes(folder / "settings.ini", settings);
  return Start();
}

ProgramFixture::~ProgramFixture() {
  program_.reset();
  setMciDriverFile({});
}

Program& ProgramFixture::Start() {
  program_ = std::make_unique<Program>(Services{clock, desktop, process, bass, random});
  program_->Main();  // the start window: its Load starts the program
  return *program_;
}

}  // namespace yarvo::test
