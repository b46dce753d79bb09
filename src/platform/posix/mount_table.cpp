#include "platform/posix/mount_table.hpp"

#include "platform/posix/unique_fd.hpp"

#include <charconv>

#include <fcntl.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

bool isOctal(char c) { return c >= '0' && c <= '7'; }

/// "\040" and alike back to bytes.
std::string unescape(std::string_view text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 3 < text.size() && isOctal(text[i + 1]) && isOctal(text[i + 2]) &&
        isOctal(text[i + 3])) {
      out += static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 + (text[i + 3] - '0'));
      i += 3;
    } else {
      out += text[i];
    }
  }
  return out;
}

std::vector<std::string_view> splitBlanks(std::string_view line) {
  std::vector<std::string_view> fields;
  size_t at = 0;
  while (at < line.size()) {
    size_t end = line.find(' ', at);
    if (end == std::string_view::npos) end = line.size();
    if (end > at) fields.push_back(line.substr(at, end - at));
    at = end + 1;
  }
  return fields;
}

std::optional<dev_t> parseDevice(std::string_view text) {
  unsigned major = 0, minor = 0;
  const char* end = text.data() + text.size();
  auto first = std::from_chars(text.data(), end, major);
  if (first.ec != std::errc() || first.ptr == end || *first.ptr != ':') return {};
  auto second = std::from_chars(first.ptr + 1, end, minor);
  if (second.ec != std::errc() || second.ptr != end) return {};
  return makedev(major, minor);
}

std::optional<Mount> parseLine(std::string_view line) {
  const auto fields = splitBlanks(line);
  size_t dash = 6;
  while (dash < fields.size() && fields[dash] != "-")
    ++dash;
  if (dash + 2 >= fields.size()) return {};
  const auto device = parseDevice(fields[2]);
  std::uint64_t id = 0;
  if (!device || std::from_chars(fields[0].begin(), fields[0].end(), id).ec != std::errc()) return {};
  return Mount{
      id, *device, unescape(fields[3]), unescape(fields[4]), unescape(fields[dash + 1]), unescape(fields[dash + 2])};
}

}  // namespace

std::vector<Mount> parseMountInfo(std::string_view text) {
  std::vector<Mount> mounts;
  while (!text.empty()) {
    const size_t end = text.find('\n');
    if (auto mount = parseLine(text.substr(0, end))) mounts.push_back(std::move(*mount));
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  return mounts;
}

std::optional<Mount> mountOfDevice(const std::vector<Mount>& mounts, dev_t device) {
  const Mount* found = nullptr;
  for (const Mount& mount : mounts)
    if (mount.device == device && (!found || (found->root != "/" && mount.root == "/"))) found = &mount;
  return found ? std::optional(*found) : std::nullopt;
}

std::string readSystemFile(const char* path) {
  const UniqueFd file(::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  std::string text;
  char buffer[16384];
  while (file) {
    const ssize_t got = ::read(file.get(), buffer, sizeof buffer);
    if (got <= 0) break;
    text.append(buffer, static_cast<size_t>(got));
  }
  return text;
}

}  // namespace varnholt::platform::posix
