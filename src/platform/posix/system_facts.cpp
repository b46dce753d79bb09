#include "platform/posix/system_facts.hpp"

#include "platform/posix/mount_table.hpp"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>

namespace varnholt::platform::posix {
namespace {

constexpr std::uint64_t cap = 4'294'967'295;

/// Bytes of the line `name`, which the kernel writes in kB of 1024 bytes.
std::optional<std::uint64_t> bytesOf(std::string_view text, std::string_view name) {
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (!line.starts_with(name) || line.substr(name.size()).substr(0, 1) != ":") continue;
    line.remove_prefix(std::min(line.find_first_not_of(" \t", name.size() + 1), line.size()));
    std::uint64_t kilobytes = 0;
    if (std::from_chars(line.data(), line.data() + line.size(), kilobytes).ec != std::errc()) return {};
    return kilobytes > std::numeric_limits<std::uint64_t>::max() / 1024 ? cap : kilobytes * 1024;
  }
  return {};
}

}  // namespace

MemoryStatus parseMemInfo(std::string_view text) {
  const std::uint64_t total = bytesOf(text, "MemTotal").value_or(0);
  const auto told = bytesOf(text, "MemAvailable");
  const std::uint64_t available = std::min(total, told ? *told : bytesOf(text, "MemFree").value_or(0));
  const std::uint64_t swap = bytesOf(text, "SwapTotal").value_or(0);
  const std::uint64_t freeSwap = std::min(swap, bytesOf(text, "SwapFree").value_or(0));
  MemoryStatus status;
  status.loadPercent = total ? static_cast<std::uint32_t>(100.0 * (total - available) / total) : 0;
  status.totalPhysical = std::min(total, cap);
  status.availablePhysical = std::min(available, cap);
  status.totalPageFile = std::min(total + swap, cap);
  status.availablePageFile = std::min(available + freeSwap, cap);
  // A 64-bit process has far more addresses than the field can tell.
  status.totalVirtual = status.availableVirtual = cap;
  return status;
}

MemoryStatus ProcSystemFacts::memory() const { return parseMemInfo(readSystemFile("/proc/meminfo")); }

}  // namespace varnholt::platform::posix
