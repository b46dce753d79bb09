#pragma once

#include <memory>
#include <string>

namespace varnholt::platform {

/// A library that is opened while the program runs.
class SharedLibrary {
 public:
  /// By its path in system form; closed with the last copy of this. What is not there, or no library, opens as nothing.
  explicit SharedLibrary(const std::string& systemPath);
  /// One of the system, by the name that programs are linked to, with the number of its interface: "libmount.so.1".
  /// It stays until the program ends, for such a library may have threads of its own.
  static SharedLibrary ofSystem(const char* name);

  bool isOpen() const { return static_cast<bool>(handle_); }
  /// The call of that name and kind; null when the library has none.
  template <class Call>
  Call* call(const char* name) const {
    return reinterpret_cast<Call*>(find(name));
  }

 private:
  SharedLibrary() = default;
  void* find(const char* name) const;

  std::shared_ptr<void> handle_;
};

/// A library of the system that is opened at its first use: one that is linked is loaded by each start of the program,
/// and is searched for each name that the libraries behind it ask for. Derived classes list its calls, each by
/// VARNHOLT_LATE_CALL.
class LateLibrary {
 public:
  /// False: this system has no such library, or an older one without some of the calls; none is to be used then.
  bool isWhole() const { return whole_; }

 protected:
  explicit LateLibrary(const char* name) : file_(SharedLibrary::ofSystem(name)), whole_(file_.isOpen()) {}

  template <class Call>
  Call* find(const char* name) {
    Call* const found = file_.call<Call>(name);
    whole_ = whole_ && found;
    return found;
  }

 private:
  SharedLibrary file_;
  bool whole_;
};

}  // namespace varnholt::platform

/// A member that is called like the library's own call, whose header is read but which is not linked.
#define VARNHOLT_LATE_CALL(name) decltype(::name)* const name = find<decltype(::name)>(#name)
