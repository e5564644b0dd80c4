#pragma once
// A list control: an ordered string list that can be shown.
//
// Writing Text moves the cursor to the first row equal to the text, or to -1
// when no row equals it; the program finds a song's row by its title this way.

#include "core/form/Control.h"
#include "core/form/StringList.h"

namespace yarvo {

class ListBox : public Control, public StringList {
 public:
  ListBox(Form* owner, std::string name, int index = -1);

  using StringList::Text;
  void SetText(const std::string& text);

  // The first row shown; the host keeps it within the rows.
  Property<int> TopIndex{0};
  Property<int> FontSize{8};
  Property<bool> FontBold{false};
  Property<bool> Sorted{false};

 private:
  void Changed() override;
};

}  // namespace yarvo
