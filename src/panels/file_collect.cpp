#include "panels/file_collect.hpp"

#include <utility>

namespace varnholt::panels {

void FileCollect::push(core::Item item) {
  if (!items_.empty() && items_.back() == item) return;
  items_.push_back(std::move(item));
}

core::Item FileCollect::pop() {
  if (items_.empty()) return {};
  core::Item item = std::move(items_.back());
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
