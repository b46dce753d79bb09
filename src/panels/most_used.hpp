#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace varnholt::panels {

/// How often each file was opened: `MostUsed.Dat`.
class MostUsed {
 public:
  struct Entry {
    std::size_t hits = 0;
    std::string name, folder;  ///< the folder with its closing backslash
  };

  /// Counts one open of the file.
  void Muf(const std::string& path);

  std::vector<Entry> entries;  ///< in the order in which they came
};

}  // namespace varnholt::panels
