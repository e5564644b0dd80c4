#include "core/form/Form.h"

#include "core/form/PictureBox.h"

namespace yarvo {

Form::Form(std::string name) : name_(std::move(name)) {
  auto resized = [this] {
    if (Resize) Resize();
  };
  Width.onChange(resized);
  Height.onChange(resized);
}

Form::~Form() = default;

Control* Form::FindControl(const std::string& name, int index) const {
  for (Control* control : controls_) {
    if (control->Name() == name && control->Index() == index) return control;
  }
  return nullptr;
}

Form::Changes Form::TakeChanges() {
  Changes changes{windowChanged_, std::move(changedControls_), std::move(changedDrawings_)};
  windowChanged_ = false;
  changedControls_.clear();
  changedDrawings_.clear();
  for (Control* control : changes.controls) control->changed_ = false;
  for (PictureBox* box : changes.drawings) box->drawingChanged_ = false;
  return changes;
}

void Form::SetFocus(Control* control) {
  if (control == focused_) return;
  Control* old = focused_;
  focused_ = control;
  if (old && old->LostFocus) old->LostFocus();
  if (control && control->GotFocus) control->GotFocus();
}

void Form::Move(int left, int top, int width, int height) {
  Left = left;
  Top = top;
  Width = width;
  Height = height;
}

}  // namespace yarvo
