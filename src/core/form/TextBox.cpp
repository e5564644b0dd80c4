#include "core/form/TextBox.h"

namespace yarvo {

TextBox::TextBox(Form* owner, std::string name, std::string text, int index)
    : Control(owner, std::move(name), index), Text(std::move(text)) {
  Text.onChange([this] {
    if (Change) Change();
  });
}

void TextBox::SetText(const std::string& text) { Text = text.substr(0, text.find('\0')); }

}  // namespace yarvo
