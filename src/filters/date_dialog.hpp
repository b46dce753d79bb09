#pragma once

#include "filters/filter_dialogs.hpp"

namespace varnholt::filters {

/// The day as the user's region writes it.
std::string shownDate(const core::Program& program, const controls::MonthView::Day& day);

/// The dates that were chosen last for a filter; today for one that is missing or malformed.
DatePair storedDates(const core::Program& program, const FilterWords& words);

/// "Date (Regional Format) Filtering": two months to pick the bounds from. Serves both filters.
class Form24 : public controls::Form {
 public:
  explicit Form24(core::Program& program);

  controls::CheckBox Check1{*this, "Check1"};
  controls::Label Label1{*this, "Label1"};  ///< how the days count
  controls::MonthView MonthView1{*this, "MonthView1"}, MonthView2{*this, "MonthView2"};
  controls::Label Label5{*this, "Label5"}, Label6{*this, "Label6"};
  controls::Button Command11{*this, "Command11"}, Command2{*this, "Command2"};

  /// Shows the dates of a filter and gives it those that the user chooses.
  void open(FilterForm& caller);

 private:
  void showLabels();
  void Command11_Click();

  core::Program& program_;
  FilterForm* caller_ = nullptr;  ///< while the dialog is open
};

}  // namespace varnholt::filters
