#include "platform/posix/late_library.hpp"

#include <dlfcn.h>

namespace varnholt::platform::posix {

LateLibrary::LateLibrary(const char* name)
    : handle_(::dlopen(name, RTLD_NOW | RTLD_LOCAL)), whole_(handle_ != nullptr) {}

void* LateLibrary::findAddress(const char* name) {
  void* const found = handle_ ? ::dlsym(handle_, name) : nullptr;
  whole_ = whole_ && found;
  return found;
}

}  // namespace varnholt::platform::posix
