#pragma once

#include "core/item_text.hpp"
#include "panels/file_collect.hpp"

#include <deque>
#include <string_view>
#include <unordered_set>
#include <vector>

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
  /// The same for rows of a panel; false when all of them are there already. Their paths are formed when somebody asks
  /// for items, unless they are so few that holding their listing would cost more.
  bool add(panels::RowSet rows);
  /// Takes these paths out.
  void remove(const std::unordered_set<std::string_view>& paths);
  void reset();
  std::size_t count() const;
  bool empty() const { return count() == 0; }
  const std::deque<core::Item>& items() const;

 private:
  void formPaths() const;
  bool addFormed(core::Item item) const;
  bool mayHoldOthersOf(const panels::RowSet& rows) const;
  void leaveOutHeld(panels::RowSet& rows) const;

  // Adding moves no entry, so that the paths can be looked up by views. Asking for items forms those of held rows.
  mutable std::deque<core::Item> items_;
  mutable std::unordered_set<std::string_view> known_;  ///< their paths
  mutable std::vector<panels::RowSet> held_;            ///< behind the items, each row once
};

}  // namespace varnholt::basket
