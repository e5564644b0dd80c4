#include "host/WindowHosts.h"

#include <fcntl.h>
#include <unistd.h>

#include <QAbstractEventDispatcher>

#include <csignal>

#include "core/form/Form.h"
#include "core/form/Property.h"
#include "director/Program.h"
#include "host/FormHost.h"
#include "platform/qt/QtEvents.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

// A termination handler only writes a byte to this pipe, which is all a
// signal handler may safely do; the event loop watches the other end.
int terminationPipe[2] = {-1, -1};

void OnTermination(int) {
  const char byte = 1;
  [[maybe_unused]] const auto written = ::write(terminationPipe[1], &byte, 1);
}

// The hidden forms that are stores, not windows.
bool IsWindow(const Form& form) {
  return form.Name() != "DataForm" && form.Name() != "FormMeniuri" && form.Name() != "frmBass";
}

}  // namespace

WindowHosts::WindowHosts(Program& program) : program_(program) {
  program_.ObserveFormsMade([this](Form& form) {
    if (IsWindow(form)) hosts_[&form] = std::make_unique<FormHost>(form);
  });
  program_.ObserveFormsUnloaded([this](Form& form) {
    const auto found = hosts_.find(&form);
    if (found == hosts_.end()) return;
    // The host may be inside its own event (a close that unloads its form).
    found->second->hide();
    found->second.release()->deleteLater();
    hosts_.erase(found);
  });
  // The windows follow the models whenever the event loop has nothing left
  // to do: right after the events and timers that changed them, and never
  // while the program sits idle.
  connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
          [this] {
            if (modelRevision() != syncedRevision_) Sync();
          });
  if (terminationPipe[0] >= 0) {
    termination_ = std::make_unique<QSocketNotifier>(terminationPipe[0], QSocketNotifier::Read);
    connect(termination_.get(), &QSocketNotifier::activated, this, [this] { Terminate(); });
  }
}

WindowHosts::~WindowHosts() {
  program_.ObserveFormsMade({});
  program_.ObserveFormsUnloaded({});
}

void WindowHosts::CatchTermination() {
  if (::pipe2(terminationPipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
  // A hang-up (the terminal closed, a remote session dropped) is as polite a
  // request to end as the others.
  for (const int request : {SIGTERM, SIGINT, SIGHUP}) std::signal(request, OnTermination);
}

FormHost* WindowHosts::HostOf(const Form& form) const {
  const auto found = hosts_.find(&form);
  return found == hosts_.end() ? nullptr : found->second.get();
}

void WindowHosts::Terminate() {
  char bytes[16];
  while (::read(terminationPipe[0], bytes, sizeof bytes) > 0) {
  }
  if (QtEvents::Ending()) return;
  if (FormHost* main = HostOf(program_.Main())) main->close();
}

// Only the windows whose models changed are touched, and of those only what
// changed is drawn again.
void WindowHosts::Sync() {
  syncedRevision_ = modelRevision();
  for (Form* form : program_.LoadedForms()) {
    if (!IsWindow(*form) || !form->Changed()) continue;
    auto& host = hosts_[form];
    if (!host) host = std::make_unique<FormHost>(*form);
    host->Sync();
  }
}

}  // namespace yarvo
