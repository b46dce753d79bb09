#include "search/folder_word.hpp"

#include "core/wildcard.hpp"
#include "platform/text_fold.hpp"

namespace varnholt::search {

FolderWord::FolderWord(const std::string& word, bool wholePath)
    : word_(platform::foldCase(word)), wholePath_(wholePath) {
  if (word_.find_first_of("*?#[") != std::string::npos) pattern_ = '*' + word_ + (wholePath ? "*" : "");
}

bool FolderWord::matches(const std::string& path) const {
  const std::string folded = platform::foldCase(path);
  const auto holds = [&](const std::string& text) { return folded.find(text) != std::string::npos; };
  if (pattern_.empty()) return wholePath_ ? holds(word_) : folded.ends_with(word_);
  // Names may have all these characters here. The star in front of a word that must end the path belongs to it.
  return holds(wholePath_ ? word_ : pattern_) || core::wildcardMatch(pattern_, folded);
}

}  // namespace varnholt::search
