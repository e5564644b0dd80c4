#pragma once
// The process facts of a running program on Linux: its command line, its
// program folder (platform/ProgramFolder.h), and the instance lock it holds
// for its lifetime.

#include <string>
#include <vector>

#include "platform/InstanceLock.h"
#include "platform/ProcessControl.h"

namespace yarvo {

class PosixProcess final : public ProcessControl {
 public:
  // `arguments` are those behind the program name. Chooses the program
  // folder, making and filling the user's one when it is chosen.
  explicit PosixProcess(std::vector<std::string> arguments);

  std::string CommandLine() const override { return commandLine_; }
  std::string ProgramFolder() const override { return programFolder_; }
  bool AnotherInstanceRunning() const override { return lock_.AnotherInstanceRunning(); }

 private:
  std::string commandLine_;
  std::string programFolder_;
  InstanceLock lock_;
};

}  // namespace yarvo
