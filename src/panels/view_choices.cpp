#include "panels/view_choices.hpp"

#include "core/item_text.hpp"

namespace varnholt::panels {
namespace {

struct DateChoice {
  const char *system, *menu;
};
constexpr DateChoice DateChoices[] = {{"1", "DateModi"}, {"2", "DateCreate"}, {"3", "DateAcess"}};

}  // namespace

void ViewChoices::applyDateSystem() {
  for (const auto& choice : DateChoices)
    form_.Menu[choice.menu].Checked = program_.init.DateSystem == choice.system;
  for (controls::ListView* list : {&form_.ListView1, &form_.ListView2}) {
    auto headers = list->ColumnHeaders.get();
    headers.at(column::Date).Text = core::dateColumnTitle(program_.init.DateSystem);
    list->ColumnHeaders = std::move(headers);
  }
}

void ViewChoices::chooseDate(const char* system) {
  program_.init.DateSystem = system;
  applyDateSystem();
  listing_.ViewRenew();
}

void ViewChoices::chooseClock(const char* format) {
  program_.init.DateTimeFormat = format;
  form_.Menu["DateTime24"].Checked = program_.init.DateTimeFormat == "0";
  form_.Menu["DateTime12"].Checked = program_.init.DateTimeFormat != "0";
  active_.UpdateClock();
  listing_.ViewRenew();
}

void ViewChoices::checkView(std::string_view entry) {
  for (const char* each : {"Viewall", "ViewProg", "Viewuser"})
    form_.Menu[each].Checked = entry == each;
  if (ResetAll) ResetAll();
}

void ViewChoices::chooseView(std::string_view entry) {
  checkView(entry);
  listing_.ViewRenew();
  showFilterLine();
}

void ViewChoices::Viewall_Click() { chooseView("Viewall"); }

void ViewChoices::ViewProg_Click() { chooseView("ViewProg"); }

void ViewChoices::HidSysfiles_Click() {
  auto& entry = form_.Menu["HidSysfiles"];
  entry.Checked = !entry.Checked;
  showFilterLine();
  listing_.ViewRenew();
}

void ViewChoices::showFilterLine() {
  std::string line = "|  View Filter:  All Files  (*.*)", tip = "The files that both panels show";
  if (form_.Menu.checked("Viewuser") && !userLine.empty()) {
    line = userLine;
    tip = userTip;
  } else if (form_.Menu.checked("ViewProg")) {
    line = "|  View Filter:  Programs Only  (*.Exe , *.Com)";
  } else if (!form_.Menu.checked("HidSysfiles")) {
    line += " - Excl. Hidden and System Files.";
  }
  auto& shown = form_.Menu["Viewfilter"];
  shown.Caption = line;
  shown.ToolTipText = tip;
  shown.Visible = true;
  form_.Menu["Filefilter"].Visible = false;
}

}  // namespace varnholt::panels
