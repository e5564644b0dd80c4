#pragma once
// The settings dialog, and at the same time the live store of the
// preferences: the rest of the program reads its check boxes and option
// buttons directly, shown or not.

#include "core/form/CheckBox.h"
#include "core/form/Form.h"
#include "core/form/OptionButton.h"

namespace yarvo {

class Options : public Form {
 public:
  Options();

  // "Title formating": how a playlist row is titled.
  OptionGroup TitleFormating;
  OptionButton Option15{this, "Option15", "Show file name", TitleFormating, true};
  OptionButton Option18{this, "Option18", "Show IDTag: 'Artist - Song name'", TitleFormating, false};
  OptionButton Option19{this, "Option19", "Show IDTag: 'Song name - Artist'", TitleFormating, false};
};

}  // namespace yarvo
