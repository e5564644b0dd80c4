#pragma once
// What the program knows of its own process.

#include <string>

namespace yarvo {

class ProcessControl {
 public:
  virtual ~ProcessControl() = default;
  // The whole text behind the program name: the arguments joined by single
  // blanks; one path, with no options and no quotes removed.
  virtual std::string CommandLine() const = 0;
  // The program folder (platform/ProgramFolder.h), without a trailing "/".
  virtual std::string ProgramFolder() const = 0;
  // Whether another instance of the program was running when this one started.
  virtual bool AnotherInstanceRunning() const = 0;
};

}  // namespace yarvo
