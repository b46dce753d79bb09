#include "vnzip/sources.hpp"

#include "platform/posix/dos_attributes.hpp"
#include "platform/posix/posix_error.hpp"

#include <algorithm>
#include <cerrno>
#include <memory>

#include <dirent.h>

namespace varnholt::vnzip {
namespace {

constexpr std::string_view AllFiles = "/*.*";
// A backslash in a name parts folders for readers of other systems: it goes as the program writes it (U+F05C).
constexpr std::string_view BackslashStandIn = "\xEF\x81\x9C";
constexpr std::uint8_t ReadOnly = 1, Hidden = 2, System = 4, Archive = 32;

std::string withoutDoubledSlashes(std::string_view path) {
  std::string out;
  for (const char letter : path)
    if (letter != '/' || !out.ends_with('/')) out += letter;
  return out;
}

std::string folded(std::string text) {
  // Not as the locale tells it: the order of an archive is the same everywhere.
  std::ranges::transform(text, text.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c + ('a' - 'A')) : c; });
  return text;
}

std::vector<std::string> namesIn(const std::string& folder, int& error) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.c_str()), ::closedir);
  error = open ? 0 : errno;
  while (open) {
    const dirent* entry = ::readdir(open.get());
    if (!entry) break;
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
  std::ranges::sort(names, {}, [](const std::string& name) { return std::pair(folded(name), name); });
  return names;
}

/// The stored attributes; none where nothing is stored.
std::uint8_t storedAttributes(const std::string& path, dev_t device) {
  auto store = platform::posix::AttributeStore::ofVolume(device, path.c_str());
  return static_cast<std::uint8_t>(store.read(path.c_str()).value_or(0));
}

}  // namespace

std::vector<Source> Sources::expand(const Taking& taking, const std::vector<std::string>& fileSpecs) {
  std::vector<Source> sources;
  for (const std::string& fileSpec : fileSpecs) {
    const bool isFolder = fileSpec.ends_with(AllFiles);
    std::string_view path = fileSpec;
    if (isFolder) path.remove_suffix(AllFiles.size());
    const std::size_t mark = path.find("//");
    const std::size_t drive = mark == std::string_view::npos ? 0 : mark;
    const std::string plain = withoutDoubledSlashes(path);
    if (isFolder)
      addFolder(taking, drive, plain.empty() ? "/" : plain, sources);
    else
      addFile(taking, drive, plain, sources);
  }
  return sources;
}

void Sources::addFolder(const Taking& taking, std::size_t drive, const std::string& folder,
                        std::vector<Source>& sources) {
  int error = 0;
  const auto names = namesIn(folder, error);
  if (error) return leftOut_(folder, platform::posix::errorWords(error));
  if (names.empty()) return leftOut_(folder, "an empty folder");
  std::vector<std::string> folders;
  dev_t device = 0;
  for (const std::string& name : names) {
    const std::string path = folder + (folder.ends_with('/') ? "" : "/") + name;
    struct stat facts {};
    if (::lstat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode))
      folders.push_back(path), device = facts.st_dev;
    else
      addFile(taking, drive, path, sources);
  }
  for (const std::string& each : folders)
    if (taking.recurse) {
      if (!taking.systemAndHidden && (storedAttributes(each, device) & (Hidden | System)))
        leftOut_(each, "hidden or system");
      else
        addFolder(taking, drive, each, sources);
    }
}

void Sources::addFile(const Taking& taking, std::size_t drive, const std::string& path, std::vector<Source>& sources) {
  struct stat facts {};
  if (::lstat(path.c_str(), &facts) != 0) return leftOut_(path, platform::posix::errorWords(errno));
  if (own_.contains({facts.st_dev, facts.st_ino})) return leftOut_(path, "the archive itself");
  if (!S_ISREG(facts.st_mode) && !S_ISLNK(facts.st_mode))
    return leftOut_(path, S_ISDIR(facts.st_mode) ? "a folder" : "a pipe, socket or device");
  Source source;
  source.path = path;
  source.isLink = S_ISLNK(facts.st_mode);
  source.size = static_cast<std::uint64_t>(facts.st_size);
  source.modified = facts.st_mtim;
  source.mode = facts.st_mode;
  const std::uint8_t stored = source.isLink ? 0 : storedAttributes(path, facts.st_dev);
  if (!taking.systemAndHidden && (stored & (Hidden | System))) return leftOut_(path, "hidden or system");
  source.attributes = (stored ? stored : Archive) | (facts.st_mode & S_IWUSR ? 0 : ReadOnly);
  source.name = nameOf(taking, drive, path);
  if (const std::string* const known = takenBy(source.name)) {
    if (!taking.junkNames && *known == path) return;  // the same file again
    const std::string other = freeName(source.name);
    leftOut_(path, "stored as " + other);
    source.name = other;
  }
  constexpr std::size_t LongestName = 65535;
  if (source.name.size() > LongestName) return leftOut_(path, "its name is too long");
  fresh_.emplace(source.name, path);
  sources.push_back(std::move(source));
}

std::string Sources::nameOf(const Taking& taking, std::size_t drive, const std::string& path) const {
  std::string_view name = path;
  const std::string root = taking.root.empty() || taking.root.ends_with('/') ? taking.root : taking.root + '/';
  if (taking.junkNames)
    name.remove_prefix(path.rfind('/') + 1);
  else if (!root.empty() && path.starts_with(root))
    name.remove_prefix(root.size());
  else
    name.remove_prefix(std::min(drive, path.size()));
  while (name.starts_with('/'))
    name.remove_prefix(1);
  std::string stored;
  for (const char letter : name)
    letter == '\\' ? stored += BackslashStandIn : stored += letter;
  return stored;
}

const std::string* Sources::takenBy(const std::string& name) const {
  for (const auto* names : {&used_, &fresh_})
    if (const auto found = names->find(name); found != names->end()) return &found->second;
  return nullptr;
}

std::string Sources::freeName(const std::string& name) const {
  const std::size_t point = name.rfind('.') == 0 ? std::string::npos : name.rfind('.');
  for (int number = 2;; ++number) {
    std::string other = name.substr(0, point) + " (" + std::to_string(number) + ")";
    if (point != std::string::npos) other += name.substr(point);
    if (!takenBy(other)) return other;
  }
}

}  // namespace varnholt::vnzip
