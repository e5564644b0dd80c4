#pragma once
// A caption; also the program's way to hold a named text that others read.
// Assigning a different caption runs Change.

#include "core/form/Control.h"

namespace yarvo {

enum class Alignment { Left = 0, Right = 1, Center = 2 };

class Label : public Control {
 public:
  Label(Form* owner, std::string name, std::string caption = {}, int index = -1);

  StringField Caption;
  Property<Alignment> Align{Alignment::Left};
  Property<bool> BackStyleOpaque{false};
  std::function<void()> Change;
};

}  // namespace yarvo
