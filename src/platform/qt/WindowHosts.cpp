#include "platform/qt/WindowHosts.h"

#include <csignal>

#include "core/Program.h"
#include "core/form/Form.h"
#include "core/form/Property.h"
#include "platform/qt/FormHost.h"
#include "platform/qt/QtEvents.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

volatile std::sig_atomic_t terminationRequested = 0;

void OnTermination(int) { terminationRequested = 1; }

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
  // A short period keeps the picture in step with fast timers (the
  // visualisation draws every 25 ms) while costing nothing when idle.
  refresh_.setInterval(15);
  QObject::connect(&refresh_, &QTimer::timeout, this, [this] { Refresh(); });
  refresh_.start();
}

WindowHosts::~WindowHosts() {
  program_.ObserveFormsMade({});
  program_.ObserveFormsUnloaded({});
}

void WindowHosts::CatchTermination() {
  std::signal(SIGTERM, OnTermination);
  std::signal(SIGINT, OnTermination);
}

FormHost* WindowHosts::HostOf(const Form& form) const {
  const auto found = hosts_.find(&form);
  return found == hosts_.end() ? nullptr : found->second.get();
}

void WindowHosts::Refresh() {
  if (terminationRequested && !QtEvents::Ending()) {
    terminationRequested = 0;
    if (FormHost* main = HostOf(program_.Main())) main->close();
  }
  if (modelRevision() != syncedRevision_) Sync();
}

void WindowHosts::Sync() {
  syncedRevision_ = modelRevision();
  for (Form* form : program_.LoadedForms()) {
    if (!IsWindow(*form)) continue;
    auto& host = hosts_[form];
    if (!host) host = std::make_unique<FormHost>(*form);
    host->Sync();
  }
}

}  // namespace yarvo
