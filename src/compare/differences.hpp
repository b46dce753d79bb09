#pragma once

#include "platform/file_system.hpp"

#include <atomic>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace varnholt::compare {

/// Why a file is to be carried over.
enum class Reason { Missing, Version, Date, Size };

/// The word that a row shows for it.
const char* wordFor(Reason reason);

/// Which tests a walk makes. A file has one reason, the first that holds, in this order.
struct Tests {
  bool exist = true, version = true, date = true, size = false;
};

/// A file that the other folder is to get.
struct Difference {
  std::string name;
  Reason reason = Reason::Missing;
  std::uint64_t bytes = 0;
};

/// The files of one folder as they stand on the disk, read once; versions as they are asked for.
class FolderFiles {
 public:
  /// A folder that cannot be read holds nothing.
  FolderFiles(const platform::FileSystem& files, std::string folder);

  /// Null when there is no file of exactly that name; a folder is none.
  const platform::Entry* find(std::string_view name) const;
  /// Empty for a file without a version; nothing when it cannot be read.
  std::optional<std::string> version(const std::string& name) const;
  std::size_t count() const { return listing_ ? listing_->files().size() : 0; }

 private:
  const platform::FileSystem& files_;
  std::string folder_;
  platform::ListingPtr listing_;
  std::unordered_map<std::string_view, const platform::Entry*> byName_;
  mutable std::unordered_map<std::string, std::optional<std::string>> versions_;
};

/// Which of the files named `names`, in their order, `target` is to get from `source`. A fact that cannot be read
/// leaves its test unmet. Counts up `done` for each name.
std::vector<Difference> differences(const FolderFiles& source, const std::vector<std::string>& names,
                                    const FolderFiles& target, const Tests& tests, std::atomic<std::size_t>& done);

}  // namespace varnholt::compare
