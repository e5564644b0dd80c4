#include "Panel.h"

#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

#include "Hand.h"
#include "PlayerProcess.h"

namespace yarvo::test {

using namespace std::chrono_literals;

bool Panel::Available() { return std::system("command -v trayer >/dev/null") == 0; }

std::string Panel::Missing(const XServer& x) {
  if (!x.ready()) return "no Xvfb on this machine";
  if (!Hand::Available() || !Available() || !XServer::HasWindowManager())
    return "no xdotool, openbox or trayer";
  return "";
}

// Now and then (seen on a busy machine) trayer leaves its panel unmapped and
// outside the window manager's hands; a second start shows it.
bool Panel::Start(const XServer& x) {
  for (int attempt = 0; attempt < 3; ++attempt) {
    process_ = std::make_unique<ChildProcess>(std::vector<std::string>{
        "env", "DISPLAY=" + x.display(), "trayer", "--edge", "top", "--align", "right",
        "--widthtype", "request", "--height", std::to_string(kHeight), "--SetDockType", "true",
        "--SetPartialStrut", "true"});
    if (WaitUntil([&] { return x.Find("panel") && x.Find("panel")->mapped; }, 5s)) return true;
    process_.reset();
  }
  return false;
}

}  // namespace yarvo::test
