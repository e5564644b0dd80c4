#pragma once
// Recording stand-ins for the platform: they answer as a test tells them and
// remember what the program asked.

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "core/RandomSource.h"
#include "platform/Desktop.h"
#include "platform/ProcessControl.h"
#include "platform/SystemTray.h"

namespace yarvo::test {

// A notification area that holds what it is given; `available` says
// whether the desktop has one.
class RecordingTray final : public SystemTray {
 public:
  struct Icon {
    Picture picture;
    std::string tip;
    Press pressed;
  };
  void Add(int id, const Picture& icon, const std::string& tip, Press pressed) override {
    icons[id] = {icon, tip, std::move(pressed)};
  }
  void Remove(int id) override { icons.erase(id); }
  bool Shown(int id) const override { return available && icons.contains(id); }

  std::map<int, Icon> icons;
  bool available = true;
};

class RecordingDesktop final : public Desktop {
 public:
  struct Message {
    std::string prompt;
    std::string title;
  };

  void MsgBox(const std::string& prompt, const std::string& title) override;
  std::string GetOpenFileName(const OpenFileRequest& request) override;
  std::string BrowseForFolder(const std::string& title) override;
  void OpenWebPage(const std::string&) override {}
  TwipsSize ScreenSize() const override { return {1920 * 15, 1080 * 15}; }
  ScreenRect WorkArea() const override { return workArea; }
  SystemTray& Tray() override { return tray; }
  void DoEvents() override {}
  ScreenPoint CursorPos() const override { return cursor; }
  const Form* FormAt(ScreenPoint) const override { return formUnderCursor; }
  // A picture for a file that exists, named after it; no pixels of its own
  // beyond a size of 1 by 1.
  Picture LoadPicture(const std::string& path) override;
  // Records the popup; the chosen item (see `choose`) runs its Click.
  void PopupMenu(const Form& form, Menu& menu, int x, int y) override;
  void DragWindow(Form& form, int hitCode) override;

  struct Popup {
    const Form* form;
    std::string menu;
    int x;
    int y;
  };
  struct Drag {
    const Form* form;
    int hitCode;
  };

  std::vector<Message> messages;
  std::vector<OpenFileRequest> fileRequests;
  std::vector<std::string> folderTitles;
  // What the next dialogs answer, in order; "" (cancel) when empty.
  std::deque<std::string> fileAnswers;
  std::deque<std::string> folderAnswers;
  std::vector<std::string> picturesLoaded;
  std::vector<Popup> popups;
  std::vector<Drag> drags;
  // What the next popups choose, by the items' names, in order; nothing
  // when empty.
  std::deque<std::string> choose;
  ScreenPoint cursor{-1, -1};
  const Form* formUnderCursor = nullptr;
  ScreenRect workArea{0, 0, 1920, 1050};  // a panel of 30 pixels at the bottom
  RecordingTray tray;
};

class FakeProcess final : public ProcessControl {
 public:
  std::string CommandLine() const override { return commandLine; }
  std::string ProgramFolder() const override { return programFolder; }
  bool AnotherInstanceRunning() const override { return anotherInstance; }

  std::string commandLine;
  std::string programFolder;
  bool anotherInstance = false;
};

// A random source that gives the numbers a test lines up, then 0.
class ScriptedRandom final : public RandomSource {
 public:
  void Randomize() override { ++randomizes; }
  double Rnd() override;

  // Lines up the draw that makes Below(count) give `pick`.
  void Next(int pick, int count) { values.push_back((pick + 0.5) / count); }

  std::deque<double> values;
  int randomizes = 0;
};

}  // namespace yarvo::test
