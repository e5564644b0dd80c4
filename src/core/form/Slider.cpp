#include "core/form/Slider.h"

#include <algorithm>
#include <cmath>

#include "core/form/RuntimeError.h"

namespace yarvo {

Slider::Slider(Form* owner, std::string name, int min, int max, int value, int index)
    : Control(owner, std::move(name), index), Min(min), Max(max), Value(value) {
  Value.onChange([this] {
    if (Change) Change();
  });
}

void Slider::SetClamped(double value) {
  if (!std::isfinite(value)) throw err::InvalidPropertyValue();
  const double low = std::min(Min.get(), Max.get());
  const double high = std::max(Min.get(), Max.get());
  Value = static_cast<int>(std::lround(std::clamp(value, low, high)));
}

}  // namespace yarvo
