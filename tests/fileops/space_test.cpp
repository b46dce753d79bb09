#include "operation_test.hpp"
#include "platform/forwarding_file_system.hpp"

namespace varnholt::fileops {
namespace {

/// A volume with as much room as a test wants, over the real one.
struct Volume : platform::ForwardingFileSystem {
  using ForwardingFileSystem::ForwardingFileSystem;
  platform::Result<platform::DriveInfo> volume(const std::string&) const override { return info; }
  platform::DriveInfo info{};
};

class SpaceTest : public OperationTest {
 protected:
  void SetUp() override {
    volume.info.ready = true;
    room(1'000'000, 1'000'000);
    rig.write("C:\\From\\a.txt", std::string(1000, 'x'));
    rig.write("C:\\From\\Sub\\deep\\b", std::string(3000, 'x'));
  }
  void room(std::uint64_t available, std::uint64_t total) {
    volume.info.availableBytes = volume.info.freeBytes = available;
    volume.info.totalBytes = total;
  }
  static test::Answer asksRoom(const std::string& bytes, const char* button = "Command11") {
    return {"Form11", button,
            "Critical DiskSpace < 1% Available ! (" + bytes +
                " Bytes)\rConsider Your Copy Or Move Command !\r\rOk = Continue, Cancel = Exit Function"};
  }
  void copies(const Answers& answers, bool expected) {
    copy({"a"}, answers);
    EXPECT_EQ(rig.exists("C:\\To\\a.txt"), expected);
    (void)files().deleteFile("C:\\To\\a.txt", true);
  }
  Volume& volume = use<Volume>();
};

TEST_F(SpaceTest, ANearlyFullTargetIsAskedAbout) {
  room(1999, 100'000);
  copies({asksRoom("1,999")}, true);
  room(2000, 100'000);
  copies({}, true);
  room(0, 100'000);
  copies({asksRoom("", "")}, false);
  room(5, 0);
  copies({asksRoom("5")}, true);
  room(1, 100'000);
  move({"a"});
  EXPECT_TRUE(rig.exists("C:\\To\\a.txt")) << "a move on one drive needs no room";
}

TEST_F(SpaceTest, ADiscIsNoTarget) {
  volume.info.fileSystem = "UDF";
  copies({told("Cannot Copy Or Move To CD-Rom/DVD-Rom !\rFunction Exits !")}, false);
}

TEST_F(SpaceTest, WhatIsSelectedMustFit) {
  rig.menu("ValCopyMove").choose();
  EXPECT_EQ(rig.app().program.settings.get(core::setting::ValidateCM), "-1");
  // Bytes that are free, those of the file and of the folder that stand on the target already, and whether it fits.
  for (const auto& [available, file, folder, fits] : {std::tuple{4000u, 0u, 0u, false},
                                                      {4001, 0, 0, true},
                                                      {3900, 100, 0, false},
                                                      {3901, 100, 0, true},
                                                      {3001, 5000, 0, true},
                                                      {1001, 0, 9000, true}}) {
    if (file) rig.write("C:\\To\\a.txt", std::string(file, 'o'));
    if (folder) rig.write("C:\\To\\Sub\\o", std::string(folder, 'o'));
    room(available, 10);
    Answers answers;
    if (fits && file) answers.push_back(existing(ThisOne));
    if (fits && folder) answers.push_back(yes());
    if (!fits) answers.push_back(told("Insufficient Free Space On Target Drive !\rFurther Operation is Canceled!"));
    copy({"a", "\\ Sub"}, answers);
    EXPECT_EQ(rig.exists("C:\\To\\Sub\\deep\\b"), fits) << available;
    (void)files().deleteFile("C:\\To\\a.txt", true);
    (void)files().deleteFolder("C:\\To\\Sub", true);
  }
  room(0, 0);
  copies({asksRoom(""), told("Cannot Validate DiskSpace !")}, true);
}

TEST(FreeSpaceText, InMegabytesOrKilobytes) {
  const platform::RegionalFormats regional;
  for (const auto& [bytes, text] : {std::pair{12'345'678'901ull, "[ 12,345 MB Free ]"},
                                    {1'000'000ull, "[ 1 MB Free ]"},
                                    {999'999ull, "[ 999 KB Free ]"}}) {
    platform::DriveInfo drive;
    drive.ready = true;
    drive.freeBytes = bytes;
    EXPECT_EQ(FreeSpaceText(drive, regional), text);
  }
  EXPECT_EQ(FreeSpaceText(platform::Error{}, regional), "[ NA ]");
}

}  // namespace
}  // namespace varnholt::fileops
