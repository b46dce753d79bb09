#include "filter_test.hpp"

namespace varnholt::filters {
namespace {

class ViewFilterTest : public FilterTestRig {
 protected:
  void SetUp() override {
    write({"a.txt", "b.doc", "c.jpg", "noext"});
    rig.makeFolder("C:\\Sub");
    write({"Sub\\d.txt", "Sub\\e.jpg"});
  }
};

TEST_F(ViewFilterTest, BothPanelsShowWhatMatchesAndEveryFolder) {
  rig.startLeft();
  viewFilter([](Form25& dialog) { type(dialog.Text2, "*.txt,*.doc"); });
  EXPECT_EQ(rig.names(left()), (Names{"\\ Sub| ", "a|txt", "b|doc"}));
  EXPECT_EQ(rig.names(right()), rig.names(left()));
  EXPECT_EQ(rig.menu("Viewfilter").Caption.get(), "|  View Filter: *.txt,*.doc");
  EXPECT_TRUE(rig.menu("Viewfilter").Accented) << "a picture and a file without a point are hidden";
  EXPECT_TRUE(rig.menu("Viewuser").Checked);
  EXPECT_FALSE(rig.menu("Viewall").Checked);
  EXPECT_TRUE(left().list.hasFocus());
  EXPECT_EQ(rig.platform->settings.get("kelvarton", "Viewfilter", "Viewdata"), "*.txt,*.doc");
  EXPECT_EQ(rig.platform->settings.get("kelvarton", "LastCommand", "Command"), "80");
  rig.doubleClick(left(), "\\ Sub");
  EXPECT_EQ(files(left()), Names{"d.txt"});
}

TEST_F(ViewFilterTest, ItStaysOnThroughListingsAndHiddenFilesUntilAllFilesSwitchItOff) {
  rig.write("C:\\hidden.txt");
  setAttributes("C:\\hidden.txt", 2);
  rig.startLeft();
  viewFilter([](Form25& dialog) { type(dialog.Text2, "*.t*"); });
  write({"new.txt", "new.doc", "t"});
  rig.menu("refrechview").choose();
  EXPECT_EQ(files(left()), (Names{"a.txt", "new.txt"})) << "a name without a point has none to match";
  rig.menu("HidSysfiles").choose();
  EXPECT_EQ(files(left()), (Names{"a.txt", "hidden.txt", "new.txt"}));
  EXPECT_EQ(rig.menu("Viewfilter").Caption.get(), "|  View Filter: *.t*");
  rig.menu("HidSysfiles").choose();
  rig.menu("Viewall").choose();
  EXPECT_EQ(files(left()).size(), 7u);
  EXPECT_FALSE(rig.menu("Viewfilter").Accented || rig.menu("Viewuser").Checked);
  EXPECT_EQ(rig.menu("Viewfilter").Caption.get(), "|  View Filter:  All Files  (*.*) - Excl. Hidden and System Files.");
}

TEST_F(ViewFilterTest, SizesDatesAndAttributesMustAllHold) {
  sized("C:\\big.txt", 3'000'000);
  sized("C:\\old.txt", 3'000'000);
  sized("C:\\free.txt", 3'000'000);
  for (const char* name : {"C:\\big.txt", "C:\\old.txt", "C:\\a.txt"})
    setAttributes(name, 33);
  for (const char* name : {"C:\\big.txt", "C:\\free.txt", "C:\\a.txt"})
    moment(name, {2007, 3, 3, 12, 0, 0, 0});
  moment("C:\\old.txt", {1999, 3, 3, 12, 0, 0, 0});
  rig.startLeft();
  rig.app().program.init.DateTimeFormat = "1";
  rig.loop.whenShows("Form25")
      .run([this](controls::Form&) {
        type(filters().Form25.Text2, "*.doc, *.txt");
        set(filters().Form25.Check1, true);
        askSizes(filters().Form25, "2.5", "");
      })
      .press("Command1")
      .press("Command11");
  picks({2007, 3, 1}, {2007, 3, 9});
  rig.menu("Viewuser").choose();
  EXPECT_EQ(files(left()), Names{"big.txt"});
  EXPECT_EQ(rig.menu("Viewfilter").Caption.get(),
            "|  View Filter: *.doc, *.txt  -  Date: 03-01-2007 <-> 03-09-2007  -  Size: 2.5MB < X < MB");
  EXPECT_EQ(rig.menu("Viewfilter").ToolTipText.get(), "The files that both panels show [RO]");
}

TEST_F(ViewFilterTest, WhatIsRefusedOrCancelledChangesNothing) {
  rig.startLeft();
  auto& dialog = filters().Form25;
  const auto isRefused = [&] {
    type(dialog.Text2, "");
    dialog.Command11.press();
    EXPECT_TRUE(dialog.Visible);
  };
  inDialog("Viewuser_Click", "Form25", isRefused, {test::noticed("Key In FilePattern Please !!")});
  EXPECT_EQ(files(left()).size(), 4u) << "no filter has been given: all files show";

  viewFilter([](Form25& filter) {
    type(filter.Text2, "*.txt");
    set(filter.Check4, false);
  });
  const auto types = [&] {
    EXPECT_EQ(dialog.Text2.Text.get(), "*.txt");
    type(dialog.Text2, "*.jpg");
  };
  inDialog("Viewuser_Click", "Form25", types);
  EXPECT_EQ(files(left()), Names{"a.txt"}) << "Cancel keeps the filter in force";
}

TEST_F(ViewFilterTest, OneOfTheTwoLinesShows) {
  rig.startLeft();
  const auto viewLine = [&] {
    EXPECT_NE(rig.menu("Viewfilter").Visible.get(), rig.menu("Filefilter").Visible.get());
    return rig.menu("Viewfilter").Visible.get();
  };
  fileFilter([](Form6& dialog) { type(dialog.Text2, "*.txt"); });
  EXPECT_FALSE(viewLine());
  viewFilter([](Form25& dialog) { type(dialog.Text2, "*.doc"); });
  EXPECT_TRUE(viewLine());
  EXPECT_EQ(left().list.selectedCount(), 0u);
  fileFilter([](Form6& dialog) { type(dialog.Text2, "*.doc"); });
  rig.click(left(), "b");
  EXPECT_TRUE(viewLine()) << "files are hidden still";
}

TEST_F(ViewFilterTest, AGreyBoxDoesNotCount) {
  setAttributes("C:\\a.txt", 33);
  rig.startLeft();
  viewFilter([&](Form25& dialog) {
    type(dialog.Text2, "*.txt,*.doc");
    set(dialog.Check1, true);
    dialog.enableAttributes(false);
  });
  EXPECT_EQ(files(left()), (Names{"a.txt", "b.doc"}));
  EXPECT_EQ(rig.menu("Viewfilter").ToolTipText.get(), "The files that both panels show");
}

// The date dialog, and which files its days let through.

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

TEST_F(DateFilterTest, TheChosenDaysAndThePatternAreShownKeptAndStored) {
  start();
  rig.loop.whenShows("Form6")
      .press("Command1")
      .run([this](controls::Form& dialog) {
        EXPECT_EQ(dialog.Caption.get(), "File Filter, - Date :  01-03-2007  <->  05-03-2007");
        EXPECT_EQ(filters().Form6.Command1.Caption.get(), "Date On");
        EXPECT_TRUE(filters().Form6.Command11.hasFocus());
        type(filters().Form6.Text2, " *.zzz ");
      })
      .press("Command11");
  rig.loop.whenShows("Form24")
      .reads({"Caption|Date (Regional Format) Filtering", "Label5|09-03-2007", "Label6|09-03-2007"})
      .run([this](controls::Form&) {
        auto& dialog = filters().Form24;
        EXPECT_EQ(dialog.Check1.Value.get(), 0);
        dialog.Check1.toggleFromUser();
        dialog.MonthView1.pickFromUser({2007, 3, 1});
        dialog.MonthView2.pickFromUser({2007, 3, 5});
      })
      .reads({"Label5|01-03-2007", "Label6|05-03-2007"})
      .press("Command11");
  rig.command("Command5_Click");
  EXPECT_EQ(rig.platform->settings.get("kelvarton", "datefilter", "Check"), "true");

  rig.restart();
  rig.startLeft();
  rig.loop.whenShows("Form6")
      .reads({"Text2|*.zzz", "Caption|File Filter, - Date :  01-03-2007  <->  05-03-2007"})
      .press("Command1")
      .press("Command2");
  rig.loop.whenShows("Form24").reads({"Label5|01-03-2007", "Label6|05-03-2007"}).press("Command2");
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

  fileFilterWithDates({2000, 1, 1}, {2000, 1, 2}, "Command2", "Command2");
  EXPECT_EQ(filters().Form6.dates, (DatePair{{2007, 3, 1}, {2007, 3, 5}}));
  EXPECT_FALSE(filters().Form6.datesOn());
}

TEST_F(DateFilterTest, EachFilterHasDaysOfItsOwn) {
  start();
  fileFilterWithDates({2007, 3, 1}, {2007, 3, 5}, "Command2");
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
