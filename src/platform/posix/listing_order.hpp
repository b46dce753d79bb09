#pragma once

#include "platform/file_system.hpp"

#include <string_view>
#include <vector>

namespace varnholt::platform::posix {

/// One entry with the text it is sorted by; both point into buffers that outlive the sort.
struct SortRow {
  std::string_view folded;
  const Entry* entry = nullptr;
  std::uint64_t key = 0;  ///< bytes of the folded text behind the prefix that all rows share
};

/// Sorts by folded text and then by the bytes of the name.
void sortRows(std::vector<SortRow>& rows);

}  // namespace varnholt::platform::posix
