#pragma once
// A check box: Value 0 unchecked, 1 checked. A change of Value runs Click, as
// the user's click does.

#include "core/form/Control.h"

namespace yarvo {

class CheckBox : public Control {
 public:
  CheckBox(Form* owner, std::string name, std::string caption, int value, int index = -1);

  StringField Caption;
  Property<int> Value;
};

}  // namespace yarvo
