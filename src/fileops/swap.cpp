#include "fileops/swap.hpp"

#include "core/program_files.hpp"
#include "fileops/stranded.hpp"
#include "platform/paths.hpp"

#include <algorithm>
#include <string_view>
#include <unordered_set>

namespace varnholt::fileops {

namespace paths = platform::paths;

void Swap::ExFiles_Click() {
  if (!desk_.dispatcher.panelPreCheck()) return;
  if (mayBegin()) {
    ExChange();
    desk_.listing.ViewRenew();
    desk_.listing.ColorReset();
    desk_.listing.FocusView();
  }
  desk_.dispatcher.commandDone();
  leftOut_.tell();
}

bool Swap::mayBegin() {
  if (!drivesAllow()) return false;
  const panels::Panel &left = desk_.form.Panel1, &right = desk_.form.Panel2;
  if (left.list.selectedCount() + right.list.selectedCount() == 0) {
    desk_.selection.ClickPane();
    desk_.selection.NoItemsSelected("No Item(s) Selected !");
    return false;
  }
  if (desk_.files().sameEntry(left.path(), right.path())) {
    desk_.selection.NoItemsSelected("Cannot Swap To Itself !");
    return false;
  }
  return true;
}

bool Swap::drivesAllow() {
  const panels::Panel* const sides[] = {&desk_.form.Panel1, &desk_.form.Panel2};
  const auto isReady = [&](const panels::Panel* side) { return desk_.program.driveReady(side->driveRoot().front()); };
  const auto isDisc = [&](const panels::Panel* side) {
    const auto volume = desk_.files().volume(side->path());
    return volume && volume->isCompactDisc();
  };
  if (!std::ranges::all_of(sides, isReady)) {
    desk_.program.dialogs.alert("Drive(s) Not ready !\rFunction Exits !");
    return false;
  }
  if (std::ranges::any_of(sides, isDisc)) {
    desk_.program.dialogs.alert("Cannot Swap To/From CD-Rom/DVD-Rom !\rFunction Exits !");
    return false;
  }
  return true;
}

Swap::Names Swap::selectedFiles(panels::Panel& panel) const {
  Names names;
  for (const std::uint32_t id : panel.list.selectedIds()) {
    const controls::ListItem row{panel.list, id};
    if (!panel.isFolder(row) && desk_.files().fileExists(panel.itemPath(row))) names.push_back(panel.fileName(row));
  }
  return names;
}

void Swap::leaveBlocked(Names& names, const panels::Panel& side, const Names& others) {
  const auto& files = desk_.files();
  const std::unordered_set<std::string_view> leaving(others.begin(), others.end());
  std::erase_if(names, [&](const std::string& name) {
    const std::string target = paths::join(side.path(), name);
    if (leaving.contains(name)) return false;
    if (!files.fileExists(target) && !files.folderExists(target)) return false;
    leftOut_.add({platform::ErrorCode::AlreadyThere, target, "stands on the other side, and was not selected"});
    return true;
  });
}

void Swap::ExChange() {
  bringBackStranded(desk_);
  Names lefts = selectedFiles(desk_.form.Panel1), rights = selectedFiles(desk_.form.Panel2);
  leaveBlocked(lefts, desk_.form.Panel2, rights);
  leaveBlocked(rights, desk_.form.Panel1, lefts);
  if (lefts.empty() && rights.empty()) return desk_.selection.NoItemsSelected("No Item(s) To Swap !");
  desk_.pointer() = controls::pointer::Hourglass;
  const bool began = carryOut(lefts, rights);
  desk_.pointer() = controls::pointer::Default;
  if (began) desk_.selection.NoItemsSelected("All Available/Selected Files Swapped ! ");
}

bool Swap::carryOut(const Names& lefts, const Names& rights) {
  const std::string left = desk_.form.Panel1.path(), right = desk_.form.Panel2.path();
  const std::string between = core::program_file::path(desk_.program.platform, core::program_file::SwapTmp);
  core::program_file::makeFolders(desk_.program.platform);
  if (!desk_.files().folderExists(between)) {
    leftOut_.add({platform::ErrorCode::NotFound, between, "cannot be made: nothing is swapped"});
    return false;
  }
  std::vector<platform::Detour> detours;
  for (const std::string& name : lefts)
    detours.push_back({paths::join(between, name), paths::join(left, name), paths::join(right, name)});
  const auto note = desk_.program.platform.detours.note(detours);
  if (!note) {
    leftOut_.add(note.error());
    return false;
  }

  std::erase_if(detours, [&](const platform::Detour& each) { return !move(each.origin, each.waits, each.origin); });
  for (const std::string& name : rights)
    (void)move(paths::join(right, name), paths::join(left, name), paths::join(right, name));
  bool arrived = true;
  for (const platform::Detour& each : detours)
    arrived = (move(each.waits, each.target, each.origin) || move(each.waits, each.origin, each.waits)) && arrived;
  if (!arrived) (*note)->keep();
  core::program_file::removeWorkFolder(desk_.program.platform, core::program_file::SwapTmp);
  return true;
}

bool Swap::move(const std::string& from, const std::string& to, const std::string& stays) {
  const auto moved = desk_.files().moveFile(from, to);
  if (!moved) leftOut_.add({moved.error().code, stays, moved.error().text});
  return moved.ok();
}

}  // namespace varnholt::fileops
