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

void Control::SetContainer(Control* container) {
  if (container == container_) return;
  container_ = container;
  ++modelRevision();
  PropertyChanged();
}

int Control::FormLeft() const { return Left + (container_ ? container_->FormLeft() : 0); }

int Control::FormTop() const { return Top + (container_ ? container_->FormTop() : 0); }

bool Control::Shown() const { return Visible && (!container_ || container_->Shown()); }

void Control::PropertyChanged() {
  if (changed_) return;
  changed_ = true;
  owner_->changedControls_.push_back(this);
}

bool Control::Contains(double x, double y) const {
  return x >= Left && y >= Top && x < Left + Width && y < Top + Height;
}

}  // namespace yarvo
