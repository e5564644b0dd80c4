#include "core/Program.h"

#include <cassert>

#include "core/DataForm.h"
#include "core/form/Events.h"
#include "core/form/RuntimeError.h"
#include "playlist/JumpForm.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "windows/FormMeniuri.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

Program* current = nullptr;

// Makes a form on first use and runs its Load handler. The form is stored
// before Load runs, so that Load may refer to its own form.
template <class F>
class FormSlot {
 public:
  F& Get() {
    if (!form_) {
      form_ = std::make_shared<F>();
      // Load is part of the statement that referred to the form: its errors
      // reach that statement.
      if (form_->Load) form_->Load();
    }
    return *form_;
  }

  Form* Loaded() const { return form_.get(); }

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

void Program::End(int exitCode) { throw ProcessEnd{exitCode}; }

std::vector<Form*> Program::LoadedForms() const {
  std::vector<Form*> loaded;
  for (Form* form : {forms_->dataForm.Loaded(), forms_->main.Loaded(), forms_->playlist.Loaded(),
                     forms_->formMeniuri.Loaded(), forms_->options.Loaded(),
                     forms_->mediaLibrary.Loaded(), forms_->jumpForm.Loaded()}) {
    if (form) loaded.push_back(form);
  }
  return loaded;
}

yarvo::DataForm& Program::DataForm() { return forms_->dataForm.Get(); }
yarvo::Main& Program::Main() { return forms_->main.Get(); }
yarvo::Playlist& Program::Playlist() { return forms_->playlist.Get(); }
yarvo::FormMeniuri& Program::FormMeniuri() { return forms_->formMeniuri.Get(); }
yarvo::Options& Program::Options() { return forms_->options.Get(); }
yarvo::MediaLibrary& Program::MediaLibrary() { return forms_->mediaLibrary.Get(); }
yarvo::JumpForm& Program::JumpForm() { return forms_->jumpForm.Get(); }

}  // namespace yarvo
