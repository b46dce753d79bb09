#include "panels/file_collect.hpp"

#include <utility>

namespace varnholt::panels {

const std::deque<core::Item>& FileCollect::items() const {
  for (std::size_t at = 0; at < held_.ids.size(); ++at)
    items_.push_back(held_.item(at));
  held_ = {};
  return items_;
}

void FileCollect::push(core::Item item) {
  if (!empty() && popc() == item) return;
  (void)items();
  items_.push_back(std::move(item));
}

void FileCollect::hold(RowSet rows) {
  items_.clear();
  held_ = std::move(rows);
}

core::Item FileCollect::pop() {
  core::Item item = popc();
  if (!empty()) {
    (void)items();
    items_.pop_back();
  }
  return item;
}

core::Item FileCollect::popc() const {
  if (!held_.ids.empty()) return held_.item(held_.ids.size() - 1);
  return items_.empty() ? core::Item() : items_.back();
}

void FileCollect::reset() { hold({}); }

bool RecallBuffer::push(std::string name) {
  names_.push_back(std::move(name));
  if (names_.size() <= Limit) return false;
  names_.pop_front();
  return true;
}

bool RecallBuffer::push(const PanelRows& rows, const std::vector<std::uint32_t>& ids) {
  const bool full = names_.size() + ids.size() > Limit;
  for (std::size_t at = ids.size() > Limit ? ids.size() - Limit : 0; at < ids.size(); ++at)
    push(std::string(rows.entry(ids[at]).name));
  return full;
}

}  // namespace varnholt::panels
