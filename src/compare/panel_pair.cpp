#include "compare/panel_pair.hpp"

#include "platform/paths.hpp"

namespace varnholt::compare {

namespace paths = platform::paths;

void PanelPair::SourceToTarget_Click() {
  if (panels::Panel* active = desk_.form.activePanel()) follow(desk_.form.otherPanel(*active));
}

void PanelPair::follow(panels::Panel& panel) {
  const std::string folder = desk_.form.otherPanel(panel).path();
  desk_.dispatcher.busy = true;
  if (!paths::sameFolder(panel.path(), folder)) desk_.navigation.goTo(panel, folder);
  desk_.dispatcher.busy = false;
  desk_.selection.ClickPane();
}

void PanelPair::TargetFolder_Click() {
  panels::Panel* active = desk_.form.activePanel();
  if (!active) return;
  desk_.dispatcher.busy = true;
  toTargetDrive(*active, desk_.form.otherPanel(*active));
  desk_.dispatcher.busy = false;
  desk_.selection.ClickPane();
}

void PanelPair::toTargetDrive(panels::Panel& source, panels::Panel& target) {
  if (source.driveRoot() == target.driveRoot())
    return desk_.program.dialogs.inform("\rDrives Must Be Different, - Function Exits !");
  const std::string folder = target.driveRoot() + source.path().substr(source.driveRoot().size());
  if (!desk_.navigation.goTo(target, folder))
    return desk_.program.dialogs.inform("\rSource Folder Do Not Exits on Target !\rFunction Exits !");
  source.list.SetFocus();
}

}  // namespace varnholt::compare
