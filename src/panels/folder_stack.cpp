#include "panels/folder_stack.hpp"

#include <utility>

namespace varnholt::panels {

void FolderStack::push(std::string folder) {
  folders_.push_back(std::move(folder));
  if (folders_.size() >= limit_) folders_.pop_front();
}

std::string FolderStack::pop() {
  if (folders_.empty()) return {};
  std::string folder = std::move(folders_.back());
  folders_.pop_back();
  return folder;
}

}  // namespace varnholt::panels
