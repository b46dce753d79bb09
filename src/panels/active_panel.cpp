#include "panels/active_panel.hpp"

#include "core/format.hpp"
#include "core/item_text.hpp"

namespace varnholt::panels {
namespace {

void setFirstHeader(controls::ListView& list, const std::string& text) {
  auto headers = list.ColumnHeaders.get();
  if (headers.empty()) return;
  headers.front().Text = text;
  list.ColumnHeaders = std::move(headers);
}

}  // namespace

void ActivePanel::GotFocus(Panel& panel) {
  const bool left = panel.side == Side::Left, another = form_.activePanel() != &panel;
  for (auto* button : form_.commandButtons())
    button->FontUnderline = false;
  form_.setActive(panel.side);
  showDrive(panel);
  if (auto item = panel.list.SelectedItem()) item->EnsureVisible();
  form_.StatusBar1.setPanel(status::ActiveView, left ? "View1Active" : "View2Active");
  colorLists();
  form_.Command27.MousePointer = controls::pointer::Hourglass;
  form_.Picture2.MousePointer = controls::pointer::Hourglass;
  setFirstHeader(panel.list, "Name:  [Me Active]");
  setFirstHeader(form_.otherPanel(panel).list, "Name:");
  form_.events.activated(panel, another);
}

void ActivePanel::colorLists() {
  for (Panel* panel : {&form_.Panel1, &form_.Panel2}) {
    const bool active = panel == form_.activePanel();
    panel->list.BackColor = active ? activeColor : inactiveColor;
    panel->list.Accented = active;
    panel->controls.Text.Accented = active;
  }
}

platform::Result<platform::DriveInfo> ActivePanel::drive(const Panel& panel) const {
  return program_.drive(panel.driveRoot().front());
}

void ActivePanel::followDrive(const Panel& panel) {
  if (shownDrive_ != panel.driveRoot()) showDrive(panel);
}

void ActivePanel::showDrive(const Panel& panel) {
  shownDrive_ = panel.driveRoot();
  const auto info = drive(panel);
  if (info) form_.StatusBar1.setPanel(status::FileSystem, info->fileSystem);
  showFreeSpace(info);
}

void ActivePanel::showFreeSpace(const Panel& panel) { showFreeSpace(drive(panel)); }

void ActivePanel::showFreeSpace(const platform::Result<platform::DriveInfo>& drive) {
  if (!drive || !drive->ready) return;
  const std::uint64_t bytes = drive->availableBytes;
  const auto& regional = program_.platform.regional;
  form_.StatusBar1.setPanel(status::FreeSpace, bytes >= 1'000'000
                                                   ? core::format("###,###", bytes / 1'000'000, regional) + " MB Free"
                                                   : core::format("###,##0", bytes, regional) + " Bytes Free");
}

void ActivePanel::UpdateClock() {
  const auto now = program_.platform.clock.local(program_.platform.clock.now());
  form_.StatusBar1.setPanel(status::Time, "Time: " + core::statusTime(program_.init.DateTimeFormat, now));
  form_.StatusBar1.setPanel(status::Date, "Date: " + core::statusDate(program_.init.DateTimeFormat, now));
}

}  // namespace varnholt::panels
