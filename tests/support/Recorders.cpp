#include "support/Recorders.h"

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

double ScriptedRandom::Rnd() {
  if (values.empty()) return 0;
  const double value = values.front();
  values.pop_front();
  return value;
}

}  // namespace yarvo::test
