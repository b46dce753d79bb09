#include "cleanup/patterns.hpp"

#include "core/wildcard.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>

namespace varnholt::cleanup {

void Patterns::add(std::string_view pattern) {
  std::string folded = platform::foldCase(pattern);
  const bool isEnding = folded.starts_with('*') && folded.find_first_of("*?#[]", 1) == std::string::npos;
  if (isEnding) folded.erase(0, 1);
  const auto last = static_cast<unsigned char>(isEnding && !folded.empty() ? folded.back() : 0xFF);
  if (last < lastLetters_.size())
    lastLetters_.set(last);
  else
    haveOthers_ = true;
  patterns_.push_back({std::move(folded), isEnding});
}

bool Patterns::matches(const Pattern& pattern, std::string_view folded) {
  return pattern.isEnding ? folded.ends_with(pattern.text) : core::wildcardMatch(pattern.text, folded);
}

bool Patterns::mayMatch(std::string_view name) const {
  const auto last = static_cast<unsigned char>(name.empty() ? 0xFF : name.back());
  if (haveOthers_ || last >= lastLetters_.size()) return true;
  return lastLetters_.test(last >= 'A' && last <= 'Z' ? last | 0x20 : last);
}

bool Patterns::match(std::string_view name) const {
  if (!mayMatch(name)) return false;
  const std::string folded = platform::foldCase(name);
  return std::ranges::any_of(patterns_, [&](const Pattern& each) { return matches(each, folded); });
}

std::size_t Patterns::matches(std::string_view name) const {
  const std::string folded = platform::foldCase(name);
  return static_cast<std::size_t>(
      std::ranges::count_if(patterns_, [&](const Pattern& each) { return matches(each, folded); }));
}

}  // namespace varnholt::cleanup
