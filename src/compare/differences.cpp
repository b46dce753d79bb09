#include "compare/differences.hpp"

#include "fileops/overwrite_policy.hpp"
#include "platform/paths.hpp"

#include <utility>

namespace varnholt::compare {
namespace {

/// The first test that holds for a file which both folders have.
std::optional<Reason> reasonFor(const std::string& name, const FolderFiles& source, const FolderFiles& target,
                                const Tests& tests) {
  const platform::Entry *from = source.find(name), *to = target.find(name);
  if (!from) return {};
  if (tests.version) {
    // As texts, sign by sign: 9.0 is above 10.0.
    const auto ours = source.version(name), theirs = target.version(name);
    if (ours && theirs && *ours > *theirs) return Reason::Version;
  }
  const bool dated = from->hasDates && to->hasDates;
  if (tests.date && dated && !fileops::NotNewer(to->modified, from->modified)) return Reason::Date;
  if (tests.size && dated && from->size != to->size) return Reason::Size;
  return {};
}

}  // namespace

const char* wordFor(Reason reason) {
  constexpr const char* Words[] = {"Missing", "Version", "Date", "Size"};
  return Words[static_cast<std::size_t>(reason)];
}

FolderFiles::FolderFiles(const platform::FileSystem& files, std::string folder)
    : files_(files), folder_(std::move(folder)) {
  if (auto listing = files.list(folder_)) listing_ = *listing;
  if (!listing_) return;
  byName_.reserve(listing_->files().size());
  for (const platform::Entry& entry : listing_->files())
    byName_.emplace(entry.name, &entry);
}

const platform::Entry* FolderFiles::find(std::string_view name) const {
  const auto found = byName_.find(name);
  return found == byName_.end() ? nullptr : found->second;
}

std::optional<std::string> FolderFiles::version(const std::string& name) const {
  if (!platform::paths::isProgramName(name)) return std::string();
  const auto [known, isNew] = versions_.try_emplace(name);
  if (isNew) {
    auto version = files_.fileVersion(platform::paths::join(folder_, name));
    if (version) known->second = *std::move(version);
  }
  return known->second;
}

std::vector<Difference> differences(const FolderFiles& source, const std::vector<std::string>& names,
                                    const FolderFiles& target, const Tests& tests, std::atomic<std::size_t>& done) {
  std::vector<Difference> found;
  for (const std::string& name : names) {
    ++done;
    const bool exists = target.find(name) != nullptr;
    std::optional<Reason> reason;
    if (exists)
      reason = reasonFor(name, source, target, tests);
    else if (tests.exist)
      reason = Reason::Missing;
    if (!reason) continue;
    const platform::Entry* from = source.find(name);
    found.push_back({name, *reason, from ? from->size : 0});
  }
  return found;
}

}  // namespace varnholt::compare
