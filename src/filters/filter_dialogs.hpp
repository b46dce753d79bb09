#pragma once

#include "controls/message_loop.hpp"
#include "controls/standard.hpp"
#include "core/program.hpp"
#include "filters/criteria.hpp"

#include <functional>
#include <optional>
#include <string>

namespace varnholt::filters {

/// The texts and keys in which the two filters differ.
struct FilterWords {
  std::string form, caption;
  std::string lineStart;  ///< what the line of the menu bar begins with
  core::SettingKey pattern, from, to, Check;
};

/// What both filters ask for: patterns, attributes, a range of sizes and one of dates.
class FilterForm : public controls::Form {
 public:
  controls::TextBox Text2{*this, "Text2"};  ///< the pattern, or several parted by commas
  controls::CheckBox Check1{*this, "Check1"}, Check2{*this, "Check2"}, Check3{*this, "Check3"};
  controls::CheckBox Check4{*this, "Check4"};  ///< sizes count
  controls::Label Label3{*this, "Label3"};
  controls::TextBox Text3{*this, "Text3"};  ///< lower bound
  controls::Label Label1{*this, "Label1"};
  controls::TextBox Text1{*this, "Text1"};         ///< upper bound
  controls::Button Command3{*this, "Command3"};    ///< more or fewer options
  controls::Button Command1{*this, "Command1"};    ///< dates
  controls::Button Command11{*this, "Command11"};  ///< filter
  controls::Button Command2{*this, "Command2"};    ///< leave

  const FilterWords words;
  DatePair dates;
  bool datesOn() const;
  /// Button and title say whether the dates count, and which they are.
  void showDates(bool on);
  /// The attribute boxes follow the choice of the date dialog.
  void enableAttributes(bool on);

  /// Opens with the pattern of the last time and gives back when the user leaves.
  void open();
  /// What the boxes ask for, the pattern still to be tested; nothing when the sizes are refused, which the user has
  /// been told.
  std::optional<Criteria> criteria();
  /// False for an empty pattern, which the user has been told; any other is stored for the next time.
  bool Viewpattern(const Criteria& criteria);
  /// The boxes in words: " [RO SYS HID]"; empty when none is on.
  std::string attributeText() const;
  /// The filter in words, for the menu bar.
  std::string line(const Criteria& criteria) const;
  std::string dateText(const controls::MonthView::Day& day) const;

  std::function<void()> chooseDates;

 protected:
  FilterForm(core::Program& program, FilterWords words);

 private:
  void setTexts();
  void Form_Load();
  void Command3_Click();
  void showSizes(bool on);
  bool sizesAgree(const Criteria& criteria);
  static bool counts(const controls::CheckBox& box);

  core::Program& program_;
};

/// "File Filter": selects the files of the active panel that match.
class Form6 : public FilterForm {
 public:
  explicit Form6(core::Program& program);
};

/// "View Filter": both panels list only the files that match.
class Form25 : public FilterForm {
 public:
  explicit Form25(core::Program& program);
};

}  // namespace varnholt::filters
