#pragma once

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

  std::vector<Pattern> patterns_;
};

}  // namespace varnholt::cleanup
