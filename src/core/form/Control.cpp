#include "core/form/Control.h"

#include "core/form/Form.h"

namespace yarvo {

Control::Control(Form* owner, std::string name, int index)
    : owner_(owner), name_(std::move(name)), index_(index) {
  owner_->Register(this);
}

void Control::Move(int left, int top, int width, int height) {
  Left = left;
  Top = top;
  Width = width;
  Height = height;
}

void Control::SetFocus() { owner_->SetFocus(this); }

bool Control::Contains(double x, double y) const {
  return x >= Left && y >= Top && x < Left + Width && y < Top + Height;
}

}  // namespace yarvo
