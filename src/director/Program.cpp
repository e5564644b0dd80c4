#include "director/Program.h"

#include <atomic>
#include <cassert>
#include <functional>

#include "core/DataForm.h"
#include "core/form/Events.h"
#include "core/form/RuntimeError.h"
#include "engines/FormPreset.h"
#include "engines/frmBass.h"
#include "playlist/JumpForm.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "windows/FormMeniuri.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"

namespace yarvo {

namespace {

Program* current = nullptr;

// Makes a form on first use and runs its Load handler. The form is stored
// before Load runs, so that Load may refer to its own form.
template <class F>
class FormSlot {
 public:
  F& Get(const std::function<void(Form&)>& made) {
    if (!form_) {
      form_ = std::make_shared<F>();
      if (made) made(*form_);
      // Load is part of the statement that referred to the form: its errors
      // reach that statement.
      if (form_->Load) form_->Load();
    }
    return *form_;
  }

  F* Loaded() const { return form_.get(); }

  // Runs the form's Unload and lets the object go once the running event
  // has ended; a later Get makes a new one.
  void Unload(const std::function<void(Form&)>& unloaded) {
    if (!form_) return;
    auto form = std::move(form_);
    if (form->Unload) form->Unload();
    if (unloaded) unloaded(*form);
    Retire(std::move(form));
  }

 private:
  std::shared_ptr<F> form_;
};

}  // namespace

struct Program::Forms {
  // Destroyed in reverse order: the store goes last.
  FormSlot<yarvo::DataForm> dataForm;
  FormSlot<yarvo::Main> main;
  FormSlot<yarvo::Playlist> playlist;
  FormSlot<yarvo::FormMeniuri> formMeniuri;
  FormSlot<yarvo::Options> options;
  FormSlot<yarvo::MediaLibrary> mediaLibrary;
  FormSlot<yarvo::JumpForm> jumpForm;
  FormSlot<yarvo::frmBass> frmBass;
  FormSlot<yarvo::MiniForm> miniForm;
  FormSlot<yarvo::FormPreset> formPreset;
};

Program::Program(Services services)
    : services_(services), scheduler_(services.scheduler), forms_(std::make_unique<Forms>()) {
  assert(current == nullptr && "one Program at a time");
  current = this;
}

Program::~Program() {
  forms_.reset();
  ReleaseRetired();
  current = nullptr;
}

Program& Program::Current() {
  assert(current != nullptr && "no Program is running");
  return *current;
}

std::size_t Program::NewStateIndex() {
  static std::atomic<std::size_t> next{0};
  return next++;
}

void Program::End(int exitCode) { throw ProcessEnd{exitCode}; }

std::vector<Form*> Program::LoadedForms() const {
  std::vector<Form*> loaded;
  for (Form* form : std::initializer_list<Form*>{
           forms_->dataForm.Loaded(), forms_->main.Loaded(), forms_->playlist.Loaded(),
           forms_->formMeniuri.Loaded(), forms_->options.Loaded(), forms_->mediaLibrary.Loaded(),
           forms_->jumpForm.Loaded(), forms_->frmBass.Loaded(), forms_->miniForm.Loaded(),
           forms_->formPreset.Loaded()}) {
    if (form) loaded.push_back(form);
  }
  return loaded;
}

yarvo::DataForm& Program::DataForm() { return forms_->dataForm.Get(formMade_); }
yarvo::Main& Program::Main() { return forms_->main.Get(formMade_); }
yarvo::Playlist& Program::Playlist() { return forms_->playlist.Get(formMade_); }
yarvo::FormMeniuri& Program::FormMeniuri() { return forms_->formMeniuri.Get(formMade_); }
yarvo::Options& Program::Options() { return forms_->options.Get(formMade_); }
yarvo::MediaLibrary& Program::MediaLibrary() { return forms_->mediaLibrary.Get(formMade_); }
yarvo::JumpForm& Program::JumpForm() { return forms_->jumpForm.Get(formMade_); }
yarvo::frmBass& Program::frmBass() { return forms_->frmBass.Get(formMade_); }
void Program::UnloadfrmBass() { forms_->frmBass.Unload(formUnloaded_); }
yarvo::MiniForm& Program::MiniForm() { return forms_->miniForm.Get(formMade_); }
yarvo::MiniForm* Program::LoadedMiniForm() { return forms_->miniForm.Loaded(); }
void Program::UnloadMiniForm() { forms_->miniForm.Unload(formUnloaded_); }
yarvo::FormPreset& Program::FormPreset() { return forms_->formPreset.Get(formMade_); }
yarvo::FormPreset* Program::LoadedFormPreset() { return forms_->formPreset.Loaded(); }
void Program::UnloadFormPreset() { forms_->formPreset.Unload(formUnloaded_); }

}  // namespace yarvo
