#pragma once
// The one place where the program's events meet the Qt event loop: runs a
// handler as an event and turns the program's end into the loop's exit. No
// exception of ours crosses into Qt.

#include <functional>

namespace yarvo::QtEvents {

// Runs `handler` (see RunEvent). When the handler ends the process, every
// running event loop is told to quit with the exit code and later events are
// dropped.
void Dispatch(const std::function<void()>& handler);

bool Ending();
int ExitCode();

// Call after a nested event loop (a dialog, DoEvents) returns to the
// program: when the program ended inside that loop, the end goes on
// unwinding from here, so that nothing of the code that opened the loop
// runs after the program's end.
void EndIfEnded();

}  // namespace yarvo::QtEvents
