#pragma once
// The running program: the one object that owns every form and reaches the
// outside world. Every module gets at it through program().
//
// A form is made on its first reference, as the program's windows always were,
// and its Load handler runs then. One Program exists at a time; tests make a
// fresh one per test, with recording stand-ins for the platform.

#include <memory>
#include <vector>

#include "core/form/TimerScheduler.h"

namespace yarvo {

class Desktop;
class ProcessControl;

class DataForm;
class Form;
class FormMeniuri;
class JumpForm;
class Main;
class MediaLibrary;
class Options;
class Playlist;

struct Services {
  TimerScheduler& scheduler;
  Desktop& desktop;
  ProcessControl& process;
};

class Program {
 public:
  explicit Program(Services services);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  yarvo::DataForm& DataForm();
  yarvo::Main& Main();
  yarvo::Playlist& Playlist();
  yarvo::FormMeniuri& FormMeniuri();
  yarvo::Options& Options();
  yarvo::MediaLibrary& MediaLibrary();
  yarvo::JumpForm& JumpForm();

  // The forms made so far, in the order they were made.
  std::vector<Form*> LoadedForms() const;

  Desktop& desktop() const { return services_.desktop; }
  ProcessControl& process() const { return services_.process; }

  // Ends the process: unwinds to the event loop, which quits. Does not return.
  [[noreturn]] static void End(int exitCode = 0);

  static Program& Current();

 private:
  struct Forms;

  Services services_;
  TimerScheduler::Use scheduler_;
  std::unique_ptr<Forms> forms_;
};

inline Program& program() { return Program::Current(); }

}  // namespace yarvo
