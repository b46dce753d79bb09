#include "fileops/as_new_name.hpp"

#include "core/item_text.hpp"
#include "core/program_files.hpp"
#include "fileops/stranded.hpp"
#include "platform/paths.hpp"

#include <algorithm>
#include <utility>

namespace varnholt::fileops {

namespace paths = platform::paths;

std::string AsNewName::TmpFolder() const {
  return core::program_file::path(desk_.program.platform, core::program_file::Tmp) + '\\';
}

std::optional<std::string> AsNewName::begin(const std::string& file, bool moving, const Stoppable& run) {
  moving_ = moving;
  origin_ = file;
  AsNewName_.clear();
  bringBackStranded(desk_);
  clearTmpFolder();
  if (!makeTmpFolder() || !enter(file, run)) return {};
  const auto name = dialog_.ask({.caption = moving ? "Move Item As" : "Copy Item As",
                                 .toolTip = "Key in Valit Filename With File Extension.",
                                 .pictureTip = "Copy As Or Move AS Function",
                                 .emptyAnswer = "Key in Valid File Name !.",
                                 .preset = std::string(paths::fileName(file)),
                                 .beside = &window_,
                                 .away = {.right = 2300, .down = 210}});
  if (name && rename(*name)) return waits_;
  end();
  return {};
}

// What somebody's move has on its way stands here too.
void AsNewName::clearTmpFolder() {
  auto& files = desk_.files();
  const auto listing = files.list(TmpFolder());
  if (!listing) return;
  const Names waiting = desk_.program.platform.detours.waiting();
  for (const auto& entry : (*listing)->files()) {
    const std::string path = TmpFolder() + std::string(entry.name);
    if (entry.name == core::program_file::OwnMark.substr(1) || std::ranges::count(waiting, path) > 0) continue;
    (void)files.deleteFile(path, true);
  }
  for (const auto& entry : (*listing)->folders())
    (void)files.deleteFolder(TmpFolder() + std::string(entry.name), true);
}

bool AsNewName::makeTmpFolder() {
  core::program_file::makeFolders(desk_.program.platform);
  if (desk_.files().folderExists(TmpFolder())) return true;
  desk_.program.loop.show({"Alert", "Tmp. Folder Cannot Be Created For Copy/Move Function !",
                           controls::MessageIcon::Exclamation, controls::MessageButtons::Ok});
  return false;
}

bool AsNewName::enter(const std::string& file, const Stoppable& run) {
  const std::string place = TmpFolder() + std::string(paths::fileName(file));
  if (moving_ && !note({place})) return false;
  auto& pointer = desk_.pointer();
  pointer = controls::pointer::Hourglass;
  const auto entered = run([&](const platform::Progress& progress) {
    auto& files = desk_.files();
    return moving_ ? files.moveFile(file, place, progress) : files.copyFile(file, place, true, progress);
  });
  pointer = controls::pointer::Default;
  if (entered)
    waits_ = place;
  else if (entered.error().code == platform::ErrorCode::Stopped)
    desk_.program.dialogs.alert(std::string(moving_ ? "Move" : "Copy") + " Process Aborted. !");
  else
    tell(entered.error(), file);
  return entered.ok();
}

bool AsNewName::rename(const std::string& name) {
  AsNewName_ = name;
  const std::string place = TmpFolder() + name;
  if (place == waits_) return true;
  if (moving_ && !note({waits_, place})) return false;
  const auto renamed = desk_.files().moveFile(waits_, place);
  if (renamed)
    waits_ = place;
  else
    tell(renamed.error(), place);
  return renamed.ok();
}

/// From here on the file may stand at these places of the work folder. The note before goes when this one is written.
bool AsNewName::note(const Names& places) {
  std::vector<platform::Detour> detours;
  for (const std::string& place : places)
    detours.push_back({place, origin_, origin_});
  auto written = desk_.program.platform.detours.note(detours);
  if (written)
    note_ = std::move(*written);
  else
    tell(written.error(), origin_);
  return written.ok();
}

void AsNewName::tell(const platform::Error& error, const std::string& path) {
  desk_.program.dialogs.alert("File:  " + std::string(paths::fileName(path)) + "\r" + error.text);
}

void AsNewName::end() {
  if (moving_ && TmpMode() && desk_.files().fileExists(waits_)) goBack();
  if (TmpMode()) showNewName();
  waits_.clear();
  note_.reset();
}

void AsNewName::goBack() {
  if (desk_.files().moveFile(waits_, origin_)) return desk_.listing.ViewUpdateAll(paths::parent(origin_));
  if (note_) note_->keep();
  desk_.program.dialogs.alert("Cancel Function After Move As Failed!, Get Your File In Varnholt Folder \\Tmp");
}

void AsNewName::showNewName() {
  if (!paths::sameFolder(desk_.form.Panel1.path(), desk_.form.Panel2.path())) return;
  desk_.listing.UpdateBothViews();
  panels::Panel* active = desk_.form.activePanel();
  if (!active || !active->rows) return;
  const auto row = active->findByCompareText(
      core::rowCompareText(std::string(paths::baseName(AsNewName_)), std::string(paths::extension(AsNewName_))));
  if (row) desk_.navigation.selectRow(*active, *row);
}

}  // namespace varnholt::fileops
