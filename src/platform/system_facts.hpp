#pragma once

#include <cstdint>
#include <string>

namespace varnholt::platform {

/// GlobalMemoryStatus: bytes, each capped at 4,294,967,295 as its 32-bit fields are.
struct MemoryStatus {
  std::uint32_t loadPercent = 0;
  std::uint64_t totalPhysical = 0, availablePhysical = 0;
  std::uint64_t totalPageFile = 0, availablePageFile = 0;
  std::uint64_t totalVirtual = 0, availableVirtual = 0;
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
