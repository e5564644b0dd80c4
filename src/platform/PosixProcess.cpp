#include "platform/PosixProcess.h"

#include <filesystem>
#include <system_error>

namespace yarvo {

namespace {

std::string JoinWithBlanks(const std::vector<std::string>& parts) {
  std::string joined;
  for (const auto& part : parts) {
    if (!joined.empty()) joined += ' ';
    joined += part;
  }
  return joined;
}

std::string ExecutableFolder() {
  std::error_code error;
  const auto exe = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::filesystem::current_path(error).string() : exe.parent_path().string();
}

}  // namespace

PosixProcess::PosixProcess(std::vector<std::string> arguments)
    : commandLine_(JoinWithBlanks(arguments)), programFolder_(ExecutableFolder()) {}

}  // namespace yarvo
