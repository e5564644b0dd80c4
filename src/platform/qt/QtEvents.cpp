#include "platform/qt/QtEvents.h"

#include <QCoreApplication>

#include "core/form/Events.h"
#include "core/form/RuntimeError.h"

namespace yarvo::QtEvents {

namespace {
bool ending = false;
int exitCode = 0;
}  // namespace

void Dispatch(const std::function<void()>& handler) {
  if (ending) return;
  try {
    RunEvent(handler);
  } catch (const ProcessEnd& end) {
    ending = true;
    exitCode = end.exitCode;
    QCoreApplication::exit(end.exitCode);
  }
}

bool Ending() { return ending; }

int ExitCode() { return exitCode; }

void EndIfEnded() {
  if (ending) throw ProcessEnd{exitCode};
}

}  // namespace yarvo::QtEvents
