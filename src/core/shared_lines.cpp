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

/// More than any of these files holds, and longer than any path or word. Neither a start nor an end waits for what
/// somebody else has put there.
constexpr std::size_t MostBytes = 4u << 20, LongestLine = 1u << 16;

/// The newest lines, oldest first.
Lines linesOf(std::string_view text, SharedLines::Newest newest) {
  const bool isFirst = newest == SharedLines::Newest::First;
  if (text.size() > MostBytes) {
    const auto cut = isFirst ? text.rfind('\n', MostBytes) : text.find('\n', text.size() - MostBytes);
    const std::size_t line = cut == std::string_view::npos ? 0 : cut + 1;
    text = isFirst || line == 0 ? text.substr(0, line) : text.substr(line);
  }
  Lines lines = splitEntries(text);
  std::erase_if(lines, [](const std::string& line) { return line.size() > LongestLine; });
  if (isFirst) std::ranges::reverse(lines);
  return lines;
}

Set setOf(const Lines& lines) { return {lines.begin(), lines.end()}; }

/// The known lines that stand in ours as they stood: the others have gone, or have been made the newest since.
Set inPlace(const Lines& known, const Lines& ours) {
  const Set isOurs = setOf(ours);
  Set found;
  auto next = ours.begin();
  for (const auto& line : known) {
    if (!isOurs.contains(line) || next == ours.end() || *next != line) continue;
    found.insert(line);
    ++next;
  }
  return found;
}

Lines merged(const Lines& known, const Lines& there, const Lines& ours, const SharedLines::KeyOf& keyOf) {
  const Set wasKnown = setOf(known), stood = inPlace(known, ours), isThere = setOf(there);
  Set added, keys;
  for (const auto& line : ours)
    if (!stood.contains(line)) added.insert(keyOf(line));
  Lines stays, oldest;
  const auto take = [&](const std::string& line, Lines& into) {
    if (keys.insert(keyOf(line)).second) into.push_back(line);
  };
  for (const auto& line : there)
    if (wasKnown.contains(line) ? stood.contains(line) : !added.contains(keyOf(line))) take(line, stays);
  // Another copy had no room for these, or somebody deleted the file.
  for (const auto& line : ours)
    if (stood.contains(line) && !isThere.contains(line)) take(line, oldest);
  for (const auto& line : ours)
    take(line, stays);
  oldest.insert(oldest.end(), stays.begin(), stays.end());
  return oldest;
}

}  // namespace

Lines SharedLines::load(const Program& program) {
  KeptFiles kept(program);
  const std::string file = program_file::path(program.platform, literal_);
  known_ = linesOf(kept.read(file), newest_);
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
    const FileText there = readText(files, file);
    if (!there.whole) {
      written = platform::Error{platform::ErrorCode::Damaged, file, "the file cannot be read to its end"};
      return;
    }
    Lines all = merged(known_, linesOf(there.bytes, newest_), lines, keyOf ? keyOf : folded);
    if (all.size() > limit) all.erase(all.begin(), all.end() - static_cast<std::ptrdiff_t>(limit));
    if (newest_ == Newest::First) std::ranges::reverse(all);
    written = writeLines(files, file, all);
  });
  if (written) known_ = lines;
  return written;
}

}  // namespace varnholt::core
