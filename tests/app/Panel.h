#pragma once
// Debian's trayer on a test's X server: a panel along the top of the screen,
// kHeight pixels high, that keeps that strip for itself (the work area
// begins below it) and is an XEmbed notification area.

#include <memory>

#include "XServer.h"
#include "support/SoundServer.h"

namespace yarvo::test {

class Panel {
 public:
  static constexpr int kHeight = 24;

  static bool Available();
  // Starts the panel on `x`, where a window manager runs; false when no
  // panel shows.
  bool Start(const XServer& x);

 private:
  std::unique_ptr<ChildProcess> process_;
};

}  // namespace yarvo::test
