#pragma once
// A control array: controls that share a name and are told apart by index,
// like LbFileName(0). An index the array does not hold is a run-time error.

#include <memory>
#include <string>
#include <vector>

#include "core/form/RuntimeError.h"

namespace yarvo {

class Form;

template <class C>
class ControlArray {
 public:
  // Makes elements 0 to count - 1, each built as C(owner, name, args..., index).
  template <class... Args>
  ControlArray(Form* owner, const std::string& name, int count, const Args&... args) {
    for (int i = 0; i < count; ++i) {
      items_.push_back(std::make_unique<C>(owner, name, args..., i));
    }
  }

  C& operator()(int index) const {
    if (index < 0 || index >= Count()) throw err::ControlArrayElement();
    return *items_[static_cast<std::size_t>(index)];
  }

  int Count() const { return static_cast<int>(items_.size()); }

 private:
  std::vector<std::unique_ptr<C>> items_;
};

}  // namespace yarvo
