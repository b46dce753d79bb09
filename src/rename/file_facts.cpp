#include "rename/file_facts.hpp"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace varnholt::rename {
namespace {

using platform::Attributes;

// Reading a folder costs about as much as asking a quarter of its files.
constexpr std::size_t FewItems = 200, WorthReading = 4;

std::optional<Attributes> ask(const platform::FileSystem& files, const Item& item) {
  const auto attributes = files.attributes(item.path());
  if (!attributes || (*attributes & platform::attribute::Folder)) return {};
  return *attributes;
}

/// The files of a folder whose facts could be read.
std::unordered_map<std::string_view, Attributes> attributesByName(const platform::Listing& listing) {
  std::unordered_map<std::string_view, Attributes> all(listing.files().size());
  for (const platform::Entry& file : listing.files())
    if (file.hasDates) all.emplace(file.name, file.attributes);
  return all;
}

bool isWorthReading(const std::vector<Item>& items, std::size_t folderRows) {
  return items.size() >= FewItems && items.size() * WorthReading >= folderRows &&
         std::ranges::all_of(items, [&](const Item& item) { return item.folder == items.front().folder; });
}

}  // namespace

std::vector<std::optional<Attributes>> fileAttributes(const platform::FileSystem& files, const std::vector<Item>& items,
                                                      std::size_t folderRows) {
  platform::Result<platform::ListingPtr> listing = platform::Error{};
  if (isWorthReading(items, folderRows)) listing = files.list(items.front().folder);
  std::unordered_map<std::string_view, Attributes> known;
  if (listing) known = attributesByName(**listing);
  std::vector<std::optional<Attributes>> all(items.size());
  for (std::size_t at = 0; at < items.size(); ++at) {
    if (items[at].isFolder) continue;
    const auto found = known.find(items[at].name);
    all[at] = found != known.end() ? found->second : ask(files, items[at]);
  }
  return all;
}

}  // namespace varnholt::rename
