#include "settings/Options.h"

namespace yarvo {

Options::Options() : Form("Options") {
  Caption = "Yarvo Player - Options";
  Move(2000, 2000, 8000, 6000);
}

}  // namespace yarvo
