#pragma once
// A shared library opened while the program runs, for the libraries that
// only some uses need: linked at start, they would cost every start the time
// and memory of loading them and all they depend on. Once open it stays open
// until the process ends, as a linked library does: libraries that keep
// threads and allocations of their own are not safe to unload.

#include <string>

namespace yarvo {

class SharedLibrary {
 public:
  // Opens `soname` (as "libmpv.so.2") the way the dynamic linker would find
  // it; loaded() says whether it could.
  explicit SharedLibrary(const std::string& soname);

  bool loaded() const { return handle_ != nullptr; }

  // Points `function` at the library's function `name`; false, and null,
  // when the library has none.
  template <typename Function>
  bool Bind(Function*& function, const char* name) const {
    function = reinterpret_cast<Function*>(Address(name));
    return function != nullptr;
  }

 private:
  void* Address(const char* name) const;

  void* handle_ = nullptr;
};

}  // namespace yarvo
