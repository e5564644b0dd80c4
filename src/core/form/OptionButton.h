#pragma once
// Option buttons: in one group exactly one is on. Setting one on turns the
// others of its group off and runs its own Click only, as the user's click does.

#include <vector>

#include "core/form/Control.h"

namespace yarvo {

class OptionButton;

class OptionGroup {
 public:
  void Add(OptionButton* button) { buttons_.push_back(button); }
  const std::vector<OptionButton*>& Buttons() const { return buttons_; }

 private:
  std::vector<OptionButton*> buttons_;
};

class OptionButton : public Control {
 public:
  OptionButton(Form* owner, std::string name, std::string caption, OptionGroup& group, bool value,
               int index = -1);

  StringField Caption;
  Property<bool> Value;

 private:
  OptionGroup& group_;
};

}  // namespace yarvo
