#include "filters/date_dialog.hpp"

#include "controls/dress.hpp"
#include "core/item_text.hpp"

#include <charconv>

namespace varnholt::filters {
namespace {

using Day = controls::MonthView::Day;

// Days are stored as 2007-03-09, which stays the same day when the user moves to another region.
std::string storedText(const Day& day) {
  const auto digits = [](int number, std::size_t count) {
    std::string text = std::to_string(number);
    return std::string(text.size() < count ? count - text.size() : 0, '0') + text;
  };
  return digits(day.year, 4) + "-" + digits(day.month, 2) + "-" + digits(day.day, 2);
}

std::optional<Day> readDay(const std::string& text, const platform::Clock& clock) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return {};
  const auto number = [&](std::size_t at, std::size_t count, int& value) {
    const char* const end = text.data() + at + count;
    const auto [stop, error] = std::from_chars(text.data() + at, end, value);
    return error == std::errc() && stop == end && value > 0;
  };
  Day day;
  if (!number(0, 4, day.year) || !number(5, 2, day.month) || !number(8, 2, day.day)) return {};
  // The calendar carries a day over that the month does not have.
  const auto real = clock.local(clock.fromLocal({day.year, day.month, day.day, 12, 0, 0, 0}));
  if (real.month != day.month || real.day != day.day) return {};
  return day;
}

}  // namespace

std::string shownDate(const core::Program& program, const Day& day) {
  return core::statusDate(program.init.DateTimeFormat, {day.year, day.month, day.day, 0, 0, 0, 0});
}

DatePair storedDates(const core::Program& program, const FilterWords& words) {
  const platform::Clock& clock = program.platform.clock;
  const auto now = clock.local(clock.now());
  const Day today{now.year, now.month, now.day};
  return {readDay(program.settings.get(words.from), clock).value_or(today),
          readDay(program.settings.get(words.to), clock).value_or(today)};
}

filters::Form24::Form24(core::Program& program) : Form(program.loop, "Form24"), program_(program) {
  Caption = "Date (Regional Format) Filtering";
  dress(Check1, "Date filtering", "Click to select date filtering on/off.");
  Label1.Caption = "Files dated between, not including, these two days:";
  MonthView1.ToolTipText = "The first day; files of this day itself do not pass.";
  MonthView1.AccessibleName = "First day";
  MonthView2.ToolTipText = "The last day; files of this day itself do not pass.";
  MonthView2.AccessibleName = "Last day";
  Label5.AccessibleName = "Chosen first day";
  Label6.AccessibleName = "Chosen last day";
  dress(Command11, "&Select", "Selects the chosen Interval");
  dress(Command2, "&Cancel", "Cancels without Changes");
  defaultButton = "Command11";
  cancelButton = "Command2";
  MonthView1.DateClick = [this] { showLabels(); };
  MonthView2.DateClick = [this] { showLabels(); };
  Command11.Click = [this] { Command11_Click(); };
  Command2.Click = [this] { Hide(); };
}

void filters::Form24::showLabels() {
  Label5.Caption = shownDate(program_, MonthView1.Value);
  Label6.Caption = shownDate(program_, MonthView2.Value);
}

void filters::Form24::open(FilterForm& caller) {
  caller_ = &caller;
  Check1.Value = caller.datesOn() ? 1 : 0;
  const DatePair stored = storedDates(program_, caller.words);
  MonthView1.Value = stored.from;
  MonthView2.Value = stored.to;
  showLabels();
  MonthView1.SetFocus();
  ShowModal();
  caller_ = nullptr;
}

void filters::Form24::Command11_Click() {
  if (!caller_) return;
  const bool on = Check1.Value != 0;
  caller_->dates = {MonthView1.Value, MonthView2.Value};
  core::Settings::Batch batch;
  batch.add(caller_->words.from, storedText(caller_->dates.from));
  batch.add(caller_->words.to, storedText(caller_->dates.to));
  batch.add(caller_->words.Check, on ? "true" : "false");
  (void)program_.settings.save(batch);
  caller_->showDates(on);
  caller_->enableAttributes(on);
  Hide();
  caller_->Command11.SetFocus();
}

}  // namespace varnholt::filters
