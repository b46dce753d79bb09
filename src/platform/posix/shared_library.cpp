#include "platform/shared_library.hpp"

#include <dlfcn.h>

namespace varnholt::platform {

SharedLibrary::SharedLibrary(const std::string& systemPath) {
  // A name without a slash would be searched for elsewhere.
  void* const handle = systemPath.starts_with('/') ? ::dlopen(systemPath.c_str(), RTLD_NOW | RTLD_LOCAL) : nullptr;
  if (handle) handle_ = std::shared_ptr<void>(handle, ::dlclose);
}

SharedLibrary SharedLibrary::ofSystem(const char* name) {
  SharedLibrary library;
  if (void* const handle = ::dlopen(name, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE))
    library.handle_ = std::shared_ptr<void>(handle, ::dlclose);
  return library;
}

void* SharedLibrary::find(const char* name) const { return handle_ ? ::dlsym(handle_.get(), name) : nullptr; }

}  // namespace varnholt::platform
