#include "core/DataForm.h"

namespace yarvo {

DataForm::DataForm() : Form("DataForm") {}

std::string DataForm::ProgramPath(const std::string& relative) const {
  return CaleYarvoPlayer.Text() + relative;
}

}  // namespace yarvo
