#pragma once

#include <cstdint>
#include <string>

namespace varnholt::platform {

/// GlobalMemoryStatus, what the program shows of it: bytes of the machine's memory, or of what a container may have of
/// it. All are 0 where the system does not tell.
struct MemoryStatus {
  std::uint32_t loadPercent = 0;  ///< used of total
  std::uint64_t totalPhysical = 0, availablePhysical = 0;
};

struct SystemVersion {
  int platform = 2, major = 6, minor = 0, build = 6002;
};

class SystemFacts {
 public:
  virtual ~SystemFacts() = default;
  virtual MemoryStatus memory() const = 0;
  /// The version that is reported to the program: what it may offer depends on it.
  virtual SystemVersion version() const { return {}; }
};

}  // namespace varnholt::platform
