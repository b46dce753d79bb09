#pragma once

#include "controls/list_view.hpp"

namespace varnholt::controls {

/// Icons of a list's headers, by their numbers in its ImageList; 0: none.
struct SortIcons {
  int up = 0, down = 0, none = 0;
};

/// A click on the header of a column, counted from 0: sorts by `key`, which is the column itself or one that holds its
/// values in another form; a second click turns the order round. The headers show which.
inline void sortByHeader(ListView& list, int column, int key, const SortIcons& icons) {
  const bool again = list.Sorted() && list.SortKey() == key;
  const bool descends = again && list.SortOrder() == SortOrder::Ascending;
  list.setSortKey(key);
  list.setSortOrder(descends ? SortOrder::Descending : SortOrder::Ascending);
  list.setSorted(true);
  auto headers = list.ColumnHeaders.get();
  for (int at = 0; at < static_cast<int>(headers.size()); ++at)
    headers[static_cast<std::size_t>(at)].Icon = at != column ? icons.none : descends ? icons.down : icons.up;
  list.ColumnHeaders = headers;
}

}  // namespace varnholt::controls
