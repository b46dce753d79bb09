#include "panels/most_used.hpp"

#include "core/format.hpp"
#include "core/kept_files.hpp"
#include "core/program_files.hpp"
#include "platform/paths.hpp"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <future>
#include <limits>
#include <map>
#include <memory>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace varnholt::panels {
namespace {

namespace paths = platform::paths;
using Entry = MostUsed::Entry;
using Entries = MostUsed::Entries;
using Lines = std::vector<std::string>;

// From here on entries that were never opened since go.
constexpr std::size_t Crowded = 95, Stored = 100;
constexpr const char *EntryMark = "[Entry]", *HitsPicture = "000000";
constexpr std::size_t MostHits = 999'999;
constexpr platform::Date Gone{-631'152'000, 0};  // 1950
constexpr platform::Date NotKnown{std::numeric_limits<std::int64_t>::max(), 0};
// How long the program's end waits for a drive.
constexpr std::chrono::milliseconds Patience{500};

using Dates = std::vector<platform::Date>;

/// When each file was accessed last. Its drive is asked beside the window, for the program is about to end.
Dates accessDates(const core::Program& program, const Entries& entries) {
  std::map<std::string, std::vector<std::size_t>> byDrive;
  for (std::size_t at = 0; at < entries.size(); ++at)
    byDrive[paths::driveOf(entries[at].folder)].push_back(at);
  std::vector<std::pair<std::vector<std::size_t>, std::future<Dates>>> asked;
  for (auto& [drive, places] : byDrive) {
    auto answer = std::make_shared<std::promise<Dates>>();
    Lines files;
    for (const std::size_t at : places)
      files.push_back(entries[at].path());
    asked.emplace_back(std::move(places), answer->get_future());
    program.loop.runBeside(
        [answer, files = std::move(files), &disk = program.platform.files] {
          Dates dates;
          for (const std::string& file : files) {
            const auto facts = disk.info(file);
            dates.push_back(facts ? facts->accessed : Gone);
          }
          answer->set_value(std::move(dates));
        },
        [] {});
  }
  Dates dates(entries.size(), NotKnown);
  const auto latest = std::chrono::steady_clock::now() + Patience;
  for (auto& [places, answer] : asked) {
    if (answer.wait_until(latest) != std::future_status::ready) continue;
    const Dates told = answer.get();
    for (std::size_t at = 0; at < places.size(); ++at)
      dates[places[at]] = told[at];
  }
  return dates;
}

void keepLatest(const core::Program& program, Entries& entries) {
  if (entries.size() <= Stored) return;
  const Dates dates = accessDates(program, entries);
  std::vector<std::size_t> order(entries.size());
  std::iota(order.begin(), order.end(), 0);
  std::ranges::stable_sort(order, [&](std::size_t a, std::size_t b) { return isBefore(dates[a], dates[b]); });
  std::vector<bool> goes(entries.size());
  for (std::size_t at = 0; at < entries.size() - Stored; ++at)
    goes[order[at]] = true;
  std::size_t at = 0;
  std::erase_if(entries, [&](const Entry&) { return goes[at++]; });
}

std::string hitsText(std::size_t hits, const core::Program& program) {
  return core::format(HitsPicture, hits, program.platform.regional);
}

std::size_t hitsOf(const std::string& line) {
  std::size_t hits = 0;
  const auto read = std::from_chars(line.data(), line.data() + line.size(), hits);
  return read.ec == std::errc::result_out_of_range ? MostHits : std::min(hits, MostHits);
}

bool isEntry(const Lines& lines, std::size_t at) {
  return at + 3 < lines.size() && lines[at] == EntryMark && !paths::driveOf(lines[at + 3]).empty();
}

}  // namespace

std::string MostUsed::Entry::path() const { return paths::join(folder, name); }

void MostUsed::Muf(const std::string& path) {
  if (entries.size() > Crowded) std::erase_if(entries, [](const Entry& each) { return each.hits == 0; });
  const std::string name{paths::fileName(path)}, folder = paths::withClosing(paths::parent(path));
  const auto isThis = [&](const Entry& each) { return each.name == name && each.folder == folder; };
  if (const auto known = std::ranges::find_if(entries, isThis); known != entries.end())
    ++known->hits;
  else
    entries.push_back({1, name, folder});
}

// --- The file ------------------------------------------------------------------------------------------------------

MostUsed::Read MostUsed::entriesOf(std::string_view bytes) {
  // More than the file ever holds; the most used ones stand at its end.
  constexpr std::size_t most = 4u << 20;
  if (bytes.size() > most) bytes.remove_prefix(bytes.size() - most);
  const Lines lines = core::splitEntries(bytes);
  Read read{{}, !core::endsWithinLine(bytes)};
  Entries& found = read.entries;
  std::unordered_map<std::string, std::size_t> places;
  for (std::size_t at = 0; at < lines.size(); ++at) {
    if (!isEntry(lines, at)) {
      if (lines[at] == EntryMark && at + 3 >= lines.size()) read.whole = false;
      continue;
    }
    Entry entry{hitsOf(lines[at + 1]), lines[at + 2], paths::withClosing(lines[at + 3])};
    at += 3;
    if (entry.name.empty()) continue;
    if (const auto [place, isNew] = places.emplace(entry.path(), found.size()); isNew)
      found.push_back(std::move(entry));
    else
      found[place->second].hits = std::max(found[place->second].hits, entry.hits);
  }
  return read;
}

void MostUsed::load(const core::Program& program) {
  core::KeptFiles kept(program);
  const std::string file = core::program_file::path(program.platform, core::program_file::MostUsed);
  Read read = entriesOf(kept.read(file));
  if (!read.whole) kept.foundCutOff(file);
  (void)kept.setAside(file);
  known_ = std::move(read.entries);
  entries = known_;
}

Entries MostUsed::merged(const Entries& there) const {
  const auto byPath = [](const Entries& entries) {
    std::unordered_map<std::string, std::size_t> hits;
    for (const Entry& entry : entries)
      hits.emplace(entry.path(), entry.hits);
    return hits;
  };
  const auto known = byPath(known_), ours = byPath(entries), theirs = byPath(there);
  Entries all;
  for (Entry entry : there) {
    const std::string path = entry.path();
    const auto own = ours.find(path), before = known.find(path);
    // Taken out here.
    if (own == ours.end() && before != known.end()) continue;
    if (own != ours.end()) {
      const std::size_t seen = before == known.end() ? 0 : before->second;
      entry.hits += own->second > seen ? own->second - seen : 0;
    }
    all.push_back(std::move(entry));
  }
  for (const Entry& entry : entries)
    if (!theirs.contains(entry.path())) all.push_back(entry);
  return all;
}

platform::Result<void> MostUsed::store(const core::Program& program) {
  auto& files = program.platform.files;
  const std::string file = core::program_file::path(program.platform, core::program_file::MostUsed);
  platform::Result<void> written;
  program.platform.alone([&] {
    const core::FileText text = core::readText(files, file);
    const Read there = entriesOf(text.bytes);
    if (!text.whole || !there.whole) {
      written = platform::Error{platform::ErrorCode::Damaged, file, "the file cannot be read to its end"};
      return;
    }
    Entries all = merged(there.entries);
    std::ranges::stable_sort(all, {}, &Entry::hits);
    keepLatest(program, all);
    Lines lines;
    for (const Entry& entry : all)
      lines.insert(lines.end(), {EntryMark, hitsText(entry.hits, program), entry.name, entry.folder});
    written = core::writeLines(files, file, lines);
  });
  if (written) known_ = entries;
  return written;
}

}  // namespace varnholt::panels
