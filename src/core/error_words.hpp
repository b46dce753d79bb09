#pragma once

#include "platform/result.hpp"

#include <string>
#include <vector>

namespace varnholt::core {

/// Why a call failed, in words for the user that go on from the item's name and a colon. `name` is what the item was
/// to be called, for the reasons that lie in what has that name already.
std::string reasonOf(const platform::Error& error, const std::string& name);

/// The notice of items that an operation left as they were: `headline`, then a line for each of the first ten.
/// `lines` are "name:  reason".
std::string leftOutText(const std::string& headline, const std::vector<std::string>& lines);

}  // namespace varnholt::core
