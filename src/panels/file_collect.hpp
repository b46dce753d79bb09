#pragma once

#include "core/item_text.hpp"

#include <deque>
#include <string>

namespace varnholt::panels {

/// `filecollect`: the items of the command in hand, in selection order. Loops take from the end.
class FileCollect {
 public:
  /// Adds an item; one equal to the last is passed over.
  void push(core::Item item);
  /// Takes the newest item away; one without a path when there is none.
  core::Item pop();
  /// Reads the newest item without taking it.
  core::Item popc() const { return items_.empty() ? core::Item() : items_.back(); }
  std::size_t count() const { return items_.size(); }
  bool empty() const { return items_.empty(); }
  const std::deque<core::Item>& items() const { return items_; }
  void reset() { items_.clear(); }

 private:
  std::deque<core::Item> items_;
};

/// The names that were selected in a panel, for the Recall: at most 2000, and from then on each new one drops the
/// oldest.
class RecallBuffer {
 public:
  static constexpr std::size_t Limit = 2000;
  /// True when the buffer was full and the oldest name went.
  bool push(std::string name);
  bool empty() const { return names_.empty(); }
  const std::deque<std::string>& names() const { return names_; }
  void reset() { names_.clear(); }

 private:
  std::deque<std::string> names_;
};

}  // namespace varnholt::panels
