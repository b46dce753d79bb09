#pragma once

#include "platform/system_facts.hpp"

#include <string_view>

namespace varnholt::platform::posix {

/// Memory from the text of /proc/meminfo (proc(5)), each number capped at 4,294,967,295. The page file is physical
/// memory and swap together, as the original operation counts it. A kernel that does not tell what is available
/// (MemAvailable) is answered with what is free; a missing line counts as 0.
MemoryStatus parseMemInfo(std::string_view text);

/// Facts of the running system.
class ProcSystemFacts : public SystemFacts {
 public:
  MemoryStatus memory() const override;
};

}  // namespace varnholt::platform::posix
