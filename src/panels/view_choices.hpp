#pragma once

#include "core/program.hpp"
#include "panels/active_panel.hpp"
#include "panels/form1.hpp"
#include "panels/listing.hpp"

#include <functional>
#include <string>
#include <string_view>

namespace varnholt::panels {

/// The menu choices that say what the panels show and how dates are written.
class ViewChoices {
 public:
  ViewChoices(Form1& form, core::Program& program, Listing& listing, ActivePanel& active)
      : form_(form), program_(program), listing_(listing), active_(active) {}

  void Viewall_Click();
  void ViewProg_Click();
  void HidSysfiles_Click();
  void DateModi_Click() { chooseDate("1"); }
  void DateCreate_Click() { chooseDate("2"); }
  void DateAcess_Click() { chooseDate("3"); }
  void DateTime24_Click() { chooseClock("0"); }
  void DateTime12_Click() { chooseClock("1"); }
  /// Checks the entry of the date system and names the date column after it.
  void applyDateSystem();
  /// Shows the line of the menu bar that tells what the panels show, from the checked entries.
  void showFilterLine();
  /// Checks one of the three entries that exclude each other, and clears the selection of both panels.
  void checkView(std::string_view entry);

  /// Line and tool tip of the View Filter in force; empty: the user has not given one yet.
  std::string userLine, userTip;

  /// Clears selection, marks and the filter mark of both panels.
  std::function<void()> ResetAll;

 private:
  void chooseDate(const char* system);
  void chooseClock(const char* format);
  void chooseView(std::string_view entry);

  Form1& form_;
  core::Program& program_;
  Listing& listing_;
  ActivePanel& active_;
};

}  // namespace varnholt::panels
