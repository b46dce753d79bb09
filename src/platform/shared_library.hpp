#pragma once

#include <memory>
#include <string>

namespace varnholt::platform {

/// A library that is opened while the program runs, and closed when this object goes.
class SharedLibrary {
 public:
  /// By its path in system form. What is not there, or no library, opens as nothing.
  explicit SharedLibrary(const std::string& systemPath);
  bool isOpen() const { return static_cast<bool>(handle_); }
  /// The call of that name and kind; null when the library has none.
  template <class Call>
  Call* call(const char* name) const {
    return reinterpret_cast<Call*>(find(name));
  }

 private:
  void* find(const char* name) const;

  std::shared_ptr<void> handle_;
};

}  // namespace varnholt::platform
