#pragma once

#include "core/program.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::panels {

/// How often each file was opened: `MostUsed.Dat`. Several running copies of the program share it: each adds its hits.
class MostUsed {
 public:
  struct Entry {
    std::size_t hits = 0;
    std::string name, folder;  ///< the folder with its closing backslash

    std::string path() const;
  };
  using Entries = std::vector<Entry>;

  /// Counts one open of the file.
  void Muf(const std::string& path);

  /// A file that cannot be read to its end is set aside, and the user told.
  void load(const core::Program& program);
  /// Writes at most 100 entries, the rarest first. Beyond that the ones whose files were not accessed for longest go; a
  /// file that is gone counts as one of 1950, and one on a drive that does not answer stays.
  platform::Result<void> store(const core::Program& program);

  struct Read {
    Entries entries;
    bool whole = true;  ///< false when the last entry was cut off
  };
  /// The entries of such a file. What stands between them is passed over, and so is an entry without its lines.
  static Read entriesOf(std::string_view bytes);

  Entries entries;  ///< in the order in which they came

 private:
  Entries merged(const Entries& there) const;

  Entries known_;  ///< as the file had them when it was last seen
};

}  // namespace varnholt::panels
