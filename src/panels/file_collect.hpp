#pragma once

#include "core/item_text.hpp"
#include "panels/panel_rows.hpp"

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace varnholt::panels {

/// Rows of a panel as they were when they were taken. Their names are formed when somebody asks: what is done with a
/// million selected rows is mostly to select others.
struct RowSet {
  std::shared_ptr<const PanelRows> rows;
  std::string folder;  ///< that the rows are of
  std::vector<std::uint32_t> ids;

  core::Item item(std::size_t at) const { return rows->item(ids[at], folder); }
};

/// `filecollect`: the items of the command in hand, in selection order. Loops take from the end.
class FileCollect {
 public:
  /// Adds an item; one equal to the last is passed over.
  void push(core::Item item);
  /// Holds these rows and nothing else.
  void hold(RowSet rows);
  /// Takes the newest item away; one without a path when there is none.
  core::Item pop();
  /// Reads the newest item without taking it.
  core::Item popc() const;
  std::size_t count() const { return held_.ids.empty() ? items_.size() : held_.ids.size(); }
  bool empty() const { return count() == 0; }
  const std::deque<core::Item>& items() const;
  /// The rows that it holds; none once they have become items.
  const RowSet& rows() const { return held_; }
  void reset();

 private:
  // Either the one or the other: rows become items at the first look at them.
  mutable RowSet held_;
  mutable std::deque<core::Item> items_;
};

/// The names that were selected in a panel, for the Recall: at most 2000, and from then on each new one drops the
/// oldest.
class RecallBuffer {
 public:
  static constexpr std::size_t Limit = 2000;
  /// True when the buffer was full and the oldest name went.
  bool push(std::string name);
  /// The same for the names of rows. Of a million, only those are looked at that stay.
  bool push(const PanelRows& rows, const std::vector<std::uint32_t>& ids);
  bool empty() const { return names_.empty(); }
  const std::deque<std::string>& names() const { return names_; }
  void reset() { names_.clear(); }

 private:
  std::deque<std::string> names_;
};

}  // namespace varnholt::panels
