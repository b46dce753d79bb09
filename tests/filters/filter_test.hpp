#pragma once

#include "support/app_rig.hpp"

namespace varnholt::filters {

/// The program with the left panel active on files of the test's own, and the two filters as their user works them.
class FilterTestRig : public test::AppTest {
 protected:
  using Day = controls::MonthView::Day;

  /// A sparse file: sizes of megabytes without the bytes.
  void sized(const std::string& path, std::uint64_t bytes) {
    rig.write(path, "");
    std::filesystem::resize_file(rig.systemPath(path), bytes);
  }
  void moment(const std::string& path, const platform::CalendarTime& time) {
    ASSERT_TRUE(rig.platform->files.setModified(path, rig.clock.fromLocal(time)));
  }

  Filters& filters() { return rig.app().filters; }

  static void type(controls::TextBox& box, const std::string& text) { box.typeFromUser(text); }
  static void set(controls::CheckBox& box, bool on) {
    if ((box.Value != 0) != on) box.toggleFromUser();
  }
  static void askSizes(FilterForm& dialog, const std::string& lower, const std::string& upper) {
    if (dialog.Command3.Caption == "More") dialog.Command3.press();
    set(dialog.Check4, true);
    type(dialog.Text3, lower);
    type(dialog.Text1, upper);
  }
  /// In the next date dialog these days are picked, and taken or not.
  void picks(Day from, Day to, const char* button = "Command11") {
    const auto acts = [this, from, to] {
      filters().Form24.MonthView1.pickFromUser(from);
      filters().Form24.MonthView2.pickFromUser(to);
      set(filters().Form24.Check1, true);
    };
    rig.loop.meets({{"Form24", button, "", acts}});
  }

  /// Runs the File Filter: the user does `asks` in the dialog and starts it.
  void fileFilter(const std::function<void(Form6&)>& asks) {
    rig.loop.meets({{"Form6", "Command11", "", [this, asks] { asks(filters().Form6); }}});
    rig.command("Command5_Click");
  }
  void viewFilter(const std::function<void(Form25&)>& asks) {
    rig.loop.meets({{"Form25", "Command11", "", [this, asks] { asks(filters().Form25); }}});
    rig.menu("Viewuser").choose();
  }
  /// The File Filter with all else as it stands in its dialog, and these days, which are taken or not; then that
  /// button.
  void fileFilterWithDates(Day from, Day to, const char* button = "Command11", const char* takes = "Command11") {
    rig.loop.whenShows("Form6").press("Command1").press(button);
    picks(from, to, takes);
    rig.command("Command5_Click");
  }
  Names files(panels::Panel& panel) {
    Names names;
    for (std::uint32_t row = 0; row < panel.list.count(); ++row)
      if (const auto item = panel.list.item(row); !panel.isFolder(item)) names.push_back(panel.fileName(item));
    return names;
  }
};

}  // namespace varnholt::filters
