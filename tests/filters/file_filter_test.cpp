// What the File Filter selects, and what it tells.
#include "filter_test.hpp"

namespace varnholt::filters {
namespace {

using FileFilterTest = FilterTestRig;

// --- Patterns ------------------------------------------------------------------------------------------------------

struct PatternRow {
  const char* pattern;
  std::vector<std::string> selected;
};

TEST_F(FileFilterTest, SelectsByPatternsAndNeverAFolder) {
  for (const char* name : {"a1.txt", "Letter.TXT", "note.doc", "noext", "photo.jpeg", "x,y.txt"})
    rig.write(std::string("C:\\") + name);
  rig.makeFolder("C:\\folder.txt");
  rig.startLeft();
  const PatternRow rows[] = {
      {"*.txt", {"a1.txt", "Letter.TXT", "x,y.txt"}},
      {"*.doc,,*.jpeg,", {"note.doc", "photo.jpeg"}},
      {"[lp]h*.*", {"photo.jpeg"}},
      {"noext.", {"noext"}},
      {"*.*", {"a1.txt", "Letter.TXT", "noext", "note.doc", "photo.jpeg", "x,y.txt"}},
  };
  for (const auto& row : rows) {
    fileFilter([&](Form6& dialog) { type(dialog.Text2, row.pattern); });
    EXPECT_EQ(selected(left()), row.selected) << row.pattern;
    EXPECT_EQ(form().filecollect.count(), row.selected.size()) << row.pattern;
    EXPECT_EQ(rig.menu("Filefilter").Caption.get(), std::string("|  File Filter: ") + row.pattern);
    EXPECT_EQ(left().inconsistency(), "");
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
  EXPECT_TRUE(form().filterMark);
  EXPECT_EQ(form().panelRecall(panels::Side::Left).names().back(), "b.txt");
  EXPECT_TRUE(rig.menu("Filefilter").Visible);
  EXPECT_FALSE(rig.menu("Viewfilter").Visible);

  rig.click(left(), "c");
  EXPECT_FALSE(rig.menu("Filefilter").Visible);
  EXPECT_TRUE(rig.menu("Viewfilter").Visible);
  EXPECT_FALSE(form().filterMark);
}

// --- Nothing selected ----------------------------------------------------------------------------------------------

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
  rig.loop.whenShows("Form6").run([this](controls::Form&) { type(filters().Form6.Text2, "   "); }).press("Command11");
  rig.loop.meets({test::noticed("Key In FilePattern Please !!")});
  rig.command("Command5_Click");
  EXPECT_EQ(left().list.selectedCount(), 0u);
  EXPECT_EQ(rig.loop.screen().MousePointer, controls::pointer::Default);
}

TEST_F(FileFilterTest, ThePatternIsThereAgainAfterANewStart) {
  rig.write("C:\\a.txt");
  rig.startLeft();
  fileFilter([](Form6& dialog) { type(dialog.Text2, " *.txt "); });
  EXPECT_EQ(rig.platform->settings.get("kelvarton", "Filefilter", "Filedata"), "*.txt");
  rig.restart();
  rig.startLeft();
  rig.loop.whenShows("Form6").reads("Text2", "*.txt").press("Command2");
  rig.command("Command5_Click");
}

// --- Sizes ---------------------------------------------------------------------------------------------------------

struct SizeRow {
  const char *lower, *upper, *decimalSign;
  std::vector<std::string> selected;
};

TEST_F(FileFilterTest, BothBoundsAreStrictAndReadInTheRegionalForm) {
  sized("C:\\a", 0);
  sized("C:\\b", 999'999);
  sized("C:\\c", 1'000'000);
  sized("C:\\d", 1'000'001);
  sized("C:\\e", 1'500'000);
  sized("C:\\f", 2'000'000);
  rig.startLeft();
  const SizeRow rows[] = {
      {"1", "2", ".", {"d", "e"}},       {" 1 ", "", ".", {"d", "e", "f"}},
      {"", "1", ".", {"a", "b"}},        {"0", "1.000001", ".", {"b", "c"}},
      {"0.999999", "1,500001", ",", {}}, {"0,999999", "1,500001", ",", {"c", "d", "e"}},
      {"-1", "0.5", ".", {"a"}},
  };
  for (const auto& row : rows) {
    rig.platform->regional.decimalSign = row.decimalSign;
    rig.loop.whenShows("Form6")
        .run([&](controls::Form&) {
          type(filters().Form6.Text2, "*.*");
          askSizes(filters().Form6, row.lower, row.upper);
        })
        .press("Command11")
        .run([](controls::Form& dialog) { dialog.Hide(); });
    if (row.selected.empty()) rig.loop.meets({test::noticed("FileSize Input Data Mismatch !")});
    rig.command("Command5_Click");
    EXPECT_EQ(selected(left()), row.selected) << row.lower << " < X < " << row.upper;
    left().list.selectNone();
    rig.app().selection.resetcollect();
  }
}

struct RefusalRow {
  const char *lower, *upper, *text;
};

TEST_F(FileFilterTest, BoundsThatCannotBeAreRefusedWithTheDialogOpen) {
  sized("C:\\a", 1'500'000);
  rig.startLeft();
  const RefusalRow rows[] = {
      {"1", "1", "FileSize Input Data Equal !"},      {"", "", "FileSize Input Data Equal !"},
      {" 2", "2 ", "FileSize Input Data Equal !"},    {"2", "1", "FileSize Input Data Mismatch !"},
      {"one", "2", "FileSize Input Data Mismatch !"}, {"1", "2 MB", "FileSize Input Data Mismatch !"}};
  for (const auto& row : rows) {
    rig.loop.whenShows("Form6")
        .run([&](controls::Form&) {
          type(filters().Form6.Text2, "*.*");
          askSizes(filters().Form6, row.lower, row.upper);
        })
        .press("Command11")
        .run([](controls::Form& dialog) { EXPECT_TRUE(dialog.Visible); })
        .press("Command2");
    rig.loop.meets({test::noticed(row.text)});
    rig.command("Command5_Click");
    EXPECT_EQ(left().list.selectedCount(), 0u) << row.lower << " " << row.upper;
  }
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

// --- Attributes ----------------------------------------------------------------------------------------------------

TEST_F(FileFilterTest, AttributesAreExactButForArchive) {
  struct File {
    const char* name;
    platform::Attributes bits;
  };
  for (const File& file : {File{"C:\\plain", 0}, File{"C:\\ro", 1}, File{"C:\\ro-archive", 33}, File{"C:\\hidden", 2},
                           File{"C:\\system-archive", 36}, File{"C:\\ro-hidden", 3}, File{"C:\\all", 7}}) {
    rig.write(file.name);
    setAttributes(file.name, file.bits);
  }
  rig.startLeft();
  rig.menu("HidSysfiles").choose();
  struct Row {
    bool readOnly, system, hidden;
    Names selected;
    const char* tip;
  };
  const Row rows[] = {{true, false, false, {"ro", "ro-archive"}, "The filter that made the selection [RO]"},
                      {false, true, false, {"system-archive"}, "The filter that made the selection [SYS]"},
                      {false, false, true, {"hidden"}, "The filter that made the selection [HID]"},
                      {true, false, true, {"ro-hidden"}, "The filter that made the selection [RO HID]"},
                      {true, true, true, {"all"}, "The filter that made the selection [RO SYS HID]"}};
  for (const Row& row : rows) {
    fileFilter([&](Form6& dialog) {
      type(dialog.Text2, "*.*");
      set(dialog.Check1, row.readOnly);
      set(dialog.Check2, row.system);
      set(dialog.Check3, row.hidden);
    });
    EXPECT_EQ(selected(left()), row.selected);
    EXPECT_EQ(rig.menu("Filefilter").ToolTipText.get(), row.tip);
  }
}

// --- The line ------------------------------------------------------------------------------------------------------

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
