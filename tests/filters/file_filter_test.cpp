#include "filter_test.hpp"

namespace varnholt::filters {
namespace {

using FileFilterTest = FilterTestRig;

TEST_F(FileFilterTest, SelectsByPatternsAndNeverAFolder) {
  write({"a1.txt", "Letter.TXT", "note.doc", "noext", "photo.jpeg", "x,y.txt"});
  rig.makeFolder("C:\\folder.txt");
  rig.startLeft();
  const std::pair<const char*, Names> rows[] = {
      {"*.txt", {"a1.txt", "Letter.TXT", "x,y.txt"}},
      {"*.doc,,*.jpeg,", {"note.doc", "photo.jpeg"}},
      {"[lp]h*.*", {"photo.jpeg"}},
      {"noext.", {"noext"}},
      {"*.*", {"a1.txt", "Letter.TXT", "noext", "note.doc", "photo.jpeg", "x,y.txt"}}};
  for (const auto& [pattern, names] : rows) {
    fileFilter([&, pattern = pattern](Form6& dialog) { type(dialog.Text2, pattern); });
    EXPECT_EQ(selected(left()), names) << pattern;
    EXPECT_EQ(form().filecollect.count(), names.size()) << pattern;
    EXPECT_EQ(rig.menu("Filefilter").Caption.get(), std::string("|  File Filter: ") + pattern);
  }
}

TEST_F(FileFilterTest, MarksCountsAndRemembersWhatItTook) {
  rig.write("C:\\a.txt", std::string(1200, 'x'));
  rig.write("C:\\b.txt", std::string(34, 'x'));
  rig.write("C:\\c.doc");
  rig.startLeft();
  rig.click(left(), "c");
  fileFilter([](Form6& dialog) { type(dialog.Text2, "*.txt"); });
  const auto row = left().list.item(rig.rowOf(left(), "a"));
  EXPECT_EQ(row.ForeColor(), panels::mark_color::Selection);
  EXPECT_TRUE(row.Ghosted());
  EXPECT_EQ(left().list.item(rig.rowOf(left(), "c")).ForeColor(), controls::NoColor);
  EXPECT_EQ(form().StatusBar1.panel(panels::status::SelectedCount), "2  Item(s) Selected");
  EXPECT_EQ(form().StatusBar1.panel(panels::status::SizeReport), "2 Item(s) ,  In 1,234 Bytes");
  EXPECT_EQ(form().mode(), "FilterMode");
  EXPECT_EQ(form().panelRecall(panels::Side::Left).names().back(), "b.txt");
}

TEST_F(FileFilterTest, NoMatchAndNoPatternAreToldAndCancelLeavesTheSelection) {
  rig.write("C:\\a.txt");
  rig.startLeft();
  rig.click(left(), "a");
  rig.loop.whenShows("Form6").press("Command2");
  rig.menu("Filepatt").choose();
  EXPECT_EQ(selected(left()), Names{"a.txt"});
  EXPECT_EQ(rig.platform->settings.get("kelvarton", "LastCommand", "Command"), "5");
  fileFilter([](Form6& dialog) { type(dialog.Text2, "*.doc"); });
  EXPECT_EQ(left().list.selectedCount(), 0u);
  EXPECT_EQ(form().StatusBar1.panel(panels::status::Line), "No Filter Match Found !");
  EXPECT_FALSE(rig.menu("Filefilter").Visible);
  fileFilter([](Form6& dialog) { type(dialog.Text2, "*.txt"); });
  EXPECT_EQ(form().StatusBar1.panel(panels::status::Line), "");
  rig.loop.whenShows("Form6").run([this](controls::Form&) { type(filters().Form6.Text2, "   "); }).press("Command11");
  rig.command("Command5_Click", {test::noticed("Key In FilePattern Please !!")});
  EXPECT_EQ(left().list.selectedCount(), 0u);
  EXPECT_EQ(rig.loop.screen().MousePointer, controls::pointer::Default);
}

TEST_F(FileFilterTest, BothBoundsAreStrictNumbersOfTheRegionAndRefusedWhenNothingCanLieBetween) {
  for (const auto row : test::Rows{"a|0", "b|999999", "c|1000000", "d|1000001", "e|1500000", "f|2000000"})
    sized("C:\\" + test::Row(row).first, std::stoull(test::Row(row).second));
  rig.startLeft();
  const auto filtered = [&](const test::Row& row, const std::string& refusal) {
    rig.platform->regional.decimalSign = row.third;
    left().list.selectNone();
    rig.app().selection.resetcollect();
    rig.loop.whenShows("Form6")
        .run([&](controls::Form&) {
          type(filters().Form6.Text2, "*.*");
          askSizes(filters().Form6, row.first, row.second);
        })
        .press("Command11")
        .run([&](controls::Form& dialog) {
          EXPECT_EQ(dialog.Visible.get(), !refusal.empty());
          dialog.Hide();
        });
    if (!refusal.empty()) rig.loop.meets({test::noticed(refusal)});
    rig.command("Command5_Click");
    std::string names;
    for (const std::string& name : selected(left()))
      names += name;
    return names;
  };
  for (const auto row :
       test::Rows{"1|2|.|de", " 1 ||.|def", "|1|.|ab", "0|1.000001|.|bc", "-1|0.5|.|a", "0,999999|1,500001|,|cde"})
    EXPECT_EQ(filtered(test::Row(row), {}), test::Row(row).fourth) << row;
  for (const auto row : test::Rows{"1|1|.|Equal", "||.|Equal", " 2|2 |.|Equal", "2|1|.|Mismatch", "one|2|.|Mismatch",
                                   "1|2 MB|.|Mismatch", "0.999999|1,500001|,|Mismatch"})
    EXPECT_EQ(filtered(test::Row(row), "FileSize Input Data " + test::Row(row).fourth + " !"), "") << row;
}

TEST_F(FileFilterTest, MoreAndLessShowAndHideTheSizes) {
  rig.startLeft();
  Form6& dialog = filters().Form6;
  for (const bool shown : {true, false}) {
    dialog.Command3.press();
    EXPECT_EQ(dialog.Command3.Caption.get(), shown ? "Less" : "More");
    for (const char* name : {"Check4", "Text3", "Text1", "Label3"})
      EXPECT_EQ(dialog.control(name)->Visible.get(), shown) << name;
  }
}

TEST_F(FileFilterTest, AttributesAreExactButForArchive) {
  for (const auto row :
       test::Rows{"plain|0", "ro|1", "ro-archive|33", "hidden|2", "system-archive|36", "ro-hidden|3", "all|7"}) {
    write({test::Row(row).first});
    setAttributes("C:\\" + test::Row(row).first, static_cast<platform::Attributes>(std::stoul(test::Row(row).second)));
  }
  rig.startLeft();
  rig.menu("HidSysfiles").choose();
  // The boxes that are checked, as the tip names them, and the names that are selected.
  for (const auto text :
       test::Rows{"RO|ro ro-archive ", "SYS|system-archive ", "HID|hidden ", "RO HID|ro-hidden ", "RO SYS HID|all "}) {
    const test::Row row(text);
    fileFilter([&](Form6& dialog) {
      type(dialog.Text2, "*.*");
      set(dialog.Check1, row.first.find("RO") != std::string::npos);
      set(dialog.Check2, row.first.find("SYS") != std::string::npos);
      set(dialog.Check3, row.first.find("HID") != std::string::npos);
    });
    std::string names;
    for (const std::string& name : selected(left()))
      names += name + " ";
    EXPECT_EQ(names, row.second);
    EXPECT_EQ(rig.menu("Filefilter").ToolTipText.get(), "The filter that made the selection [" + row.first + "]");
  }
}

TEST_F(FileFilterTest, TheLineTellsWhatIsInForce) {
  sized("C:\\a.txt", 1'500'000);
  moment("C:\\a.txt", {2007, 3, 3, 12, 0, 0, 0});
  rig.startLeft();
  rig.app().program.init.DateTimeFormat = "0";
  fileFilter([](Form6& dialog) {
    type(dialog.Text2, "*.txt");
    askSizes(dialog, "1", "2");
  });
  EXPECT_EQ(rig.menu("Filefilter").Caption.get(), "|  File Filter: *.txt   -  Size: 1MB < X < 2MB");
  fileFilterWithDates({2007, 3, 1}, {2007, 3, 9});
  EXPECT_EQ(rig.menu("Filefilter").Caption.get(),
            "|  File Filter: *.txt  -  Date: 01-03-2007 <-> 09-03-2007  -  Size: 1MB < X < 2MB");
  set(filters().Form6.Check4, false);
  fileFilterWithDates({2007, 3, 1}, {2007, 3, 9});
  EXPECT_EQ(rig.menu("Filefilter").Caption.get(), "|  File Filter: *.txt  -  Date: 01-03-2007 <-> 09-03-2007");
}

}  // namespace
}  // namespace varnholt::filters
