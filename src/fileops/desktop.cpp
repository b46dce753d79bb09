#include "fileops/desktop.hpp"

#include "core/item_text.hpp"
#include "platform/paths.hpp"

namespace varnholt::fileops {

namespace paths = platform::paths;

std::optional<std::string> Desktop::folder() const {
  const std::string folder =
      desk_.program.registry.shellFolder("Desktop", desk_.program.platform.environment.desktopFolder());
  if (!folder.empty() && desk_.files().folderExists(folder)) return paths::withClosing(folder);
  desk_.program.dialogs.inform(".. \\Desktop Folder Do Not Exist !");
  return {};
}

void Desktop::CopyDesktop_Click() {
  if (!desk_.dispatcher.panelPreCheck()) return;
  panels::Panel& panel = *desk_.form.activePanel();
  desk_.selection.ViewClickCopy(panel);
  std::vector<std::string> files;
  for (const core::Item& item : desk_.form.filecollect.items())
    if (!item.isFolder) files.push_back(core::entryPath(item.path, panel.path()));
  files.empty() ? desk_.selection.nonselect() : copy(files);
  desk_.dispatcher.commandDone();
}

void Desktop::copy(const std::vector<std::string>& files) {
  const auto desktop = folder();
  if (!desktop) return;
  bool arrived = true;
  std::size_t tried = 0;
  for (const std::string& file : files) {
    const std::string target = *desktop + std::string(paths::fileName(file));
    const bool isThere = desk_.files().sameEntry(file, target);
    if (!isThere && desk_.files().fileExists(target) && !mayReplace(target)) continue;
    ++tried;
    arrived = (isThere || copyFile(file, target)) && arrived;
  }
  if (tried == 0) return;
  desk_.listing.ViewUpdateAll(*desktop);
  desk_.program.dialogs.inform(arrived ? "Copy to Desktop Done !" : "Copy Failed To Desktop !");
}

bool Desktop::mayReplace(const std::string& target) const {
  return desk_.program.dialogs.AskRetry("File:  " + std::string(paths::fileName(target)) +
                                        "\rAlready Exist !, OverWrite ?");
}

bool Desktop::copyFile(const std::string& file, const std::string& target) const {
  auto& pointer = desk_.pointer();
  pointer = controls::pointer::Hourglass;
  const auto copied = desk_.files().copyFile(file, target, true);
  pointer = controls::pointer::Default;
  return copied && desk_.files().fileExists(target);
}

void Desktop::Copyfrom_desktop_Click() {
  panels::Panel* panel = desk_.form.activePanel();
  const auto desktop = folder();
  if (!panel || !desktop) return;
  if (desk_.navigation.goTo(*panel, *desktop)) desk_.listing.FocusView();
}

}  // namespace varnholt::fileops
