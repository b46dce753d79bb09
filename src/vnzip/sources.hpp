#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include <sys/stat.h>

namespace varnholt::vnzip {

/// How names and files of a batch are taken.
struct Taking {
  std::string root;        ///< names begin below it, where they can
  bool junkNames = false;  ///< names have no folders
  bool systemAndHidden = false;
  bool recurse = false;
};

/// A file or link that is to be packed.
struct Source {
  std::string path, name;
  bool isLink = false;
  std::uint64_t size = 0;
  timespec modified{};
  mode_t mode = 0;
  std::uint8_t attributes = 0;  ///< of DOS
};

/// Told of what is left out, by path and reason.
using LeftOut = std::function<void(const std::string& path, std::string_view why)>;
/// Device and inode.
using Identity = std::pair<dev_t, ino_t>;

/// The files that file specs name, in their order. Names that files of one run would share are told apart.
class Sources {
 public:
  explicit Sources(LeftOut leftOut) : leftOut_(std::move(leftOut)) {}

  /// Files of the archive itself.
  void spare(Identity own) { own_.insert(own); }
  std::vector<Source> expand(const Taking& taking, const std::vector<std::string>& fileSpecs);
  /// The batch is in the archive: its names are taken. Else they are free again.
  void keepNames() { used_.merge(fresh_), fresh_.clear(); }
  void dropNames() { fresh_.clear(); }

 private:
  void addFolder(const Taking& taking, std::size_t drive, const std::string& folder, std::vector<Source>& sources);
  void addFile(const Taking& taking, std::size_t drive, const std::string& path, std::vector<Source>& sources);
  std::string nameOf(const Taking& taking, std::size_t drive, const std::string& path) const;
  /// The file that has the name in this run; null: none.
  const std::string* takenBy(const std::string& name) const;
  /// "name (2).ext", or with the next number that is free.
  std::string freeName(const std::string& name) const;

  LeftOut leftOut_;
  std::set<Identity> own_;
  std::unordered_map<std::string, std::string> used_, fresh_;  ///< paths by the names they have in the archive
};

}  // namespace varnholt::vnzip
