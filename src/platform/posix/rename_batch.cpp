#include "platform/posix/rename_batch.hpp"

#include "platform/posix/dirents.hpp"
#include "platform/posix/move.hpp"
#include "platform/posix/passing_names.hpp"
#include "platform/posix/posix_error.hpp"
#include "platform/posix/unique_fd.hpp"
#include "platform/rename_plan.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <unordered_set>

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

using Numbers = std::vector<std::size_t>;

UniqueFd openFolder(const std::string& folder) {
  return UniqueFd(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

std::vector<NotRenamed> refuseAll(std::span<const NewName> names, const Error& error) {
  std::vector<NotRenamed> all;
  for (std::size_t at = 0; at < names.size(); ++at)
    all.push_back({at, error});
  return all;
}

/// Which new names are found as other spellings of the old ones, on a volume that does not tell case apart. The folder
/// is read at the first one that may be.
class Spellings {
 public:
  explicit Spellings(int folder) : folder_(folder) {}

  /// Of a new name that is there: whether it leads to the old one.
  bool areOne(const NewName& each) {
    if (foldCase(each.from) != foldCase(each.to)) return false;
    if (listed_.empty()) read();
    return listed_.contains(each.from) && !listed_.contains(each.to);
  }

 private:
  void read() {
    const UniqueFd reader(::openat(folder_, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    DirentBatch batch;
    while (reader && batch.read(reader.get()) > 0)
      batch.forEach([&](const char* name, unsigned char) { return listed_.emplace(name), true; });
  }

  int folder_;
  std::unordered_set<std::string> listed_;
};

/// One folder's files on their way to their new names.
class Batch {
 public:
  Batch(int folder, const std::string& path, std::span<const NewName> names)
      : folder_(folder), path_(path), names_(names) {}

  std::vector<NotRenamed> run() {
    const RenamePlan plan = planRenames(names_);
    turnRings(plan.rings);
    Numbers left = renameDirectly(plan.order);
    // On a volume that does not tell case apart, the order of the plan is not always the one that frees the names.
    for (std::size_t before = left.size() + 1; !left.empty() && left.size() < before;) {
      before = left.size();
      left = renameDirectly(left);
    }
    for (const std::size_t at : respell(left))
      isGone(at) ? refuse(at, ENOENT) : renameClosely(at);
    return std::move(refused_);
  }

 private:
  std::string pathOf(const std::string& name) const { return path_ + '/' + name; }
  void refuse(std::size_t at, int error) { refused_.push_back({at, systemError(error, pathOf(names_[at].to))}); }

  int directly(const NewName& each, unsigned flags) const {
    return ::renameat2(folder_, each.from.c_str(), folder_, each.to.c_str(), flags) == 0 ? 0 : errno;
  }

  /// Nothing is replaced, so a file whose old name another one could be given had vanished: what has that name now is
  /// the other one.
  bool isGone(std::size_t at) const { return given_.contains(names_[at].from); }

  /// Gives those that are still to be done.
  Numbers renameDirectly(const Numbers& numbers) {
    Numbers left;
    for (const std::size_t at : numbers)
      if (isGone(at) || directly(names_[at], RENAME_NOREPLACE))
        left.push_back(at);
      else
        given_.insert(names_[at].to);
    return left;
  }

  /// A single call tells what is the matter, and knows what to do where the quick one is not supported.
  void renameClosely(std::size_t at) {
    if (auto moved = moveFileTo(pathOf(names_[at].from), pathOf(names_[at].to), {}); !moved)
      refused_.push_back({at, moved.error()});
    else
      given_.insert(names_[at].to);
  }

  // --- Rings ---------------------------------------------------------------------------------------------------------

  /// By exchanges no file is ever without a name of its own.
  void turnRings(const std::vector<Numbers>& rings) {
    std::vector<Numbers> byPassing;
    for (const Numbers& ring : rings) {
      const int error = exchange(ring);
      if (error == EINVAL || error == ENOSYS || error == EOPNOTSUPP)
        byPassing.push_back(ring);
      else if (error)
        refuseRing(ring, error);
    }
    if (byPassing.empty()) return;
    std::vector<Passage> passages;
    for (const Numbers& ring : byPassing)
      passages.push_back(passageOf(ring));
    const std::vector<int> errors = PassingNames::run(folder_, path_, passages);
    for (std::size_t at = 0; at < errors.size(); ++at)
      if (errors[at]) refuseRing(byPassing[at], errors[at]);
  }

  void refuseRing(const Numbers& ring, int error) {
    for (const std::size_t at : ring)
      refuse(at, error);
  }

  /// All or none: an exchange undoes itself.
  int exchange(const Numbers& ring) const {
    const std::string& first = names_[ring.front()].from;
    for (std::size_t at = 1; at < ring.size(); ++at) {
      const int error = directly({first, names_[ring[at]].from}, RENAME_EXCHANGE);
      if (!error) continue;
      while (--at > 0)
        (void)directly({first, names_[ring[at]].from}, RENAME_EXCHANGE);
      return error;
    }
    return 0;
  }

  Passage passageOf(const Numbers& ring) const {
    const NewName& first = names_[ring.front()];
    Passage passage{PassingNames::nameFor(first.from), first.to, {first.from}};
    for (auto at = ring.rbegin(); *at != ring.front(); ++at)
      passage.places.push_back(names_[*at].from);
    return passage;
  }

  // --- Other spellings -----------------------------------------------------------------------------------------------

  /// Those that are in their own way, as only the case of their names changes, all under one note. Gives the rest.
  Numbers respell(const Numbers& numbers) {
    Numbers rest, respelled;
    Spellings spellings(folder_);
    for (const std::size_t at : numbers)
      (spellings.areOne(names_[at]) && isThere(names_[at].to) ? respelled : rest).push_back(at);
    if (respelled.empty()) return rest;
    std::vector<Passage> passages;
    for (const std::size_t at : respelled)
      passages.push_back({PassingNames::nameFor(names_[at].from), names_[at].to, {names_[at].from}});
    const std::vector<int> errors = PassingNames::run(folder_, path_, passages);
    for (std::size_t at = 0; at < errors.size(); ++at)
      if (errors[at]) refuse(respelled[at], errors[at]);
    return rest;
  }

  bool isThere(const std::string& name) const {
    struct stat facts {};
    return ::fstatat(folder_, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0;
  }

  int folder_;
  const std::string& path_;
  std::span<const NewName> names_;
  std::unordered_set<std::string_view> given_;  ///< new names that files have, but for those of rings
  std::vector<NotRenamed> refused_;
};

/// What would become of a batch.
class Check {
 public:
  Check(int folder, const std::string& path, std::span<const NewName> names)
      : folder_(folder), path_(path), names_(names), longest_(::fpathconf(folder, _PC_NAME_MAX)) {}

  std::vector<NotRenamed> run() {
    const RenamePlan plan = planRenames(names_);
    for (const NewName& each : names_)
      old_.insert(each.from);
    held_ = old_;
    for (const Numbers& ring : plan.rings)
      for (const std::size_t at : ring)
        given_.insert(names_[at].to);
    for (const std::size_t at : plan.order)
      if (const int error = errorOf(names_[at])) {
        refused_.push_back({at, systemError(error, path_ + '/' + names_[at].to)});
      } else {
        held_.erase(names_[at].from);
        given_.insert(names_[at].to);
      }
    return std::move(refused_);
  }

 private:
  int errorOf(const NewName& each) {
    if (longest_ > 0 && each.to.size() > static_cast<std::size_t>(longest_)) return ENAMETOOLONG;
    if (given_.contains(each.to) || held_.contains(each.to)) return EEXIST;
    struct stat there {};
    if (::fstatat(folder_, each.to.c_str(), &there, AT_SYMLINK_NOFOLLOW) != 0) return 0;
    if (old_.contains(each.to)) return 0;  // its file will have left it
    return spellings_.areOne(each) ? 0 : EEXIST;
  }

  int folder_;
  const std::string& path_;
  std::span<const NewName> names_;
  long longest_;
  std::unordered_set<std::string_view> old_;    ///< the names of all these files
  std::unordered_set<std::string_view> held_;   ///< those that their files have not left
  std::unordered_set<std::string_view> given_;  ///< new names that have been given
  Spellings spellings_{folder_};
  std::vector<NotRenamed> refused_;
};

}  // namespace

std::vector<NotRenamed> renameBatch(const std::string& folder, std::span<const NewName> names) {
  const UniqueFd open = openFolder(folder);
  return open ? Batch(open.get(), folder, names).run() : refuseAll(names, systemError(errno, folder));
}

std::vector<NotRenamed> checkBatch(const std::string& folder, std::span<const NewName> names) {
  const UniqueFd open = openFolder(folder);
  if (!open) return refuseAll(names, systemError(errno, folder));
  if (::faccessat(open.get(), ".", W_OK, AT_EACCESS) != 0) return refuseAll(names, systemError(errno, folder));
  return Check(open.get(), folder, names).run();
}

}  // namespace varnholt::platform::posix
