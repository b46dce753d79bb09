#pragma once

#include "controls/list_view.hpp"

#include <utility>

namespace varnholt::controls {

/// Icons of a list's headers, by their numbers in its ImageList; 0: none.
struct SortIcons {
  int up = 0, down = 0, none = 0;
};

/// Sorts by `key`, which is the column itself or one that holds its values in another form. The headers show which.
inline void sortShown(ListView& list, int column, int key, bool descends, const SortIcons& icons) {
  list.setSortKey(key);
  list.setSortOrder(descends ? SortOrder::Descending : SortOrder::Ascending);
  list.setSorted(true);
  auto headers = list.ColumnHeaders.get();
  for (int at = 0; at < static_cast<int>(headers.size()); ++at)
    headers[static_cast<std::size_t>(at)].Icon = at != column ? icons.none : descends ? icons.down : icons.up;
  list.ColumnHeaders = std::move(headers);
}

/// A click on the header of a column, counted from 0: a second click turns the order round.
inline void sortByHeader(ListView& list, int column, int key, const SortIcons& icons) {
  const bool again = list.Sorted() && list.SortKey() == key;
  sortShown(list, column, key, again && list.SortOrder() == SortOrder::Ascending, icons);
}

/// The same where the order is the list's own: each click turns it round, whichever header was clicked before.
inline void turnByHeader(ListView& list, int column, int key, const SortIcons& icons) {
  sortShown(list, column, key, list.Sorted() && list.SortOrder() == SortOrder::Ascending, icons);
}

}  // namespace varnholt::controls
