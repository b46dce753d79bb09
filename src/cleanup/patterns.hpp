#pragma once

#include <bitset>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::cleanup {

/// The patterns of one scan, in their order. May be asked by several threads at once.
class Patterns {
 public:
  void add(std::string_view pattern);
  bool empty() const { return patterns_.empty(); }
  /// Whether one of them matches the name; letter case does not count.
  bool match(std::string_view name) const;
  /// How many match it.
  std::size_t matches(std::string_view name) const;

 private:
  /// In lower case. Most are a star and an ending, which needs no wildcard match.
  struct Pattern {
    std::string text;
    bool isEnding;
  };
  static bool matches(const Pattern& pattern, std::string_view folded);
  /// False where the last letter alone tells that no pattern matches, which spares most names the folding.
  bool mayMatch(std::string_view name) const;

  std::vector<Pattern> patterns_;
  std::bitset<128> lastLetters_;  ///< of the endings
  bool haveOthers_ = false;       ///< patterns that are no ending, or one that does not end in ASCII
};

}  // namespace varnholt::cleanup
