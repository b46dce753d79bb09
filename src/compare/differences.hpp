#pragma once

#include "platform/file_system.hpp"

#include <atomic>
#include <cstddef>
#include <optional>
#include <string>
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
  platform::FileFacts there{};  ///< what the other folder had of it
};

/// Files of one folder by their number in a list of names, as they stand on the disk: facts read once for all, versions
/// when they are asked for.
class FolderFiles {
 public:
  /// Of a folder that cannot be read no file is there. `names` must outlive this.
  FolderFiles(const platform::FileSystem& files, std::string folder, const std::vector<std::string>& names);

  const platform::FileFacts& facts(std::size_t at) const { return facts_[at]; }
  /// Empty for a file without a version; nothing when it cannot be read.
  std::optional<std::string> version(std::size_t at) const;

 private:
  const platform::FileSystem& files_;
  std::string folder_;
  const std::vector<std::string>& names_;
  std::vector<platform::FileFacts> facts_;
};

/// Which of the files named `names`, in their order, `target` is to get from `source`, both made of these names. A fact
/// that cannot be read leaves its test unmet. Counts up `done` for each name.
std::vector<Difference> differences(const FolderFiles& source, const std::vector<std::string>& names,
                                    const FolderFiles& target, const Tests& tests, std::atomic<std::size_t>& done);

}  // namespace varnholt::compare
