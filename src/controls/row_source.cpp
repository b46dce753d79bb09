#include "controls/row_source.hpp"

#include "platform/sort_on_two_cores.hpp"
#include "platform/text_order.hpp"

#include <algorithm>
#include <bit>
#include <cstring>
#include <functional>
#include <future>
#include <string_view>

namespace varnholt::controls {
namespace {

/// A row with the beginning of what it is sorted by, and its place in the list before: equal rows go by that.
template <class Key>
struct KeyedRow {
  Key key;
  std::uint32_t row, place;
};

/// The rows in the order of `less`. They are tried as they stood, turned round, and as the source has them, before they
/// are sorted: a listing comes in the order of its names.
template <class Key, class KeyOf, class Less>
std::vector<std::uint32_t> sortedBy(KeyOf keyOf, Less less, bool descending, const std::vector<std::uint32_t>& before) {
  std::vector<KeyedRow<Key>> rows(before.size());
  for (std::uint32_t row = 0; row < rows.size(); ++row)
    rows[row] = {keyOf(row), row, 0};
  for (std::uint32_t place = 0; place < rows.size(); ++place)
    rows[before[place]].place = place;
  if (std::ranges::is_sorted(before, [&](std::uint32_t a, std::uint32_t b) { return less(rows[a], rows[b]); }))
    return before;
  const auto isTurned = [&](std::uint32_t a, std::uint32_t b) { return less(rows[b], rows[a]); };
  if (std::ranges::adjacent_find(before, std::not_fn(isTurned)) == before.end())
    return {before.rbegin(), before.rend()};
  if (descending) std::ranges::reverse(rows);
  platform::sortOnTwoCores(rows, less);
  std::vector<std::uint32_t> order(rows.size());
  std::ranges::transform(rows, order.begin(), &KeyedRow<Key>::row);
  return order;
}

std::vector<std::uint32_t> sortedByNumber(const std::vector<std::int64_t>& keys, bool descending,
                                          const std::vector<std::uint32_t>& before) {
  using Row = KeyedRow<std::int64_t>;
  const auto less = [descending](const Row& a, const Row& b) {
    if (a.key != b.key) return descending ? a.key > b.key : a.key < b.key;
    return a.place < b.place;
  };
  return sortedBy<std::int64_t>([&](std::uint32_t row) { return keys[row]; }, less, descending, before);
}

/// The order keys of some neighbouring rows, one behind the other.
class TextKeys {
 public:
  TextKeys(const RowSource& source, int column, std::uint32_t from, std::uint32_t to) : from_(from) {
    starts_.reserve(to - from + 1);
    bytes_.reserve((to - from) * std::size_t{16});
    std::string text;
    for (std::uint32_t row = from; row < to; ++row) {
      starts_.push_back(bytes_.size());
      text.clear();
      source.appendSortText(row, column, text);
      platform::appendOrderKey(text, bytes_);
      if (row > from)
        shared_ = std::min(shared_, sharedLength(key(from), std::string_view(bytes_).substr(starts_.back())));
    }
    starts_.push_back(bytes_.size());
    if (from < to) shared_ = std::min(shared_, key(from).size());
  }

  std::string_view key(std::uint32_t row) const {
    const std::size_t at = row - from_;
    return std::string_view(bytes_).substr(starts_[at], starts_[at + 1] - starts_[at]);
  }

  /// Length of the beginning that all keys share.
  std::size_t shared() const { return shared_; }

  static std::size_t sharedLength(std::string_view a, std::string_view b) {
    return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
  }

 private:
  std::uint32_t from_;
  std::string bytes_;
  std::vector<std::size_t> starts_;
  std::size_t shared_ = std::string::npos;
};

// Eight bytes as a number that compares as they do; a shorter text is filled up with zeros.
std::uint64_t leadingBytes(std::string_view text) {
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, text.data(), std::min<std::size_t>(8, text.size()));
  if constexpr (std::endian::native == std::endian::little) bytes = __builtin_bswap64(bytes);
  return bytes;
}

std::vector<std::uint32_t> sortedByText(const RowSource& source, int column, bool descending,
                                        const std::vector<std::uint32_t>& before) {
  const std::uint32_t count = source.rowCount(), middle = count < platform::WorthTwoCores ? count : count / 2;
  auto lowerKeys = std::async(middle < count ? std::launch::async : std::launch::deferred,
                              [&] { return TextKeys(source, column, 0, middle); });
  const TextKeys upper(source, column, middle, count), lower = lowerKeys.get();
  const auto key = [&](std::uint32_t row) { return row < middle ? lower.key(row) : upper.key(row); };
  std::size_t shared = std::min(lower.shared(), upper.shared());
  if (middle < count) shared = std::min(shared, TextKeys::sharedLength(key(0), key(middle)));

  using Row = KeyedRow<std::uint64_t>;
  const auto less = [&](const Row& a, const Row& b) {
    if (a.key != b.key) return descending ? a.key > b.key : a.key < b.key;
    const int order = key(a.row).compare(key(b.row));
    if (order != 0) return descending ? order > 0 : order < 0;
    return a.place < b.place;
  };
  return sortedBy<std::uint64_t>([&](std::uint32_t row) { return leadingBytes(key(row).substr(shared)); }, less,
                                 descending, before);
}

}  // namespace

std::vector<std::uint32_t> sortedRows(const RowSource& source, int column, bool descending,
                                      const std::vector<std::uint32_t>& before) {
  std::vector<std::int64_t> numbers;
  if (source.numericKeys(column, numbers)) return sortedByNumber(numbers, descending, before);
  return sortedByText(source, column, descending, before);
}

}  // namespace varnholt::controls
