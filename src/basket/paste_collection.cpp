#include "basket/paste_collection.hpp"

#include <utility>

namespace varnholt::basket {

bool PasteCollection::add(core::Item item) {
  if (known_.contains(item.path)) return false;
  items_.push_back(std::move(item));
  known_.insert(items_.back().path);
  return true;
}

void PasteCollection::remove(const std::unordered_set<std::string_view>& paths) {
  // What is told to go may be views of our own paths.
  std::deque<core::Item> kept;
  for (const core::Item& item : items_)
    if (!paths.contains(item.path)) kept.push_back(item);
  reset();
  for (core::Item& item : kept)
    add(std::move(item));
}

void PasteCollection::reset() {
  known_.clear();
  items_.clear();
}

}  // namespace varnholt::basket
