#include "core/shared_lines.hpp"

#include "core/kept_files.hpp"
#include "core/program.hpp"
#include "core/program_files.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>
#include <unordered_set>

namespace varnholt::core {
namespace {

using Lines = std::vector<std::string>;
using Set = std::unordered_set<std::string>;

Set setOf(const Lines& lines) { return {lines.begin(), lines.end()}; }

Lines merged(const Lines& known, const Lines& there, const Lines& ours, const SharedLines::KeyOf& keyOf) {
  const Set wasKnown = setOf(known), isOurs = setOf(ours), isThere = setOf(there);
  Set added, keys;
  for (const auto& line : ours)
    if (!wasKnown.contains(line)) added.insert(keyOf(line));
  Lines stays, oldest;
  const auto take = [&](const std::string& line, Lines& into) {
    if (keys.insert(keyOf(line)).second) into.push_back(line);
  };
  for (const auto& line : there)
    if (wasKnown.contains(line) ? isOurs.contains(line) : !added.contains(keyOf(line))) take(line, stays);
  // Another copy had no room for these, or somebody deleted the file.
  for (const auto& line : ours)
    if (wasKnown.contains(line) && !isThere.contains(line)) take(line, oldest);
  for (const auto& line : ours)
    take(line, stays);
  oldest.insert(oldest.end(), stays.begin(), stays.end());
  return oldest;
}

}  // namespace

Lines SharedLines::load(const Program& program) {
  KeptFiles kept(program);
  const std::string file = program_file::path(program.platform, literal_);
  known_ = kept.readLines(file);
  (void)kept.setAside(file);
  return known_;
}

platform::Result<void> SharedLines::store(const Program& program, const Lines& lines, std::size_t limit,
                                          const KeyOf& keyOf) {
  auto& files = program.platform.files;
  const std::string file = program_file::path(program.platform, literal_);
  platform::Result<void> written;
  program.platform.alone([&] {
    const KeyOf folded = [](std::string_view line) { return platform::foldCase(line); };
    const FileLines there = readWholeLines(files, file);
    if (!there.whole) {
      written = platform::Error{platform::ErrorCode::Damaged, file, "the file cannot be read to its end"};
      return;
    }
    Lines all = merged(known_, there.lines, lines, keyOf ? keyOf : folded);
    if (all.size() > limit) all.erase(all.begin(), all.end() - static_cast<std::ptrdiff_t>(limit));
    written = writeLines(files, file, all);
  });
  if (written) known_ = lines;
  return written;
}

}  // namespace varnholt::core
