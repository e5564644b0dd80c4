#include "core/form/Events.h"

#include <exception>
#include <vector>

namespace yarvo {

namespace {

int depth = 0;
std::vector<std::shared_ptr<void>> retired;

struct EventScope {
  EventScope() { ++depth; }
  ~EventScope() {
    if (--depth == 0) ReleaseRetired();
  }
  EventScope(const EventScope&) = delete;
  EventScope& operator=(const EventScope&) = delete;
};

}  // namespace

void RunEvent(const std::function<void()>& handler) {
  EventScope scope;
  try {
    handler();
  } catch (const std::exception&) {
    // The handler stops at its failed statement; the program goes on.
  }
}

void Retire(std::shared_ptr<void> object) { retired.push_back(std::move(object)); }

void ReleaseRetired() {
  // Destroying a form may retire more (its timers' handlers are gone by then,
  // but a form may unload another); loop until nothing is left.
  while (!retired.empty()) {
    auto batch = std::move(retired);
    retired.clear();
    batch.clear();
  }
}

}  // namespace yarvo
