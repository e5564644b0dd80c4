#pragma once
// The hidden window that owns the program's menus.

#include "core/form/Form.h"

namespace yarvo {

class FormMeniuri : public Form {
 public:
  FormMeniuri() : Form("FormMeniuri") { Caption = "Yarvo Player"; }
};

}  // namespace yarvo
