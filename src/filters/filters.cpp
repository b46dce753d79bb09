#include "filters/filters.hpp"

namespace varnholt::filters {

namespace pointer = controls::pointer;

Filters::Filters(panels::Desk& desk) : desk_(desk), Form6(desk.program), Form25(desk.program), Form24(desk.program) {
  for (FilterForm* dialog : std::initializer_list<FilterForm*>{&Form6, &Form25})
    dialog->chooseDates = [this, dialog] { Form24.open(*dialog); };
  Form6.Command11.Click = [this] { Form6_Command11_Click(); };
  Form25.Command11.Click = [this] { Form25_Command11_Click(); };
  desk_.listing.viewFilter = [this] { return Viewdiv(); };
}

// --- File Filter ---------------------------------------------------------------------------------------------------

void Filters::Command5_Click() {
  if (!desk_.dispatcher.panelPreCheck()) return;
  selectFiles();
  desk_.dispatcher.commandDone();
}

void Filters::selectFiles() {
  auto& form = desk_.form;
  form.setMode("FilterMode");
  Form6.open();
  desk_.listing.FocusView();
  if (!form.filecollect.empty()) return;
  desk_.selection.ClickPane();
  form.statusLine("No Filter Match Found !");
}

void Filters::Form6_Command11_Click() {
  const auto criteria = Form6.criteria();
  panels::Panel* panel = desk_.form.activePanel();
  if (!criteria || !panel) return;
  desk_.selection.ResetView();
  desk_.dispatcher.Fileident();
  desk_.selection.resetcollect();
  if (Form6.Viewpattern(*criteria)) {
    match(*panel, *criteria);
    showFileLine(*criteria);
  }
  Form6.Hide();
}

void Filters::match(panels::Panel& panel, const Criteria& criteria) {
  auto& program = desk_.program;
  program.loop.screen().MousePointer = pointer::Hourglass;
  FilterTest test(criteria, program.init.DateSystem, program.platform.clock);
  for (std::uint32_t row = 0; row < panel.list.count(); ++row) {
    const controls::ListItem item = panel.list.item(row);
    if (panel.isFolder(item)) continue;
    if (test.passes(panel.compareText(item), panel.rows->entry(item.id()))) take(panel, item);
  }
  desk_.form.statusLine("");
  desk_.selection.reportSelected(panel);
  program.loop.screen().MousePointer = pointer::Default;
}

void Filters::take(panels::Panel& panel, controls::ListItem item) {
  item.setForeColor(panels::mark_color::Selection);
  item.setGhosted(true);
  item.setSelected(true);
  desk_.selection.collect(panel, item);
}

void Filters::showFileLine(const Criteria& criteria) {
  auto& menu = desk_.form.Menu;
  menu["Filefilter"].Caption = Form6.line(criteria);
  menu["Filefilter"].ToolTipText = "The filter that made the selection" + Form6.attributeText();
  menu["Filefilter"].Visible = true;
  menu["Viewfilter"].Visible = false;
}

// --- View Filter ---------------------------------------------------------------------------------------------------

void Filters::Viewuser_Click() {
  desk_.form.setMode("ViewMode");
  desk_.choices.checkView("Viewuser");
  Form25.open();
  desk_.choices.showFilterLine();
  desk_.listing.ViewRenew();
  desk_.listing.FocusView();
}

void Filters::Form25_Command11_Click() {
  const auto criteria = Form25.criteria();
  if (!criteria || !Form25.Viewpattern(*criteria)) return;
  view_ = criteria;
  desk_.choices.userLine = Form25.line(*criteria);
  desk_.choices.userTip = "The files that both panels show" + Form25.attributeText();
  Form25.Hide();
}

panels::FileTest Filters::Viewdiv() const {
  if (!view_) return {};
  const auto& program = desk_.program;
  return [test = FilterTest(*view_, program.init.DateSystem, program.platform.clock)](
             const platform::Entry& file) mutable { return test.passes(file.name, file); };
}

}  // namespace varnholt::filters
