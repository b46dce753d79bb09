// What the View Filter keeps out of the panels.
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

TEST_F(ViewFilterTest, AllFilesSwitchItOff) {
  rig.startLeft();
  viewFilter([](Form25& dialog) { type(dialog.Text2, "*.*"); });
  EXPECT_EQ(files(left()), (Names{"a.txt", "b.doc", "c.jpg"})) << "a name without a point has none to match";
  rig.menu("Viewall").choose();
  EXPECT_EQ(files(left()).size(), 4u);
  EXPECT_FALSE(rig.menu("Viewfilter").Accented || rig.menu("Viewuser").Checked);
  EXPECT_EQ(rig.menu("Viewfilter").Caption.get(), "|  View Filter:  All Files  (*.*) - Excl. Hidden and System Files.");
}

TEST_F(ViewFilterTest, ItStaysOnThroughListingsAndHiddenFiles) {
  rig.write("C:\\hidden.txt");
  setAttributes("C:\\hidden.txt", 2);
  rig.startLeft();
  viewFilter([](Form25& dialog) { type(dialog.Text2, "*.txt"); });
  write({"new.txt", "new.doc"});
  rig.menu("refrechview").choose();
  EXPECT_EQ(files(left()), (Names{"a.txt", "new.txt"}));
  rig.menu("HidSysfiles").choose();
  EXPECT_EQ(files(left()), (Names{"a.txt", "hidden.txt", "new.txt"}));
  EXPECT_EQ(rig.menu("Viewfilter").Caption.get(), "|  View Filter: *.txt");
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
  rig.loop.whenShows("Form25")
      .run([this](controls::Form&) { type(filters().Form25.Text2, ""); })
      .press("Command11")
      .run([this](controls::Form& dialog) {
        EXPECT_TRUE(dialog.Visible);
        type(filters().Form25.Text2, "*.txt");
        askSizes(filters().Form25, "1", "1");
      })
      .press("Command11")
      .run([](controls::Form& dialog) { EXPECT_TRUE(dialog.Visible); })
      .press("Command2");
  rig.loop.meets({test::noticed("Key In FilePattern Please !!")});
  rig.loop.meets({test::noticed("FileSize Input Data Equal !")});
  rig.menu("Viewuser").choose();
  EXPECT_EQ(files(left()).size(), 4u) << "no filter has been given: all files show";

  viewFilter([](Form25& dialog) {
    type(dialog.Text2, "*.txt");
    set(dialog.Check4, false);
  });
  rig.loop.whenShows("Form25")
      .reads("Text2", "*.txt")
      .run([this](controls::Form&) { type(filters().Form25.Text2, "*.jpg"); })
      .press("Command2");
  rig.menu("Viewuser").choose();
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

}  // namespace
}  // namespace varnholt::filters
