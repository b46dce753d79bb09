#pragma once

#include "platform/system_facts.hpp"

#include <string>
#include <string_view>

namespace varnholt::platform::posix {

/// What a control group may have and holds of the machine's memory, as text of the files memory.max, memory.current and
/// memory.stat (cgroup v2). "max" is no limit.
struct MemoryGroup {
  std::string most, held, facts;
};

/// Memory from the text of /proc/meminfo (proc(5)). A kernel that does not tell what is available (MemAvailable) is
/// answered with what is free; a missing line counts as 0. A group with a limit below the machine's memory has that as
/// its total; what it only keeps of files read is available.
MemoryStatus parseMemInfo(std::string_view text, const MemoryGroup& group = {});

/// Facts of the running system.
class ProcSystemFacts : public SystemFacts {
 public:
  MemoryStatus memory() const override;
};

}  // namespace varnholt::platform::posix
