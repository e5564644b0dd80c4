#pragma once
// Debian's trayer on a test's X server: a panel along the top of the screen,
// kHeight pixels high, that keeps that strip for itself (the work area
// begins below it) and is an XEmbed notification area.

#include <memory>
#include <string>

#include "XServer.h"
#include "support/SoundServer.h"

namespace yarvo::test {

class Panel {
 public:
  static constexpr int kHeight = 24;

  // Why a desktop with a window manager, a panel and a hand can't be staged
  // on `x`; "" when it can.
  static std::string Missing(const XServer& x);
  // Starts the panel on `x`, where a window manager runs; false when no
  // panel shows.
  bool Start(const XServer& x);

 private:
  static bool Available();
  std::unique_ptr<ChildProcess> process_;
};

}  // namespace yarvo::test
