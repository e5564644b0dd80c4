#pragma once
// Running event handlers, and keeping unloaded forms alive until it is safe.
//
// Every event the program gets (a timer tick, a click, a key) runs through
// RunEvent. A run-time error that escapes a handler ends that handler only, as
// if its remaining statements had been skipped; ProcessEnd goes through to the
// event loop. Events nest: a message box runs the loop inside a handler.
//
// A form that is unloaded inside a handler may still have its own code on the
// stack (a timer tick of an engine form ends the song, which unloads that
// form). Retire keeps such an object alive until the outermost event returns.

#include <functional>
#include <memory>

namespace yarvo {

void RunEvent(const std::function<void()>& handler);

// Destroys `object` when the outermost running event returns, or at
// ReleaseRetired; never at once, since its caller may be its own code.
void Retire(std::shared_ptr<void> object);

// Destroys everything retired so far; for the program's own shutdown.
void ReleaseRetired();

}  // namespace yarvo
