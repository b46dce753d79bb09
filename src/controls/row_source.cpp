#include "controls/row_source.hpp"

#include "platform/sort_on_two_cores.hpp"
#include "platform/text_order.hpp"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string_view>

namespace varnholt::controls {
namespace {

/// A row with the beginning of what it is sorted by, and its place in the list before: equal rows go by that.
template <class Key>
struct KeyedRow {
  Key key;
  std::uint32_t row, place;
};

template <class Key, class KeyOf>
std::vector<KeyedRow<Key>> keyedRows(const std::vector<std::uint32_t>& before, KeyOf keyOf) {
  std::vector<KeyedRow<Key>> rows(before.size());
  for (std::uint32_t place = 0; place < rows.size(); ++place)
    rows[place] = {keyOf(before[place]), before[place], place};
  return rows;
}

template <class Key>
std::vector<std::uint32_t> rowsOf(const std::vector<KeyedRow<Key>>& sorted) {
  std::vector<std::uint32_t> rows(sorted.size());
  std::ranges::transform(sorted, rows.begin(), &KeyedRow<Key>::row);
  return rows;
}

std::vector<std::uint32_t> sortedByNumber(const std::vector<std::int64_t>& keys, bool descending,
                                          const std::vector<std::uint32_t>& before) {
  using Row = KeyedRow<std::int64_t>;
  auto rows = keyedRows<std::int64_t>(before, [&](std::uint32_t row) { return keys[row]; });
  platform::sortOnTwoCores(rows, [&](const Row& a, const Row& b) {
    if (a.key != b.key) return descending ? a.key > b.key : a.key < b.key;
    return a.place < b.place;
  });
  return rowsOf(rows);
}

/// The order keys of all rows, one behind the other.
class TextKeys {
 public:
  TextKeys(const RowSource& source, int column) {
    const std::uint32_t count = source.rowCount();
    starts_.reserve(count + 1);
    bytes_.reserve(count * std::size_t{16});
    std::string text;
    for (std::uint32_t row = 0; row < count; ++row) {
      starts_.push_back(bytes_.size());
      text.clear();
      source.appendSortText(row, column, text);
      platform::appendOrderKey(text, bytes_);
    }
    starts_.push_back(bytes_.size());
  }

  std::string_view key(std::uint32_t row) const {
    return std::string_view(bytes_).substr(starts_[row], starts_[row + 1] - starts_[row]);
  }

  /// Length of the beginning that all keys share.
  std::size_t sharedLength() const {
    if (starts_.size() < 2) return 0;
    std::string_view shared = key(0);
    for (std::uint32_t row = 1; row + 1 < starts_.size() && !shared.empty(); ++row) {
      const std::string_view other = key(row);
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

std::vector<std::uint32_t> sortedByText(const TextKeys& keys, bool descending,
                                        const std::vector<std::uint32_t>& before) {
  using Row = KeyedRow<std::uint64_t>;
  const std::size_t shared = keys.sharedLength();
  auto rows =
      keyedRows<std::uint64_t>(before, [&](std::uint32_t row) { return leadingBytes(keys.key(row).substr(shared)); });
  platform::sortOnTwoCores(rows, [&](const Row& a, const Row& b) {
    if (a.key != b.key) return descending ? a.key > b.key : a.key < b.key;
    const int order = keys.key(a.row).compare(keys.key(b.row));
    if (order != 0) return descending ? order > 0 : order < 0;
    return a.place < b.place;
  });
  return rowsOf(rows);
}

}  // namespace

std::vector<std::uint32_t> sortedRows(const RowSource& source, int column, bool descending,
                                      const std::vector<std::uint32_t>& before) {
  std::vector<std::int64_t> numbers;
  if (source.numericKeys(column, numbers)) return sortedByNumber(numbers, descending, before);
  return sortedByText({source, column}, descending, before);
}

}  // namespace varnholt::controls
