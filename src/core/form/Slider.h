#pragma once
// A slider or scroll bar: a whole-number Value kept between Min and Max.
// A change of Value runs Change; the user's drag also runs Scroll.

#include "core/form/Control.h"

namespace yarvo {

class Slider : public Control {
 public:
  Slider(Form* owner, std::string name, int min, int max, int value, int index = -1);

  Property<int> Min;
  Property<int> Max;
  Property<int> Value;
  Property<int> SmallChange{1};
  Property<int> LargeChange{1};
  std::function<void()> Change;
  std::function<void()> Scroll;

  // Assigns a value clamped to the range, as the control does with its input.
  void SetClamped(double value);
};

}  // namespace yarvo
