#pragma once

namespace varnholt::platform::posix {

/// A library of the system that is opened at its first use and stays open: one that is linked is loaded by each start
/// of the program, and is searched for each name that the libraries behind it ask for. Derived classes list its calls,
/// each by VARNHOLT_LATE_CALL.
class LateLibrary {
 public:
  /// False: this system has no such library, or an older one without some of the calls; none is to be used then.
  bool isWhole() const { return whole_; }

 protected:
  /// By the name that programs are linked to, with the number of its interface: "libmount.so.1".
  explicit LateLibrary(const char* name);

  template <class Call>
  Call* find(const char* name) {
    return reinterpret_cast<Call*>(findAddress(name));
  }

 private:
  void* findAddress(const char* name);

  void* handle_;
  bool whole_;
};

}  // namespace varnholt::platform::posix

/// A member that is called like the library's own call, whose header is read but which is not linked.
#define VARNHOLT_LATE_CALL(name) decltype(::name)* const name = find<decltype(::name)>(#name)
