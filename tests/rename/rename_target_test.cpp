#include "rename_test.hpp"

namespace varnholt::rename {
namespace {

class RenameForOthersTest : public RenameTest {
 protected:
  void inTheWay(const std::vector<std::string>& names) {
    make(names);
    for (const std::string& name : names)
      rig.write("C:\\Other\\" + name, "old " + name);
  }
  void copies(const Action& inRename) {
    rig.loop.whenShows("Form3").press("Command11");
    rig.loop.whenShows("Form7").press("Command4");
    rig.loop.whenShows("Form14").run([inRename](controls::Form&) { inRename(); });
  }
  std::string other(const std::string& name) { return rig.read("C:\\Other\\" + name); }
};

TEST_F(RenameForOthersTest, ATargetGoesOutOfTheWayOfACopy) {
  inTheWay({"a.txt", "b.txt", "c.txt"});
  select({"a", "b", "c"});
  copies([&] {
    EXPECT_EQ(dialog().Caption.get() + "|" + dialog().Text1.Text.get(), "Rename Target File|c.txt");
    EXPECT_FALSE(dialog().Image1.Visible || dialog().Command5.Enabled);
    EXPECT_EQ(rig.form().mode(), "RenameMode");
    next("kept.txt");
    EXPECT_FALSE(dialog().Visible);
    EXPECT_EQ(rig.form().mode(), "RenameMode");
  });
  // The running copy goes on as it was.
  rig.loop.whenShows("Form7").reads("Label1", "Source FileName:     b.txt").press("Command11");
  rig.loop.whenShows("Form7").reads("Label1", "Source FileName:     a.txt").press("Command1");
  rig.command("Command1_Click");
  EXPECT_EQ(other("kept.txt") + other("c.txt"), "old c.txtc.txt");
  EXPECT_EQ(other("b.txt") + other("a.txt"), "b.txtold a.txt");
  EXPECT_EQ(rig.form().mode(), "CopyMode");
}

TEST_F(RenameForOthersTest, ACancelledOneLeavesBothFiles) {
  inTheWay({"a.txt", "b.txt"});
  for (const bool byBox : {false, true}) {
    select({"a", "b"});
    copies([&] { byBox ? dialog().closeFromUser() : dialog().Command2.press(); });
    rig.loop.whenShows("Form7").reads("Label1", "Source FileName:     a.txt").press("Command1");
    rig.command("Command1_Click");
    EXPECT_EQ(other("b.txt") + contents("b.txt"), "old b.txtb.txt");
  }
}

TEST_F(RenameForOthersTest, ANameThatIsTakenTooIsAskedAboutWithoutEnd) {
  inTheWay({"a.txt", "b.txt"});
  rig.write("C:\\Other\\kept.txt", "older");
  select({"a", "b"});
  copies([&] {
    rig.loop.whenShows("Form7")
        .reads("Label3", "With File:     kept.txt")
        .run([&](controls::Form&) { EXPECT_FALSE(rig.app().fileops.Form7.Command4.Enabled); })
        .press("Command6");
    rig.loop.whenShows("Form7").reads("Label1", "Source FileName:     a.txt").press("Command1");
    next("kept.txt");
  });
  rig.command("Command1_Click");
  EXPECT_EQ(other("kept.txt") + other("b.txt"), "old b.txtb.txt");
  EXPECT_EQ(other("a.txt"), "old a.txt") << "\"All\" was said of the rename, not of the copy";
}

}  // namespace
}  // namespace varnholt::rename
