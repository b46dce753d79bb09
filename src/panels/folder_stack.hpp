#pragma once

#include <cstddef>
#include <deque>
#include <string>

namespace varnholt::panels {

/// A panel's places, oldest first. Holds folders with closing backslash.
class FolderStack {
 public:
  /// At the push that brings the count to `limit` the oldest entry goes.
  explicit FolderStack(std::size_t limit) : limit_(limit) {}

  void push(std::string folder);
  /// Takes the newest entry away and gives it; empty text when there is none.
  std::string pop();
  std::string newest() const { return folders_.empty() ? std::string() : folders_.back(); }
  bool empty() const { return folders_.empty(); }
  std::size_t count() const { return folders_.size(); }
  void clear() { folders_.clear(); }

 private:
  std::size_t limit_;
  std::deque<std::string> folders_;
};

}  // namespace varnholt::panels
