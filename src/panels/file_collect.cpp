#include "panels/file_collect.hpp"

#include <utility>

namespace varnholt::panels {

void FileCollect::push(std::string item) {
  if (!items_.empty() && items_.back() == item) return;
  items_.push_back(std::move(item));
}

std::string FileCollect::pop() {
  if (items_.empty()) return {};
  std::string item = std::move(items_.back());
  items_.pop_back();
  return item;
}

bool RecallBuffer::push(std::string name) {
  names_.push_back(std::move(name));
  if (names_.size() <= Limit) return false;
  names_.pop_front();
  return true;
}

}  // namespace varnholt::panels
