#pragma once
// Where a native window of ours is on the screen, for the media service.

#include "platform/WindowGeometry.h"

namespace yarvo {

class QtWindowGeometry final : public WindowGeometry {
 public:
  WindowRect rectOf(NativeWindow window) const override;
};

}  // namespace yarvo
