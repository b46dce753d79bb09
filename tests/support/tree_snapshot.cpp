#include "support/tree_snapshot.hpp"

#include <sys/stat.h>
#include <sys/xattr.h>

namespace varnholt::test {

namespace fs = std::filesystem;

bool EntryFacts::operator==(const EntryFacts& other) const {
  return mode == other.mode && contents == other.contents && attributes == other.attributes &&
         modified.tv_sec == other.modified.tv_sec && modified.tv_nsec == other.modified.tv_nsec;
}

std::ostream& operator<<(std::ostream& out, const EntryFacts& facts) {
  return out << std::oct << facts.mode << std::dec << ", " << facts.contents.size() << " bytes \""
             << facts.contents.substr(0, 20) << "\", attributes \"" << facts.attributes << "\", "
             << facts.modified.tv_sec << '.' << facts.modified.tv_nsec;
}

EntryFacts factsOf(const std::string& path) {
  EntryFacts facts;
  struct stat stat {};
  if (::lstat(path.c_str(), &stat) != 0) return facts;
  facts.mode = stat.st_mode;
  facts.modified = stat.st_mtim;
  if (S_ISLNK(stat.st_mode)) facts.contents = fs::read_symlink(path).string();
  if (!S_ISREG(stat.st_mode) && !S_ISDIR(stat.st_mode)) return facts;
  std::ifstream file(path, std::ios::binary);
  if (S_ISREG(stat.st_mode)) facts.contents.assign(std::istreambuf_iterator<char>(file), {});
  char value[64];
  const ssize_t length = ::getxattr(path.c_str(), "user.DOSATTRIB", value, sizeof value);
  facts.attributes.assign(value, length > 0 ? static_cast<size_t>(length) : 0);
  return facts;
}

TreeSnapshot snapshot(const std::string& folder) {
  TreeSnapshot all;
  std::error_code none;  // a folder that is not there is an empty one
  for (const auto& entry : fs::recursive_directory_iterator(folder, none)) {
    EntryFacts facts = factsOf(entry.path());
    if (facts.isFolder()) facts.modified = {};
    all.emplace(entry.path().lexically_relative(folder), std::move(facts));
  }
  return all;
}

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
