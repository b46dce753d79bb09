#include "panels/most_used.hpp"

#include "platform/paths.hpp"

#include <algorithm>

namespace varnholt::panels {
namespace {

namespace paths = platform::paths;

// From here on entries that were never opened since go.
constexpr std::size_t Crowded = 95;

}  // namespace

void MostUsed::Muf(const std::string& path) {
  if (entries.size() > Crowded) std::erase_if(entries, [](const Entry& each) { return each.hits == 0; });
  const std::string name{paths::fileName(path)}, folder = paths::withClosing(paths::parent(path));
  const auto isThis = [&](const Entry& each) { return each.name == name && each.folder == folder; };
  if (const auto known = std::ranges::find_if(entries, isThis); known != entries.end())
    ++known->hits;
  else
    entries.push_back({1, name, folder});
}

}  // namespace varnholt::panels
