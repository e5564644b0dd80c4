#pragma once
// An editable text. Assigning a different text runs Change, as typing does.
// A text box ends its text at the first zero byte, as the platform's did.

#include "core/form/Control.h"

namespace yarvo {

class TextBox : public Control {
 public:
  TextBox(Form* owner, std::string name, std::string text = {}, int index = -1);

  StringField Text;
  Property<int> SelStart{0};
  Property<int> SelLength{0};
  Property<bool> Locked{false};
  std::function<void()> Change;

  // Sets the text cut at its first zero byte.
  void SetText(const std::string& text);
};

}  // namespace yarvo
