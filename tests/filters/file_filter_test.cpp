// What the File Filter selects, and what it tells.
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

TEST_F(FileFilterTest, BothBoundsAreStrictNumbersOfTheRegionAndRefusedWhenNothingCanLieBetween) {
  for (const auto& [name, bytes] :
       {std::pair{"a", 0}, {"b", 999'999}, {"c", 1'000'000}, {"d", 1'000'001}, {"e", 1'500'000}, {"f", 2'000'000}})
    sized(std::string("C:\\") + name, static_cast<std::uint64_t>(bytes));
  rig.startLeft();
  const char* const equal = "FileSize Input Data Equal !";
  const char* const mismatch = "FileSize Input Data Mismatch !";
  const std::tuple<const char*, const char*, const char*, Names, std::string> rows[] = {
      {"1", "2", ".", {"d", "e"}, ""},
      {" 1 ", "", ".", {"d", "e", "f"}, ""},
      {"", "1", ".", {"a", "b"}, ""},
      {"0", "1.000001", ".", {"b", "c"}, ""},
      {"-1", "0.5", ".", {"a"}, ""},
      {"0,999999", "1,500001", ",", {"c", "d", "e"}, ""},
      {"0.999999", "1,5", ",", {}, mismatch},
      {"1", "1", ".", {}, equal},
      {"", "", ".", {}, equal},
      {" 2", "2 ", ".", {}, equal},
      {"2", "1", ".", {}, mismatch},
      {"one", "2", ".", {}, mismatch},
      {"1", "2 MB", ".", {}, mismatch}};
  for (const auto& [lower, upper, sign, names, refusal] : rows) {
    SCOPED_TRACE(std::string(lower) + " < X < " + upper);
    rig.platform->regional.decimalSign = sign;
    left().list.selectNone();
    rig.app().selection.resetcollect();
    rig.loop.whenShows("Form6")
        .run([&, lower = lower, upper = upper](controls::Form&) {
          type(filters().Form6.Text2, "*.*");
          askSizes(filters().Form6, lower, upper);
        })
        .press("Command11")
        .run([isRefused = !refusal.empty()](controls::Form& dialog) {
          EXPECT_EQ(dialog.Visible.get(), isRefused);
          dialog.Hide();
        });
    if (!refusal.empty()) rig.loop.meets({test::noticed(refusal)});
    rig.command("Command5_Click");
    EXPECT_EQ(selected(left()), names);
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

TEST_F(FileFilterTest, AttributesAreExactButForArchive) {
  for (const auto& [name, bits] : {std::pair{"C:\\plain", 0u},
                                   {"C:\\ro", 1},
                                   {"C:\\ro-archive", 33},
                                   {"C:\\hidden", 2},
                                   {"C:\\system-archive", 36},
                                   {"C:\\ro-hidden", 3},
                                   {"C:\\all", 7}}) {
    rig.write(name);
    setAttributes(name, bits);
  }
  rig.startLeft();
  rig.menu("HidSysfiles").choose();
  const std::tuple<bool, bool, bool, Names, std::string> rows[] = {{true, false, false, {"ro", "ro-archive"}, "RO"},
                                                                   {false, true, false, {"system-archive"}, "SYS"},
                                                                   {false, false, true, {"hidden"}, "HID"},
                                                                   {true, false, true, {"ro-hidden"}, "RO HID"},
                                                                   {true, true, true, {"all"}, "RO SYS HID"}};
  for (const auto& [readOnly, system, hidden, names, tip] : rows) {
    fileFilter([&, readOnly = readOnly, system = system, hidden = hidden](Form6& dialog) {
      type(dialog.Text2, "*.*");
      set(dialog.Check1, readOnly);
      set(dialog.Check2, system);
      set(dialog.Check3, hidden);
    });
    EXPECT_EQ(selected(left()), names);
    EXPECT_EQ(rig.menu("Filefilter").ToolTipText.get(), "The filter that made the selection [" + tip + "]");
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
