#include "support/Recorders.h"

#include <filesystem>
#include <functional>
#include <memory>

#include "core/form/Events.h"
#include "core/form/Form.h"
#include "core/form/Menu.h"
#include "core/form/RuntimeError.h"

namespace yarvo::test {

namespace {
std::string Next(std::deque<std::string>& answers) {
  if (answers.empty()) return {};
  std::string answer = answers.front();
  answers.pop_front();
  return answer;
}
}  // namespace

void RecordingDesktop::MsgBox(const std::string& prompt, const std::string& title) {
  messages.push_back({prompt, title});
}

std::string RecordingDesktop::GetOpenFileName(const OpenFileRequest& request) {
  fileRequests.push_back(request);
  return Next(fileAnswers);
}

std::string RecordingDesktop::BrowseForFolder(const std::string& title) {
  folderTitles.push_back(title);
  return Next(folderAnswers);
}

Picture RecordingDesktop::LoadPicture(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) throw err::FileNotFound();
  picturesLoaded.push_back(path);
  auto image = std::make_shared<Image>();
  image->width = 1;
  image->height = 1;
  image->argb = {0xFF000000u};
  return Picture(std::move(image), path);
}

void RecordingDesktop::PopupMenu(const Form& form, Menu& menu, int x, int y) {
  popups.push_back({&form, menu.Name(), x, y});
  if (choose.empty()) return;
  const std::string name = Next(choose);
  std::function<Menu*(Menu&)> find = [&](Menu& in) -> Menu* {
    for (Menu* item : in.Items()) {
      if (item->Name() == name) return item;
      if (Menu* deeper = find(*item)) return deeper;
    }
    return nullptr;
  };
  if (Menu* item = find(menu); item && item->Click) RunEvent(item->Click);
}

void RecordingDesktop::DragWindow(Form& form, int hitCode) { drags.push_back({&form, hitCode}); }

double ScriptedRandom::Rnd() {
  if (values.empty()) return 0;
  const double value = values.front();
  values.pop_front();
  return value;
}

}  // namespace yarvo::test
