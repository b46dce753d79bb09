#include "support/tree_snapshot.hpp"
#include "support/testing.hpp"

#include "platform/posix/dirents.hpp"
#include "platform/posix/unique_fd.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace varnholt::test {
namespace {

using platform::posix::DirentBatch;
using platform::posix::UniqueFd;

std::string readAll(int fd) {
  std::string bytes;
  char buffer[65536];
  for (ssize_t got; (got = ::read(fd, buffer, sizeof buffer)) > 0;)
    bytes.append(buffer, static_cast<size_t>(got));
  return bytes;
}

EntryFacts factsAt(int folder, const char* name) {
  EntryFacts facts;
  struct stat stat {};
  if (::fstatat(folder, name, &stat, AT_SYMLINK_NOFOLLOW) != 0) return facts;
  facts.mode = stat.st_mode;
  facts.modified = stat.st_mtim;
  if (S_ISLNK(stat.st_mode)) {
    char text[4096];
    const ssize_t length = ::readlinkat(folder, name, text, sizeof text);
    facts.contents.assign(text, length > 0 ? static_cast<size_t>(length) : 0);
  }
  if (!S_ISREG(stat.st_mode) && !S_ISDIR(stat.st_mode)) return facts;
  const UniqueFd entry(::openat(folder, name, O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
  if (S_ISREG(stat.st_mode)) facts.contents = entry ? readAll(entry.get()) : "(unreadable)";
  char value[64];
  const ssize_t length = entry ? ::fgetxattr(entry.get(), "user.DOSATTRIB", value, sizeof value) : -1;
  facts.attributes.assign(value, length > 0 ? static_cast<size_t>(length) : 0);
  return facts;
}

void readInto(TreeSnapshot& all, int folder, const std::string& prefix) {
  std::vector<std::string> names;
  DirentBatch batch;
  while (batch.read(folder) > 0)
    batch.forEach([&](const char* name, unsigned char) {
      names.emplace_back(name);
      return true;
    });
  for (const std::string& name : names) {
    EntryFacts facts = factsAt(folder, name.c_str());
    if (facts.isFolder()) {
      facts.modified = {};
      const UniqueFd below(::openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
      if (below) readInto(all, below.get(), prefix + name + "/");
    }
    all.emplace(prefix + name, std::move(facts));
  }
}

}  // namespace

bool EntryFacts::isFolder() const { return S_ISDIR(mode); }

bool EntryFacts::operator==(const EntryFacts& other) const {
  return mode == other.mode && contents == other.contents && attributes == other.attributes &&
         modified.tv_sec == other.modified.tv_sec && modified.tv_nsec == other.modified.tv_nsec;
}

std::ostream& operator<<(std::ostream& out, const EntryFacts& facts) {
  return out << std::oct << facts.mode << std::dec << ", " << facts.contents.size() << " bytes \""
             << facts.contents.substr(0, 20) << "\", attributes \"" << facts.attributes << "\", "
             << facts.modified.tv_sec << '.' << facts.modified.tv_nsec;
}

TreeSnapshot snapshot(const std::string& folder) {
  TreeSnapshot all;
  const UniqueFd root(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (root) readInto(all, root.get(), "");
  return all;
}

EntryFacts factsOf(const std::string& path) { return factsAt(AT_FDCWD, path.c_str()); }

std::string difference(const TreeSnapshot& before, const TreeSnapshot& after) {
  std::string lines;
  for (const auto& [name, facts] : before) {
    const auto now = after.find(name);
    if (now == after.end())
      lines += "- " + name + "\n";
    else if (!(now->second == facts))
      lines += "! " + name + "\n";
  }
  for (const auto& [name, facts] : after)
    if (!before.contains(name)) lines += "+ " + name + "\n";
  return lines;
}

}  // namespace varnholt::test
