#include "platform/shared_library.hpp"

#include <dlfcn.h>

namespace varnholt::platform {

SharedLibrary::SharedLibrary(const std::string& systemPath) {
  // A name without a slash would be searched for elsewhere.
  void* const handle = systemPath.starts_with('/') ? ::dlopen(systemPath.c_str(), RTLD_NOW | RTLD_LOCAL) : nullptr;
  if (handle) handle_ = std::shared_ptr<void>(handle, ::dlclose);
}

void* SharedLibrary::find(const char* name) const { return handle_ ? ::dlsym(handle_.get(), name) : nullptr; }

}  // namespace varnholt::platform
