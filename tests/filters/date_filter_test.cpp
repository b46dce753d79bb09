// The date dialog, and which files its days let through.
#include "filter_test.hpp"

namespace varnholt::filters {
namespace {

class DateFilterTest : public FilterTestRig {
 protected:
  void start() {
    rig.startLeft();
    rig.app().program.init.DateTimeFormat = "0";
    rig.app().program.settings.save(core::setting::FileData, "*.*");
  }
};

TEST_F(DateFilterTest, TheDaysThemselvesStayOutside) {
  const std::pair<const char*, platform::CalendarTime> files[] = {{"C:\\b midnight after", {2007, 3, 2, 0, 0, 0, 0}},
                                                                  {"C:\\c second after", {2007, 3, 2, 0, 0, 1, 0}},
                                                                  {"C:\\d between", {2007, 3, 3, 12, 0, 0, 0}},
                                                                  {"C:\\e second before", {2007, 3, 4, 23, 59, 59, 0}},
                                                                  {"C:\\f midnight of to", {2007, 3, 5, 0, 0, 0, 0}}};
  rig.clock.offset = 2 * 3600;  // local time counts
  for (const auto& [name, time] : files) {
    rig.write(name);
    moment(name, time);
  }
  start();
  const Names between{"c second after", "d between", "e second before"};
  fileFilterWithDates({2007, 3, 1}, {2007, 3, 5});
  EXPECT_EQ(selected(left()), between);
  fileFilterWithDates({2007, 3, 5}, {2007, 3, 1});
  EXPECT_EQ(selected(left()), between) << "the order of the days does not count";
  fileFilterWithDates({2007, 3, 3}, {2007, 3, 3});
  EXPECT_EQ(selected(left()), Names{}) << "nothing lies after a day and before it";
  fileFilterWithDates({2007, 3, 3}, {2007, 3, 4});
  EXPECT_EQ(selected(left()), Names{}) << "nor between two days in a row";
}

TEST_F(DateFilterTest, TheDateThatThePanelsShowCounts) {
  rig.write("C:\\a");
  moment("C:\\a", {2001, 2, 3, 12, 0, 0, 0});
  start();
  fileFilterWithDates({2001, 2, 1}, {2001, 2, 9});
  EXPECT_EQ(selected(left()), Names{"a"});
  rig.menu("DateCreate").choose();
  fileFilterWithDates({2001, 2, 1}, {2001, 2, 9});
  EXPECT_EQ(selected(left()), Names{}) << "it was made just now";
}

TEST_F(DateFilterTest, TheChosenDaysAreShownKeptAndStored) {
  start();
  rig.loop.whenShows("Form6")
      .press("Command1")
      .run([this](controls::Form& dialog) {
        EXPECT_EQ(dialog.Caption.get(), "File Filter, - Date :  01-03-2007  <->  05-03-2007");
        EXPECT_EQ(filters().Form6.Command1.Caption.get(), "Date On");
        EXPECT_TRUE(filters().Form6.Command11.hasFocus());
      })
      .press("Command2");
  rig.loop.whenShows("Form24")
      .reads("Caption", "Date (Regional Format) Filtering")
      .reads("Label5", "09-03-2007")
      .reads("Label6", "09-03-2007")
      .run([this](controls::Form&) {
        auto& dialog = filters().Form24;
        EXPECT_EQ(dialog.Check1.Value.get(), 0);
        dialog.Check1.toggleFromUser();
        dialog.MonthView1.pickFromUser({2007, 3, 1});
        dialog.MonthView2.pickFromUser({2007, 3, 5});
      })
      .reads("Label5", "01-03-2007")
      .reads("Label6", "05-03-2007")
      .press("Command11");
  rig.command("Command5_Click");
  EXPECT_EQ(rig.platform->settings.get("kelvarton", "datefilter", "Check"), "true");

  rig.restart();
  start();
  rig.loop.whenShows("Form6")
      .reads("Caption", "File Filter, - Date :  01-03-2007  <->  05-03-2007")
      .press("Command1")
      .press("Command2");
  rig.loop.whenShows("Form24").reads("Label5", "01-03-2007").reads("Label6", "05-03-2007").press("Command2");
  rig.command("Command5_Click");
}

TEST_F(DateFilterTest, SwitchingOffAndCancellingKeepTheDays) {
  start();
  rig.loop.whenShows("Form6").press("Command1").press("Command1").reads("Caption", "File Filter").press("Command2");
  picks({2007, 3, 1}, {2007, 3, 5});
  rig.loop.whenShows("Form24")
      .reads("Label5", "01-03-2007")
      .run([this](controls::Form&) { set(filters().Form24.Check1, false); })
      .press("Command11");
  rig.command("Command5_Click");
  EXPECT_EQ(filters().Form6.Command1.Caption.get(), "Date Off");
  EXPECT_FALSE(filters().Form6.Check1.Enabled) << "the attribute boxes follow";
  EXPECT_EQ(rig.platform->settings.get("kelvarton", "datefilter", "Check"), "false");

  rig.loop.whenShows("Form6").press("Command1").press("Command2");
  picks({2000, 1, 1}, {2000, 1, 2}, "Command2");
  rig.command("Command5_Click");
  EXPECT_EQ(filters().Form6.dates, (DatePair{{2007, 3, 1}, {2007, 3, 5}}));
  EXPECT_FALSE(filters().Form6.datesOn());
}

TEST_F(DateFilterTest, EachFilterHasDaysOfItsOwn) {
  start();
  rig.loop.whenShows("Form6").press("Command1").press("Command2");
  picks({2007, 3, 1}, {2007, 3, 5});
  rig.command("Command5_Click");
  const std::string caption = "View Filter, - Date :  01-01-2000  <->  02-02-2001";
  rig.loop.whenShows("Form25").press("Command1").reads("Caption", caption).press("Command2");
  picks({2000, 1, 1}, {2001, 2, 2});
  rig.menu("Viewuser").choose();
  EXPECT_EQ(filters().Form6.dates, (DatePair{{2007, 3, 1}, {2007, 3, 5}}));
  const auto stored = [&](const char* section, const char* key) {
    return rig.platform->settings.get("kelvarton", section, key);
  };
  EXPECT_NE(stored("Viewfilter", "Viewfrom"), stored("datefilter", "datefrom"));
}

TEST_F(DateFilterTest, StoredDaysThatAreNoneAreToday) {
  for (const char* text : {"", "2007-02-30", "2007-13-01", "9.3.2007"}) {
    rig.app().program.settings.save(core::setting::datefrom, text);
    EXPECT_EQ(storedDates(rig.app().program, filters().Form6.words).from, (Day{2007, 3, 9})) << text;
  }
}

}  // namespace
}  // namespace varnholt::filters
