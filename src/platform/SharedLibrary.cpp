#include "platform/SharedLibrary.h"

#include <dlfcn.h>

namespace yarvo {

SharedLibrary::SharedLibrary(const std::string& soname)
    : handle_(dlopen(soname.c_str(), RTLD_NOW | RTLD_LOCAL)) {}

void* SharedLibrary::Address(const char* name) const {
  return handle_ != nullptr ? dlsym(handle_, name) : nullptr;
}

}  // namespace yarvo
