#include "platform/posix/copy_undo.hpp"

#include "platform/posix/tree_walk.hpp"

#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>

namespace varnholt::platform::posix {
namespace {

/// Some volumes keep times to two seconds.
constexpr long roundedSeconds = 2;

struct UndoFolder final : WalkFolder {
  UniqueFd source;
};

class UndoWalk final : public TreeWalk {
 public:
  UndoWalk() : TreeWalk(none_, false) {}

  void undo(const std::string& source, int place, const std::string& name) {
    auto root = std::make_shared<UndoFolder>();
    root->source = UniqueFd(::open(source.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
    root->fd = UniqueFd(openFolderAt(place, name.c_str(), false));
    if (!root->source || !root->fd) return;
    (void)run(root);
    ::unlinkat(place, name.c_str(), AT_REMOVEDIR);
  }

 private:
  static UndoFolder& own(WalkFolder& folder) { return static_cast<UndoFolder&>(folder); }

  WalkFolderPtr makeFolder() override { return std::make_shared<UndoFolder>(); }

  bool enter(WalkFolder& walked) override {
    UndoFolder& folder = own(walked);
    if (folder.parent)
      folder.source = UniqueFd(openFolderAt(own(*folder.parent).source.get(), folder.name.c_str(), true));
    struct stat facts {};
    if (!folder.source || ::fstat(folder.fd.get(), &facts) != 0) return false;
    // The copy has the permissions of its source, which may be those of reading alone.
    (void)::fchmod(folder.fd.get(), (facts.st_mode & 07777) | S_IRWXU);
    return true;
  }

  void entry(WalkFolder& walked, const char* name, unsigned char /*type*/) override {
    struct stat copy {
    }, source{};
    if (::fstatat(walked.fd.get(), name, &copy, AT_SYMLINK_NOFOLLOW) != 0 ||
        ::fstatat(own(walked).source.get(), name, &source, AT_SYMLINK_NOFOLLOW) != 0)
      return;
    const bool same = (copy.st_mode & S_IFMT) == (source.st_mode & S_IFMT) && copy.st_size == source.st_size &&
                      std::labs(copy.st_mtim.tv_sec - source.st_mtim.tv_sec) <= roundedSeconds;
    if (same && copy.st_ino != source.st_ino) ::unlinkat(walked.fd.get(), name, 0);
  }

  Leaving leave(WalkFolder& folder) override {
    if (folder.parent && own(folder).source) ::unlinkat(folder.parent->fd.get(), folder.name.c_str(), AT_REMOVEDIR);
    return Leaving::Done;
  }

  void unreadable(WalkFolder&, int) override {}

  inline static const Progress none_;
};

}  // namespace

void removeCopies(const std::string& source, int place, const std::string& name) {
  UndoWalk().undo(source, place, name);
}

}  // namespace varnholt::platform::posix
