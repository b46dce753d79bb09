#pragma once

#include <string>

namespace varnholt::search {

/// The word that folders are looked for by. Letter case does not count.
class FolderWord {
 public:
  /// With `wholePath` it may stand anywhere in the path, else the path must end in it.
  FolderWord(const std::string& word, bool wholePath);

  /// Asked by several threads at once.
  bool matches(const std::string& path) const;

 private:
  std::string word_, pattern_;  ///< in lower case; no pattern for a word without wildcards
  bool wholePath_;
};

}  // namespace varnholt::search
