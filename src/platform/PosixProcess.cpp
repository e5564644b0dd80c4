#include "platform/PosixProcess.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/ProgramFolder.h"

namespace yarvo {

namespace {

namespace fs = std::filesystem;

std::string JoinWithBlanks(const std::vector<std::string>& parts) {
  std::string joined;
  for (const auto& part : parts) {
    if (!joined.empty()) joined += ' ';
    joined += part;
  }
  return joined;
}

fs::path ExecutableFolder() {
  std::error_code error;
  const auto exe = fs::read_symlink("/proc/self/exe", error);
  return error ? fs::current_path(error) : exe.parent_path();
}

// $HOME, else the home of the user's account.
const char* Home() {
  const char* home = std::getenv("HOME");
  if (home != nullptr && *home != '\0') return home;
  const passwd* account = ::getpwuid(::getuid());
  return account != nullptr ? account->pw_dir : nullptr;
}

std::string ProgramFolderOfThisProcess() {
  const fs::path executable = ExecutableFolder();
  const ProgramFolderPlaces places{executable,
                                   (executable / YARVO_SHIPPED_DATA_FROM_BIN).lexically_normal(),
                                   UserDataFolder(std::getenv("XDG_DATA_HOME"), Home())};
  return ChooseProgramFolder(places, MayWrite).string();
}

}  // namespace

PosixProcess::PosixProcess(std::vector<std::string> arguments)
    : commandLine_(JoinWithBlanks(arguments)),
      programFolder_(ProgramFolderOfThisProcess()),
      lock_(InstanceLock::LockFileOf(programFolder_)) {}

}  // namespace yarvo
