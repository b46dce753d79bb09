#include "platform/posix/listing_order.hpp"

#include "platform/sort_on_two_cores.hpp"

#include <algorithm>

namespace varnholt::platform::posix {
namespace {

size_t sharedPrefix(const std::vector<SortRow>& rows) {
  size_t length = rows.front().folded.size();
  for (const SortRow& row : rows) {
    length = std::min(length, row.folded.size());
    while (length > 0 && rows.front().folded.compare(0, length, row.folded, 0, length) != 0)
      --length;
    if (length == 0) break;
  }
  return length;
}

/// Eight bytes, the first the most significant, so that comparing numbers compares texts. Ends count as zeros; a text
/// that really holds zeros is told apart by the full comparison after a tie.
std::uint64_t keyOf(std::string_view text, size_t from) {
  std::uint64_t key = 0;
  for (size_t i = 0; i < 8; ++i)
    key = key << 8 | (from + i < text.size() ? static_cast<unsigned char>(text[from + i]) : 0);
  return key;
}

bool comesBefore(const SortRow& a, const SortRow& b) {
  if (a.key != b.key) return a.key < b.key;
  const int order = a.folded.compare(b.folded);
  return order != 0 ? order < 0 : a.entry->name < b.entry->name;
}

}  // namespace

void sortRows(std::vector<SortRow>& rows) {
  if (rows.size() < 2) return;
  const size_t prefix = sharedPrefix(rows);
  for (SortRow& row : rows)
    row.key = keyOf(row.folded, prefix);
  sortOnTwoCores(rows, comesBefore);
}

}  // namespace varnholt::platform::posix
