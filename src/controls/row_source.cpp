#include "controls/row_source.hpp"

#include "platform/text_order.hpp"

#include <algorithm>
#include <bit>
#include <cstring>
#include <future>
#include <string_view>

namespace varnholt::controls {
namespace {

// Below this many rows a second thread costs more than it saves.
constexpr std::size_t WorthTwoThreads = 20'000;

// Sorts in two halves on two threads. The order of `less` must be total, so that the outcome is one.
template <class Item, class Less>
void sortOnTwoCores(std::vector<Item>& items, Less less) {
  if (std::is_sorted(items.begin(), items.end(), less)) return;
  if (items.size() < WorthTwoThreads) {
    std::sort(items.begin(), items.end(), less);
    return;
  }
  const auto middle = items.begin() + static_cast<std::ptrdiff_t>(items.size() / 2);
  auto lower = std::async(std::launch::async, [&] { std::sort(items.begin(), middle, less); });
  std::sort(middle, items.end(), less);
  lower.get();
  std::inplace_merge(items.begin(), middle, items.end(), less);
}

// In both sorts a row goes by its place in the list before, so that equal rows compare by where they stood.

struct NumberedPlace {
  std::int64_t key;
  std::uint32_t place;
};

std::vector<std::uint32_t> placesByNumber(const std::vector<std::int64_t>& keys, bool descending,
                                          const std::vector<std::uint32_t>& before) {
  std::vector<NumberedPlace> places(before.size());
  for (std::uint32_t place = 0; place < places.size(); ++place)
    places[place] = {keys[before[place]], place};
  sortOnTwoCores(places, [&](const NumberedPlace& a, const NumberedPlace& b) {
    if (a.key != b.key) return descending ? a.key > b.key : a.key < b.key;
    return a.place < b.place;
  });
  std::vector<std::uint32_t> sorted(places.size());
  std::ranges::transform(places, sorted.begin(), &NumberedPlace::place);
  return sorted;
}

/// The order keys of all rows by their places, one behind the other.
class TextKeys {
 public:
  TextKeys(const RowSource& source, int column, const std::vector<std::uint32_t>& before) {
    starts_.reserve(before.size() + 1);
    bytes_.reserve(before.size() * std::size_t{16});
    std::string text;
    for (const std::uint32_t row : before) {
      starts_.push_back(bytes_.size());
      text.clear();
      source.appendSortText(row, column, text);
      platform::appendOrderKey(text, bytes_);
    }
    starts_.push_back(bytes_.size());
  }

  std::string_view key(std::uint32_t place) const {
    return std::string_view(bytes_).substr(starts_[place], starts_[place + 1] - starts_[place]);
  }

  /// Length of the beginning that all keys share.
  std::size_t sharedLength() const {
    if (starts_.size() < 2) return 0;
    std::string_view shared = key(0);
    for (std::uint32_t place = 1; place + 1 < starts_.size() && !shared.empty(); ++place) {
      const std::string_view other = key(place);
      const auto differs = std::mismatch(shared.begin(), shared.end(), other.begin(), other.end()).first;
      shared = shared.substr(0, static_cast<std::size_t>(differs - shared.begin()));
    }
    return shared.size();
  }

 private:
  std::string bytes_;
  std::vector<std::size_t> starts_;
};

// Eight bytes as a number that compares as they do; a shorter text is filled up with zeros.
std::uint64_t leadingBytes(std::string_view text) {
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, text.data(), std::min<std::size_t>(8, text.size()));
  if constexpr (std::endian::native == std::endian::little) bytes = __builtin_bswap64(bytes);
  return bytes;
}

struct LedPlace {
  std::uint64_t leading;
  std::uint32_t place;
};

std::vector<std::uint32_t> placesByText(const TextKeys& keys, bool descending, std::size_t count) {
  const std::size_t shared = keys.sharedLength();
  std::vector<LedPlace> led(count);
  for (std::uint32_t place = 0; place < led.size(); ++place)
    led[place] = {leadingBytes(keys.key(place).substr(shared)), place};
  sortOnTwoCores(led, [&](const LedPlace& a, const LedPlace& b) {
    if (a.leading != b.leading) return descending ? a.leading > b.leading : a.leading < b.leading;
    const int order = keys.key(a.place).compare(keys.key(b.place));
    if (order != 0) return descending ? order > 0 : order < 0;
    return a.place < b.place;
  });
  std::vector<std::uint32_t> sorted(led.size());
  std::ranges::transform(led, sorted.begin(), &LedPlace::place);
  return sorted;
}

}  // namespace

std::vector<std::uint32_t> sortedRows(const RowSource& source, int column, bool descending,
                                      const std::vector<std::uint32_t>& before) {
  std::vector<std::int64_t> numbers;
  std::vector<std::uint32_t> rows = source.numericKeys(column, numbers)
                                        ? placesByNumber(numbers, descending, before)
                                        : placesByText({source, column, before}, descending, before.size());
  for (std::uint32_t& place : rows)
    place = before[place];
  return rows;
}

}  // namespace varnholt::controls
