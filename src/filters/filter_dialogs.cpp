#include "filters/filter_dialogs.hpp"

#include "controls/dress.hpp"
#include "core/item_text.hpp"
#include "core/text_character.hpp"
#include "filters/date_dialog.hpp"

#include <utility>

namespace varnholt::filters {
namespace {

constexpr const char *DateOn = "Date On", *DateOff = "Date Off";
constexpr const char *More = "More", *Less = "Less";
constexpr const char* SizeTip =
    "Numeric value as filesize in MB, floating point as x,x (x.x) country dependent !. No spaces allowed !.Blank for "
    "Disable";

}  // namespace

filters::Form6::Form6(core::Program& program)
    : FilterForm(program, {"Form6", "File Filter", "|  File Filter: ", core::setting::FileData, core::setting::datefrom,
                           core::setting::dateto, core::setting::DateCheck}) {
  Command11.ToolTipText = "Ececute filter operation.";
}

filters::Form25::Form25(core::Program& program)
    : FilterForm(program, {"Form25", "View Filter", "|  View Filter: ", core::setting::ViewData,
                           core::setting::Viewfrom, core::setting::Viewto, core::setting::ViewCheck}) {
  Command11.ToolTipText = "Show only the files that match";
}

FilterForm::FilterForm(core::Program& program, FilterWords words)
    : Form(program.loop, words.form), words(std::move(words)), program_(program) {
  Caption = this->words.caption;
  setTexts();
  showSizes(false);
  defaultButton = "Command11";
  cancelButton = "Command2";
  Load = [this] { Form_Load(); };
  Command1.Click = [this] {
    if (chooseDates) chooseDates();
  };
  Command2.Click = [this] { Hide(); };
  Command3.Click = [this] { Command3_Click(); };
}

void FilterForm::setTexts() {
  Text2.ToolTipText = "FilePattern As  [*.*],  [?x?y.*],  [*.ext] ect.";
  Text2.AccessibleName = "File pattern";
  for (auto [box, text] : {std::pair{&Check1, "Include Read Only att."}, std::pair{&Check2, "Include System att."},
                           std::pair{&Check3, "Include Hidden att."}}) {
    box->Caption = text;
    box->ToolTipText = text;
  }
  dress(Check4, "Filesize", "Enable/disable filesize option.");
  Label3.Caption = "More than (MB):";
  Label1.Caption = "Less than (MB):";
  Text3.AccessibleName = "Lower bound of the size";
  Text1.AccessibleName = "Upper bound of the size";
  Text3.ToolTipText = SizeTip;
  Text1.ToolTipText = SizeTip;
  Command3.ToolTipText = "More/Less Options (Filesize)";
  dress(Command1, DateOff, "Filter with Dates On/Off.");
  Command11.Caption = "&Filter";
  dress(Command2, "&Cancel", "Cancel Operation");
}

// --- Dates ---------------------------------------------------------------------------------------------------------

void FilterForm::Form_Load() {
  dates = storedDates(program_, words);
  showDates(program_.settings.get(words.Check) == "true");
}

bool FilterForm::datesOn() const { return Command1.Caption == DateOn; }

void FilterForm::showDates(bool on) {
  Command1.Caption = on ? DateOn : DateOff;
  Caption = on ? words.caption + ", - Date :  " + dateText(dates.from) + "  <->  " + dateText(dates.to) : words.caption;
}

void FilterForm::enableAttributes(bool on) {
  for (controls::CheckBox* box : {&Check1, &Check2, &Check3})
    box->Enabled = on;
}

std::string FilterForm::dateText(const controls::MonthView::Day& day) const { return shownDate(program_, day); }

// --- Sizes ---------------------------------------------------------------------------------------------------------

void FilterForm::Command3_Click() { showSizes(Command3.Caption == More); }

void FilterForm::showSizes(bool on) {
  Command3.Caption = on ? Less : More;
  for (controls::Control* control :
       std::initializer_list<controls::Control*>{&Check4, &Label3, &Text3, &Label1, &Text1})
    control->Visible = on;
}

bool FilterForm::sizesAgree(const Criteria& criteria) {
  const auto& [lowerText, upperText] = std::tie(criteria.lowerText, criteria.upperText);
  if (lowerText == upperText) {
    program_.dialogs.inform("FileSize Input Data Equal !");
    return false;
  }
  // What is no number is no bound that the user could have meant.
  const bool malformed = (!lowerText.empty() && !criteria.lower) || (!upperText.empty() && !criteria.upper);
  if (!malformed && !(criteria.lower && criteria.upper && *criteria.lower > *criteria.upper)) return true;
  program_.dialogs.inform("FileSize Input Data Mismatch !");
  return false;
}

// --- What is asked for ---------------------------------------------------------------------------------------------

void FilterForm::open() {
  Text2.Text = program_.settings.get(words.pattern);
  Text2.SetFocus();
  ShowModal();
}

std::optional<Criteria> FilterForm::criteria() {
  Criteria asked;
  const auto& regional = program_.platform.regional;
  asked.sizeOn = Check4.Value != 0;
  asked.lowerText = core::trimmed(Text3.Text.get());
  asked.upperText = core::trimmed(Text1.Text.get());
  asked.lower = readNumber(asked.lowerText, regional);
  asked.upper = readNumber(asked.upperText, regional);
  if (asked.sizeOn && !sizesAgree(asked)) return {};
  if (!attributeText().empty()) asked.attributes = attsettings(counts(Check1), counts(Check2), counts(Check3));
  if (datesOn()) asked.dates = dates;
  asked.pattern = core::trimmed(Text2.Text.get());
  return asked;
}

bool FilterForm::Viewpattern(const Criteria& criteria) {
  if (!criteria.pattern.empty()) {
    program_.settings.save(words.pattern, criteria.pattern);
    return true;
  }
  program_.dialogs.inform("Key In FilePattern Please !!");
  program_.loop.screen().MousePointer = controls::pointer::Default;
  return false;
}

// A box that is grey is out of the user's reach, and so is what it would ask for.
bool FilterForm::counts(const controls::CheckBox& box) { return box.Value && box.Enabled; }

std::string FilterForm::attributeText() const {
  std::string text;
  for (const auto& [box, word] : {std::pair{&Check1, "RO"}, std::pair{&Check2, "SYS"}, std::pair{&Check3, "HID"}})
    if (counts(*box)) text += (text.empty() ? "" : " ") + std::string(word);
  return text.empty() ? text : " [" + text + "]";
}

std::string FilterForm::line(const Criteria& criteria) const {
  std::string text = words.lineStart + criteria.pattern;
  if (criteria.dates) text += "  -  Date: " + dateText(criteria.dates->from) + " <-> " + dateText(criteria.dates->to);
  if (!criteria.sizeOn) return text;
  if (!criteria.dates) text += " ";
  return text + "  -  Size: " + criteria.lowerText + "MB < X < " + criteria.upperText + "MB";
}

}  // namespace varnholt::filters
