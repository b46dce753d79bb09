#pragma once

#include "core/item_text.hpp"

#include <deque>
#include <string_view>
#include <unordered_set>

namespace varnholt::basket {

/// The basket itself: files and folders by full paths without closing backslash, each once, in the order of adding. A
/// path counts as the disk spells it, so two files whose names differ in letter case are two entries.
class PasteCollection {
 public:
  PasteCollection() = default;
  PasteCollection(const PasteCollection&) = delete;
  PasteCollection& operator=(const PasteCollection&) = delete;

  /// False when the path is there already.
  bool add(core::Item item);
  /// Takes these paths out.
  void remove(const std::unordered_set<std::string_view>& paths);
  void reset();
  std::size_t count() const { return items_.size(); }
  bool empty() const { return items_.empty(); }
  const std::deque<core::Item>& items() const { return items_; }

 private:
  std::deque<core::Item> items_;                ///< adding moves no entry, so that the paths can be looked up by views
  std::unordered_set<std::string_view> known_;  ///< their paths
};

}  // namespace varnholt::basket
