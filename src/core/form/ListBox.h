#pragma once
// A list control: an ordered string list that can be shown.
//
// Writing Text moves the cursor to the first row equal to the text, or to -1
// when no row equals it; the program finds a song's row by its title this way.
// Moving the cursor from code runs Click, as the user's click does.

#include "core/form/Control.h"
#include "core/form/StringList.h"

namespace yarvo {

class ListBox : public Control, public StringList {
 public:
  ListBox(Form* owner, std::string name, int index = -1);

  using StringList::Text;
  void SetText(const std::string& text);

  // The first row shown: at most the first row of the last full page, as a
  // list scrolls no further.
  Property<int> TopIndex{0};
  // How many whole rows the list shows at its height.
  int VisibleRows() const;
  Property<bool> Sorted{false};

  // The height of one row in pixels, as the list draws it: its font size in
  // points at 96 dots an inch, with a fifth for the line gap (13 at 8 points).
  int RowHeight() const;

  // Lists with a check mark per row. Marks belong to row numbers: they are
  // for lists whose rows are fixed at creation.
  bool Ticked(int row) const;
  void SetTicked(int row, bool ticked);

 private:
  void Changed() override;
  void CursorMoved() override;

  std::vector<bool> ticks_;
};

}  // namespace yarvo
