#pragma once
// The running program: the one object that owns every form and reaches the
// outside world. Every module gets at it through program().
//
// A form is made on its first reference, as the program's windows always were,
// and its Load handler runs then. One Program exists at a time; tests make a
// fresh one per test, with recording stand-ins for the platform.

#include <functional>
#include <memory>
#include <vector>

#include "core/form/TimerScheduler.h"

namespace yarvo {

class BassApi;
class Desktop;
class ProcessControl;
class RandomSource;

class DataForm;
class Form;
class FormMeniuri;
class FormPreset;
class frmBass;
class JumpForm;
class Main;
class MiniForm;
class MediaLibrary;
class Options;
class Playlist;

struct Services {
  TimerScheduler& scheduler;
  Desktop& desktop;
  ProcessControl& process;
  BassApi& bass;
  RandomSource& random;
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
  yarvo::frmBass& frmBass();

  // Destroys the engine form (its Unload runs now; the object goes when the
  // running event ends). The next reference makes a fresh one.
  void UnloadfrmBass();
  yarvo::MiniForm& MiniForm();
  // The mini window if it is loaded, without loading it.
  yarvo::MiniForm* LoadedMiniForm();
  void UnloadMiniForm();
  yarvo::FormPreset& FormPreset();
  yarvo::FormPreset* LoadedFormPreset();
  void UnloadFormPreset();

  // Runs `observer` for every form made from now on, right before its Load:
  // the host gives it a window then, so that Load already finds one.
  void ObserveFormsMade(std::function<void(Form&)> observer) { formMade_ = std::move(observer); }
  // Runs `observer` for every form unloaded from now on, after its Unload.
  void ObserveFormsUnloaded(std::function<void(Form&)> observer) {
    formUnloaded_ = std::move(observer);
  }

  // The forms made so far, in the order they were made.
  std::vector<Form*> LoadedForms() const;

  Desktop& desktop() const { return services_.desktop; }
  ProcessControl& process() const { return services_.process; }
  BassApi& bass() const { return services_.bass; }
  RandomSource& random() const { return services_.random; }

  // The module-level state of type T (a module's variables, such as the one
  // tag record): made on first use, alive as long as this program.
  template <class T>
  T& State() {
    static const std::size_t index = NewStateIndex();
    if (index >= state_.size()) state_.resize(index + 1);
    auto& slot = state_[index];
    if (!slot) slot = std::make_shared<T>();
    return *static_cast<T*>(slot.get());
  }

  // Ends the process: unwinds to the event loop, which quits. Does not return.
  [[noreturn]] static void End(int exitCode = 0);

  static Program& Current();

 private:
  struct Forms;

  Services services_;
  TimerScheduler::Use scheduler_;
  std::unique_ptr<Forms> forms_;
  // Each type of state has one index, the same in every program: a lookup
  // is an array access, which matters in loops over a whole playlist.
  static std::size_t NewStateIndex();
  std::vector<std::shared_ptr<void>> state_;
  std::function<void(Form&)> formMade_;
  std::function<void(Form&)> formUnloaded_;
};

inline Program& program() { return Program::Current(); }

}  // namespace yarvo
