#include "windows/mdlSmooth.h"

#include "core/form/Form.h"
#include "core/form/Twips.h"

namespace yarvo {

void SmoothForm(Form& form, int radius) {
  form.Region = WindowRegion{form.Width / kTwipsPerPixel, form.Height / kTwipsPerPixel, radius};
}

}  // namespace yarvo
