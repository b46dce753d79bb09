#include "compare/differences.hpp"

#include "fileops/overwrite_policy.hpp"
#include "platform/paths.hpp"

#include <utility>

namespace varnholt::compare {
namespace {

/// The first test that holds for a file which both folders have.
std::optional<Reason> reasonFor(std::size_t at, const FolderFiles& source, const FolderFiles& target,
                                const Tests& tests) {
  const platform::FileFacts &from = source.facts(at), &to = target.facts(at);
  if (!from.isThere) return {};
  if (tests.version) {
    // As texts, sign by sign: 9.0 is above 10.0.
    const auto ours = source.version(at), theirs = target.version(at);
    if (ours && theirs && *ours > *theirs) return Reason::Version;
  }
  const bool dated = from.hasDates && to.hasDates;
  if (tests.date && dated && !fileops::NotNewer(to.modified, from.modified)) return Reason::Date;
  if (tests.size && dated && from.size != to.size) return Reason::Size;
  return {};
}

}  // namespace

const char* wordFor(Reason reason) {
  constexpr const char* Words[] = {"Missing", "Version", "Date", "Size"};
  return Words[static_cast<std::size_t>(reason)];
}

FolderFiles::FolderFiles(const platform::FileSystem& files, std::string folder, const std::vector<std::string>& names)
    : files_(files), folder_(std::move(folder)), names_(names), facts_(files.fileFacts(folder_, names)) {}

std::optional<std::string> FolderFiles::version(std::size_t at) const {
  if (!platform::paths::isProgramName(names_[at])) return std::string();
  auto version = files_.fileVersion(platform::paths::join(folder_, names_[at]));
  return version ? std::optional(*std::move(version)) : std::nullopt;
}

std::vector<Difference> differences(const FolderFiles& source, const std::vector<std::string>& names,
                                    const FolderFiles& target, const Tests& tests, std::atomic<std::size_t>& done) {
  std::vector<Difference> found;
  for (std::size_t at = 0; at < names.size(); ++at, ++done) {
    std::optional<Reason> reason;
    if (target.facts(at).isThere)
      reason = reasonFor(at, source, target, tests);
    else if (tests.exist)
      reason = Reason::Missing;
    if (reason) found.push_back({names[at], *reason, source.facts(at).size, target.facts(at)});
  }
  return found;
}

}  // namespace varnholt::compare
