#include "platform/qt/QtEvents.h"

#include <QCoreApplication>

#include "core/form/Events.h"
#include "core/form/RuntimeError.h"

namespace yarvo::QtEvents {

namespace {
bool ending = false;
}

void Dispatch(const std::function<void()>& handler) {
  if (ending) return;
  try {
    RunEvent(handler);
  } catch (const ProcessEnd& end) {
    ending = true;
    QCoreApplication::exit(end.exitCode);
  }
}

bool Ending() { return ending; }

}  // namespace yarvo::QtEvents
