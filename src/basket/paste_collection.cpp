#include "basket/paste_collection.hpp"

#include "platform/paths.hpp"

#include <algorithm>
#include <utility>

namespace varnholt::basket {

namespace paths = platform::paths;

namespace {

// A set of rows holds its whole listing.
bool isWorthHolding(const panels::RowSet& set) {
  constexpr std::size_t SmallListing = 4096, RowsForOneHeld = 16;
  return set.rows->rowCount() <= SmallListing + set.ids.size() * RowsForOneHeld;
}

}  // namespace

bool PasteCollection::add(core::Item item) {
  formPaths();
  return addFormed(std::move(item));
}

bool PasteCollection::addFormed(core::Item item) const {
  if (known_.contains(item.path)) return false;
  items_.push_back(std::move(item));
  known_.insert(items_.back().path);
  return true;
}

bool PasteCollection::add(panels::RowSet rows) {
  if (rows.ids.empty()) return false;
  const std::size_t before = count();
  const bool formsLate = isWorthHolding(rows) && !mayHoldOthersOf(rows);
  if (formsLate) leaveOutHeld(rows);
  held_.push_back(std::move(rows));
  if (!formsLate) formPaths();
  return count() > before;
}

void PasteCollection::leaveOutHeld(panels::RowSet& rows) const {
  std::vector<bool> there(rows.rows->rowCount());
  for (const panels::RowSet& held : held_)
    if (held.rows == rows.rows)
      for (const std::uint32_t id : held.ids)
        there[id] = true;
  std::erase_if(rows.ids, [&](std::uint32_t id) { return there[id]; });
}

// A path that two listings of its folder both have, or a row and an item, is found by the paths alone.
bool PasteCollection::mayHoldOthersOf(const panels::RowSet& rows) const {
  const std::string folder = paths::withClosing(rows.folder);
  const auto liesThere = [&](const core::Item& item) {
    return item.path.starts_with(folder) && item.path.size() == folder.size() + paths::fileName(item.path).size();
  };
  const auto isOther = [&](const panels::RowSet& held) { return held.folder == rows.folder && held.rows != rows.rows; };
  return std::ranges::any_of(held_, isOther) || std::ranges::any_of(items_, liesThere);
}

void PasteCollection::formPaths() const {
  for (const panels::RowSet& set : std::exchange(held_, {}))
    for (std::size_t at = 0; at < set.ids.size(); ++at) {
      const core::Item item = set.item(at);
      addFormed({core::entryPath(item.path, set.folder), item.isFolder});
    }
}

std::size_t PasteCollection::count() const {
  std::size_t count = items_.size();
  for (const panels::RowSet& set : held_)
    count += set.ids.size();
  return count;
}

const std::deque<core::Item>& PasteCollection::items() const {
  formPaths();
  return items_;
}

void PasteCollection::remove(const std::unordered_set<std::string_view>& paths) {
  // What is told to go may be views of our own paths.
  std::deque<core::Item> kept;
  for (const core::Item& item : items())
    if (!paths.contains(item.path)) kept.push_back(item);
  reset();
  for (core::Item& item : kept)
    add(std::move(item));
}

void PasteCollection::reset() {
  known_.clear();
  items_.clear();
  held_.clear();
}

}  // namespace varnholt::basket
