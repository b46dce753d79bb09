#include "panels/drive_lists.hpp"

#include "platform/paths.hpp"

#include <algorithm>

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
  std::vector<controls::ComboBox::Item> items;
  for (const char letter : letters_) {
    platform::Result<platform::DriveInfo> info = platform::Error{};
    program_.loop.runBlocking([&] { info = program_.platform.drives.info(letter); });
    const std::string label = info && !info->label.empty() ? " [" + info->label + "]" : "";
    items.push_back(
        {std::string(1, letter) + ':' + label, driveIcon(info ? info->type : platform::DriveType::Unknown)});
  }
  for (Panel* panel : {&form_.Panel1, &form_.Panel2})
    panel->controls.Drive.Items = items;
}

void DriveLists::refresh() {
  program_.platform.drives.refresh();
  if (program_.platform.drives.letters() == letters_) return;
  fill();
  ViewDriveSelection();
  if (drivesChanged) drivesChanged();
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
