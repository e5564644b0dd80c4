#include "core/form/ListBox.h"

#include <algorithm>

namespace yarvo {

ListBox::ListBox(Form* owner, std::string name, int index)
    : Control(owner, std::move(name), index) {}

void ListBox::SetText(const std::string& text) {
  const auto& rows = Items();
  const auto found = std::find(rows.begin(), rows.end(), text);
  SetListIndex(found == rows.end() ? -1 : static_cast<int>(found - rows.begin()));
}

void ListBox::Changed() { ++modelRevision(); }

}  // namespace yarvo
