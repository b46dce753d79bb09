#pragma once

#include <algorithm>
#include <future>
#include <vector>

namespace varnholt::platform {

/// Below this many items a second thread costs more than it saves.
inline constexpr std::size_t WorthTwoCores = 10'000;

/// Sorts in two halves on two threads; items that stand in order already cost one look. The order of `less` must be
/// total, so that the outcome is one.
template <class Item, class Less>
void sortOnTwoCores(std::vector<Item>& items, Less less) {
  if (std::is_sorted(items.begin(), items.end(), less)) return;
  if (items.size() < WorthTwoCores) return std::sort(items.begin(), items.end(), less);
  const auto middle = items.begin() + static_cast<std::ptrdiff_t>(items.size() / 2);
  auto lower = std::async(std::launch::async, [&] { std::sort(items.begin(), middle, less); });
  std::sort(middle, items.end(), less);
  lower.get();
  std::inplace_merge(items.begin(), middle, items.end(), less);
}

}  // namespace varnholt::platform
