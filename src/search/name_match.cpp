#include "search/name_match.hpp"

#include "core/text_character.hpp"
#include "core/wildcard.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>

namespace varnholt::search {

NameMatch::NameMatch(std::string_view letters, Kind kind)
    : kind_(kind),
      letters_(platform::foldCase(letters)),
      mark_(std::min(letters_.find('?'), letters_.size())),
      isPattern_(kind == Kind::AnywhereOrWhole && letters_.find_first_of("*?#[") != std::string::npos) {}

// An ASCII letter is one byte, also when it is folded: most names are told apart by these.
bool NameMatch::mayBegin(std::string_view name) const {
  const std::size_t end = std::min(name.size(), mark_);
  for (std::size_t at = 0; at < end; ++at) {
    const auto byte = static_cast<unsigned char>(name[at]);
    if (byte >= 0x80 || static_cast<unsigned char>(letters_[at]) >= 0x80) return true;
    if ((byte >= 'A' && byte <= 'Z' ? byte | 0x20 : byte) != letters_[at]) return false;
  }
  return true;
}

bool NameMatch::operator()(std::string_view name, bool pointless) {
  if (kind_ == Kind::Beginning && !mayBegin(name)) return false;
  folded_.clear();
  if (kind_ == Kind::Beginning) {
    // A letter has at most four bytes, also when it is folded: what lies behind is not looked at.
    const std::string_view looked = name.substr(0, letters_.size() * 4);
    platform::appendFolded(looked, folded_);
    if (pointless && looked.size() == name.size()) folded_ += '.';
    return begins(folded_);
  }
  platform::appendFolded(name, folded_);
  if (pointless) folded_ += '.';
  return folded_.find(letters_) != std::string::npos || (isPattern_ && core::wildcardMatch(letters_, folded_));
}

bool NameMatch::begins(std::string_view name) const {
  std::string_view letters = letters_;
  if (!name.starts_with(letters.substr(0, mark_))) return false;
  letters.remove_prefix(mark_);
  name.remove_prefix(mark_);
  while (!letters.empty()) {
    if (name.empty()) return false;
    const auto wanted = core::firstCharacter(letters), there = core::firstCharacter(name);
    if (wanted.code != '?' && wanted.code != there.code) return false;
    letters.remove_prefix(wanted.bytes);
    name.remove_prefix(there.bytes);
  }
  return true;
}

}  // namespace varnholt::search
