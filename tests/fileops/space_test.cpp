#include "operation_test.hpp"
#include "platform/forwarding_file_system.hpp"

namespace varnholt::fileops {
namespace {

/// A volume with as much room as a test wants, over the real one.
class SpaceTest : public OperationTest {
 protected:
  /// Answers for all paths with this room.
  struct Volume : platform::ForwardingFileSystem {
    using ForwardingFileSystem::ForwardingFileSystem;
    platform::Result<platform::DriveInfo> volume(const std::string&) const override { return info; }
    platform::DriveInfo info{};
  };
  void SetUp() override {
    rig.useFiles([this](platform::FileSystem& real) {
      auto made = std::make_unique<Volume>(real);
      volume = made.get();
      return made;
    });
    OperationTest::SetUp();
    volume->info.ready = true;
    room(1'000'000, 1'000'000);
    rig.write("C:\\From\\a.txt", std::string(1000, 'x'));
  }
  void room(std::uint64_t available, std::uint64_t total) {
    volume->info.availableBytes = volume->info.freeBytes = available;
    volume->info.totalBytes = total;
  }
  test::ScriptedLoop::Step& asksRoom(const std::string& bytes) {
    return rig.loop.whenShows("Form11").reads(
        "Label1", "Critical DiskSpace < 1% Available ! (" + bytes +
                      " Bytes)\rConsider Your Copy Or Move Command !\r\rOk = Continue, Cancel = Exit Function");
  }
  void copies(bool expected) {
    rig.command("Command1_Click");
    EXPECT_EQ(rig.exists("C:\\To\\a.txt"), expected);
    (void)files().deleteFile("C:\\To\\a.txt", true);
    select({"a"});
  }

  Volume* volume = nullptr;
};

TEST_F(SpaceTest, ANearlyFullTargetIsAskedAbout) {
  struct Case {
    std::uint64_t available, total;
    std::string asks;  // empty: no question
  };
  for (const Case& each :
       {Case{1999, 100'000, "1,999"}, Case{2000, 100'000, ""}, Case{0, 100'000, ""}, Case{5, 0, "5"}}) {
    room(each.available, each.total);
    select({"a"});
    starts("Form3");
    if (each.available == 0)
      asksRoom("").closes();
    else if (!each.asks.empty())
      asksRoom(each.asks).press("Command11");
    copies(each.available != 0);
  }

  room(1, 100'000);
  starts("Form5");
  rig.command("Command3_Click");
  EXPECT_TRUE(rig.exists("C:\\To\\a.txt")) << "a move on one drive needs no room";
}

TEST_F(SpaceTest, ADiscIsNoTarget) {
  volume->info.fileSystem = "UDF";
  select({"a"});
  starts("Form3");
  rig.loop.whenShows("Form12")
      .reads("Label1", "Cannot Copy Or Move To CD-Rom/DVD-Rom !\rFunction Exits !\r")
      .press("Command11");
  copies(false);
}

TEST_F(SpaceTest, WhatIsSelectedMustFit) {
  rig.menu("ValCopyMove").choose();
  EXPECT_EQ(rig.app().program.settings.get(core::setting::ValidateCM), "-1");
  rig.write("C:\\From\\Sub\\deep\\b", std::string(3000, 'x'));
  struct Case {
    std::uint64_t available;
    std::uint64_t fileThere, folderThere;  // bytes that stand on the target already
    bool fits;
  };
  for (const Case& each : {Case{4000, 0, 0, false}, Case{4001, 0, 0, true}, Case{3900, 100, 0, false},
                           Case{3901, 100, 0, true}, Case{3001, 5000, 0, true}, Case{1001, 0, 9000, true}}) {
    if (each.fileThere) rig.write("C:\\To\\a.txt", std::string(each.fileThere, 'o'));
    if (each.folderThere) rig.write("C:\\To\\Sub\\o", std::string(each.folderThere, 'o'));
    room(each.available, 10);
    select({"a", "\\ Sub"});
    starts("Form3");
    if (each.fits && each.fileThere) rig.loop.whenShows("Form7").press("Command11");
    if (each.fits && each.folderThere) rig.loop.whenShows("Form11").press("Command11");
    if (!each.fits)
      rig.loop.whenShows("Form12")
          .reads("Label1", "Insufficient Free Space On Target Drive !\rFurther Operation is Canceled!\r")
          .press("Command11");
    rig.command("Command1_Click");
    EXPECT_EQ(rig.exists("C:\\To\\Sub\\deep\\b"), each.fits) << each.available;
    (void)files().deleteFile("C:\\To\\a.txt", true);
    (void)files().deleteFolder("C:\\To\\Sub", true);
  }
}

TEST_F(SpaceTest, WithoutANumberNothingIsValidated) {
  rig.menu("ValCopyMove").choose();
  room(0, 0);
  select({"a"});
  starts("Form3");
  asksRoom("").press("Command11");
  rig.loop.whenShows("Form12").reads("Label1", "Cannot Validate DiskSpace !\r").press("Command11");
  copies(true);
}

TEST_F(SpaceTest, TheSizeOfTheSelectionIsToldInTheDialog) {
  rig.write("C:\\From\\Sub\\b", std::string(3000, 'x'));
  select({"a", "\\ Sub"});
  rig.loop.whenShows("Form3")
      .press("Command3")
      .reads("Label4", "Size of selected Item(s) :  4,000   Bytes")
      .press("Command2");
  rig.command("Command1_Click");
}

TEST(FreeSpaceText, InMegabytesOrKilobytes) {
  const platform::RegionalFormats regional;
  const auto text = [&](std::uint64_t bytes) {
    platform::DriveInfo drive;
    drive.ready = true;
    drive.freeBytes = bytes;
    return FreeSpaceText(drive, regional);
  };
  EXPECT_EQ(text(12'345'678'901), "[ 12,345 MB Free ]");
  EXPECT_EQ(text(1'000'000), "[ 1 MB Free ]");
  EXPECT_EQ(text(999'999), "[ 999 KB Free ]");
  EXPECT_EQ(FreeSpaceText(platform::Error{}, regional), "[ NA ]");
}

}  // namespace
}  // namespace varnholt::fileops
