#include "platform/posix/system_facts.hpp"

#include "platform/posix/mount_table.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace varnholt::platform::posix {
namespace {

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
    return kilobytes > std::numeric_limits<std::uint64_t>::max() / 1024 ? std::numeric_limits<std::uint64_t>::max()
                                                                        : kilobytes * 1024;
  }
  return {};
}

std::optional<std::uint64_t> numberOf(std::string_view text) {
  std::uint64_t number = 0;
  if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc()) return {};
  return number;
}

/// The number behind a name and a blank.
std::uint64_t factOf(std::string_view facts, std::string_view name) {
  const auto at = facts.find(name);
  return at == std::string_view::npos ? 0 : numberOf(facts.substr(at + name.size())).value_or(0);
}

/// The group that holds this process and has the least limit, it or one above it.
MemoryGroup ownGroup() {
  MemoryGroup least;
  const std::string table = readSystemFile("/proc/self/cgroup");
  const auto at = table.find("0::");
  if (at == std::string::npos) return least;
  std::string group = table.substr(at + 3, table.find('\n', at) - at - 3);
  for (bool last = false; !last; group.resize(std::min(group.rfind('/'), group.size()))) {
    last = group.size() <= 1;
    const std::string folder = "/sys/fs/cgroup" + (last ? std::string() : group) + "/memory.";
    const auto read = [&](const char* name) { return readSystemFile((folder + name).c_str()); };
    MemoryGroup found{read("max"), read("current"), read("stat")};
    const auto most = numberOf(found.most);
    if (most && *most < numberOf(least.most).value_or(std::numeric_limits<std::uint64_t>::max()))
      least = std::move(found);
  }
  return least;
}

}  // namespace

MemoryStatus parseMemInfo(std::string_view text, const MemoryGroup& group) {
  std::uint64_t total = bytesOf(text, "MemTotal").value_or(0);
  const auto told = bytesOf(text, "MemAvailable");
  std::uint64_t available = std::min(total, told ? *told : bytesOf(text, "MemFree").value_or(0));
  if (const auto most = numberOf(group.most); most && *most < total) {
    total = *most;
    const std::uint64_t held = numberOf(group.held).value_or(0);
    const std::uint64_t kept = std::min(held, factOf(group.facts, "inactive_file "));
    available = std::min(available, total - std::min(total, held - kept));
  }
  MemoryStatus status;
  status.loadPercent = total ? static_cast<std::uint32_t>(std::lround(100.0 * static_cast<double>(total - available) /
                                                                      static_cast<double>(total)))
                             : 0;
  status.totalPhysical = total;
  status.availablePhysical = available;
  return status;
}

MemoryStatus ProcSystemFacts::memory() const { return parseMemInfo(readSystemFile("/proc/meminfo"), ownGroup()); }

}  // namespace varnholt::platform::posix
