#include "vdt/targets.hpp"

#include "platform/paths.hpp"

#include <memory>
#include <utility>

namespace varnholt::vdt {
namespace {

namespace paths = platform::paths;

using Findings = std::vector<PointerList::Finding>;

bool isThere(const platform::FileSystem& files, const Pointer& pointer) {
  return pointer.isFolder() ? files.folderExists(pointer.Text) : files.fileExists(pointer.key());
}

/// Looks for what is not there in another spelling. `pathOf` gives the path of a row that is to be looked for, if any,
/// and `pointerTo` makes a pointer of what was found.
template <class PathOf, class PointerTo>
void look(const platform::FileSystem& files, Findings& rows, const PathOf& pathOf, const PointerTo& pointerTo) {
  std::vector<std::string> wanted;
  std::vector<PointerList::Finding*> of;
  for (PointerList::Finding& row : rows) {
    const auto path = row.isThere ? std::nullopt : pathOf(row.pointer);
    if (!path) continue;
    wanted.push_back(*path);
    of.push_back(&row);
  }
  const auto found = files.resolveAll(wanted);
  for (std::size_t at = 0; at < of.size(); ++at) {
    if (!found[at]) continue;
    const Pointer pointer = pointerTo(of[at]->pointer, *found[at]);
    if (!isThere(files, pointer)) continue;
    of[at]->pointer = pointer;
    of[at]->isThere = true;
  }
}

void find(const platform::FileSystem& files, Findings& rows, bool resolves) {
  for (PointerList::Finding& row : rows)
    row.isThere = isThere(files, row.pointer);
  if (!resolves) return;
  look(
      files, rows, [](const Pointer& pointer) { return std::optional(pointer.target()); },
      [](const Pointer& pointer, const std::string& path) {
        return pointer.isFolder() ? toFolder(path) : toFile(path);
      });
  look(files, rows, folderBeforeMark, [](const Pointer&, const std::string& path) { return toFolder(path); });
}

}  // namespace

struct Targets::Question {
  unsigned generation = 0;
  bool resolves = false;
  Findings rows;
};

std::map<std::string, Findings> Targets::rowsByDrive(const std::string* only) const {
  std::map<std::string, Findings> rows;
  for (std::uint32_t id = 0; id < list_.count(); ++id) {
    const std::string drive = paths::driveOf(list_.at(id).Text);
    if (!only || drive == *only) rows[drive].push_back({id, list_.at(id), false});
  }
  return rows;
}

void Targets::ask(bool resolves) {
  for (auto& [name, rows] : rowsByDrive()) {
    drives_[name].resolves = drives_[name].resolves || resolves;
    askDrive(name, std::move(rows));
  }
}

void Targets::askDrive(const std::string& name, Findings rows) {
  Drive& drive = drives_[name];
  if (std::exchange(drive.asked, true)) {
    drive.again = true;
    return;
  }
  drive.again = false;
  auto question =
      std::make_shared<Question>(Question{list_.generation(), std::exchange(drive.resolves, false), std::move(rows)});
  program_.loop.runBeside(
      [question, &files = program_.platform.files] { find(files, question->rows, question->resolves); },
      [this, name, question] { takeAnswer(name, *question); });
}

void Targets::takeAnswer(const std::string& name, const Question& question) {
  Drive& drive = drives_[name];
  drive.asked = false;
  // The rows that were asked for may be others by now.
  const bool stale = question.generation != list_.generation();
  if (stale) {
    drive.resolves = drive.resolves || question.resolves;
  } else {
    apply(question);
  }
  if (!stale && !drive.again) return;
  auto rows = rowsByDrive(&name);
  if (rows.contains(name)) askDrive(name, std::move(rows[name]));
}

void Targets::apply(const Question& question) {
  list_.note(question.rows);
  std::vector<std::uint32_t> rubbish;
  for (const PointerList::Finding& row : question.rows)
    if (question.resolves && !row.isThere && isShort(row.pointer)) rubbish.push_back(row.id);
  list_.remove(rubbish);
  if (answered) answered();
}

}  // namespace varnholt::vdt
