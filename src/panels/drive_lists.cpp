#include "panels/drive_lists.hpp"

#include "platform/paths.hpp"

#include <algorithm>
#include <memory>

namespace varnholt::panels {
namespace {

namespace paths = platform::paths;

const char* driveIcon(platform::DriveType type) {
  switch (type) {
  case platform::DriveType::Removable:
    return "drive-removable";
  case platform::DriveType::Network:
    return "drive-network";
  case platform::DriveType::CdRom:
    return "drive-cd";
  case platform::DriveType::RamDisk:
    return "drive-ram";
  case platform::DriveType::Fixed:
  case platform::DriveType::Unknown:
    break;
  }
  return "drive-fixed";
}

}  // namespace

void DriveLists::fill() {
  letters_ = program_.platform.drives.letters();
  items_.clear();
  for (const char letter : letters_)
    items_.push_back({std::string(1, letter) + ':', driveIcon(platform::DriveType::Unknown)});
  show();
  for (const char letter : letters_)
    describe(letter);
}

void DriveLists::show() {
  for (Panel* panel : {&form_.Panel1, &form_.Panel2})
    panel->controls.Drive.Items = items_;
}

// Each drive is asked by itself, so that one that does not answer keeps no other's name away.
void DriveLists::describe(char letter) {
  auto info = std::make_shared<platform::Result<platform::DriveInfo>>(platform::Error{});
  program_.loop.runBeside(
      [info, letter, &drives = program_.platform.drives] { *info = drives.info(letter); },
      [this, info, letter] {
        const auto place = std::ranges::find(letters_, letter);
        if (!*info || place == letters_.end()) return;
        auto& item = items_[static_cast<std::size_t>(place - letters_.begin())];
        const std::string label = (*info)->label.empty() ? "" : " [" + (*info)->label + "]";
        const controls::ComboBox::Item told{item.text.substr(0, 2) + label, driveIcon((*info)->type)};
        if (item == told) return;
        item = told;
        show();
        ViewDriveSelection();
      });
}

void DriveLists::refresh() {
  program_.platform.drives.refresh();
  if (program_.platform.drives.letters() == letters_) return;
  fill();
  ViewDriveSelection();
  if (drivesChanged) drivesChanged();
}

void DriveLists::watch(Dispatcher& dispatcher) {
  const auto look = [this, &dispatcher] {
    missed_ = dispatcher.busy;
    if (!missed_) refresh();
  };
  const auto lookLater = [this, look] { program_.loop.later(look); };
  program_.platform.drives.watch(lookLater);
  dispatcher.commandEnded.listen([this, lookLater] {
    if (missed_) lookLater();
  });
}

bool DriveLists::has(char letter) const { return std::ranges::find(letters_, letter) != letters_.end(); }

void DriveLists::ViewDriveSelection() {
  for (Panel* panel : {&form_.Panel1, &form_.Panel2}) {
    const auto& items = panel->controls.Drive.Items.get();
    int chosen = -1;
    for (std::size_t at = 0; at < items.size(); ++at)
      if (paths::driveOf(items[at].text) == paths::driveOf(panel->path())) chosen = static_cast<int>(at);
    panel->controls.Drive.choose(chosen);
  }
}

}  // namespace varnholt::panels
