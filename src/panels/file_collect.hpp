#pragma once

#include <deque>
#include <string>

namespace varnholt::panels {

/// `filecollect`: the items of the command in hand, in selection order. A file is its bare name (from a panel) or its
/// full path (from a dialog's list), a folder its path behind "|Fold|". Loops take from the end.
class FileCollect {
 public:
  /// Adds an item; one equal to the last is passed over.
  void push(std::string item);
  /// Takes the newest item away; empty text when there is none.
  std::string pop();
  /// Reads the newest item without taking it.
  std::string popc() const { return items_.empty() ? std::string() : items_.back(); }
  std::size_t count() const { return items_.size(); }
  bool empty() const { return items_.empty(); }
  const std::deque<std::string>& items() const { return items_; }
  void reset() { items_.clear(); }

 private:
  std::deque<std::string> items_;
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
