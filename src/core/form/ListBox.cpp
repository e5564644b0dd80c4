#include "core/form/ListBox.h"

#include <algorithm>
#include <cmath>

#include "core/form/RuntimeError.h"
#include "core/form/Twips.h"

namespace yarvo {

ListBox::ListBox(Form* owner, std::string name, int index)
    : Control(owner, std::move(name), index) {
  TopIndex.onChange([this] {
    const int last = std::max(0, ListCount() - VisibleRows());
    if (TopIndex < 0) TopIndex = 0;
    if (TopIndex > last) TopIndex = last;
  });
}

int ListBox::VisibleRows() const {
  return std::max(1, Height / kTwipsPerPixel / std::max(1, RowHeight()));
}

void ListBox::SetText(const std::string& text) {
  const auto& rows = Items();
  const auto found = std::find(rows.begin(), rows.end(), text);
  SetListIndex(found == rows.end() ? -1 : static_cast<int>(found - rows.begin()));
}

int ListBox::RowHeight() const {
  return static_cast<int>(std::lround(FontSize.get() * 96.0 / 72.0 * 1.2));
}

bool ListBox::Ticked(int row) const {
  return row >= 0 && row < static_cast<int>(ticks_.size()) && ticks_[static_cast<std::size_t>(row)];
}

void ListBox::SetTicked(int row, bool ticked) {
  if (row < 0 || row >= ListCount()) throw err::InvalidPropertyIndex();
  if (ticks_.size() < static_cast<std::size_t>(ListCount()))
    ticks_.resize(static_cast<std::size_t>(ListCount()));
  if (ticks_[static_cast<std::size_t>(row)] == ticked) return;
  ticks_[static_cast<std::size_t>(row)] = ticked;
  ++modelRevision();
  Changed();
}

void ListBox::Changed() { PropertyChanged(); }

void ListBox::CursorMoved() {
  if (Click) Click();
}

}  // namespace yarvo
