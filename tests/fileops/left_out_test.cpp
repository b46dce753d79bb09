#include "operation_test.hpp"

namespace varnholt::fileops {
namespace {

class LeftOutTest : public OperationTest {
 protected:
  std::string list() { return files().readFile(rig.programFolder() + "\\LeftOut.txt").valueOr(""); }
  std::string wholeList() { return "\r\rThe whole list :  " + rig.programFolder() + "\\LeftOut.txt"; }
};

TEST_F(LeftOutTest, AMergeOverManyProtectedFilesAndAPipeTellsTheFirstTenAndListsAll) {
  std::string text = "13 Item(s) Left Out :\r\rC:\\From\\Tree\\a pipe :  a pipe, socket or device";
  for (int number = 10; number < 22; ++number) {
    const std::string name = "\\Tree\\" + std::string(60, 'n') + std::to_string(number);
    rig.write("C:\\From" + name, "new");
    rig.write("C:\\To" + name, "old");
    protect("C:\\To" + name);
    const std::string line = "\r..." + name.substr(8) + " :  the target is read-only, hidden or system";
    if (number < 19) text += line;
  }
  rig.scratch.pipe("home/From/Tree/a pipe");
  rig.write("C:\\From\\Tree\\z", "new");
  rig.write("C:\\To\\Tree\\z", "old");
  copy({"\\ Tree"}, {yes(), told(text + "\rand 3 more" + wholeList())});
  EXPECT_EQ(rig.read("C:\\To\\Tree\\z"), "new");
  EXPECT_TRUE(list().starts_with("C:\\From\\Tree\\a pipe\ta pipe, socket or device\r\n"));
  EXPECT_EQ(std::ranges::count(list(), '\n'), 13);
}

TEST_F(LeftOutTest, AFileThatCouldNotBeOverwrittenForWantOfRoomIsTold) {
  auto& files = use<test::FaultyFileSystem>();
  for (const char* name : {"a", "b"}) {
    rig.write(std::string("C:\\From\\") + name, "new");
    rig.write(std::string("C:\\To\\") + name, "old");
  }
  protect("C:\\To\\a");
  const test::Answer all{"Form7", All, "", [&] { files.noSpace = true; }};
  copy({"a", "b"}, {all, told("2 Item(s) Left Out :\r\rC:\\To\\b :  No space left on device\r"
                              "C:\\To\\a :  No space left on device")});
  EXPECT_EQ(rig.read("C:\\To\\a") + rig.read("C:\\To\\b"), "oldold");
  EXPECT_EQ(files.attributes("C:\\To\\a").valueOr(0), platform::attribute::ReadOnly);
}

/// A volume on which one file of a tree cannot be deleted.
struct Clinging : platform::ForwardingFileSystem {
  using ForwardingFileSystem::ForwardingFileSystem;
  platform::Result<void> deleteFolder(const std::string& path, bool, const platform::Progress&,
                                      platform::LeftOuts* leftOut) override {
    const platform::Error reason{platform::ErrorCode::AccessDenied, path + "\\stays", "Operation not permitted"};
    leftOut->push_back(reason);
    return reason;
  }
};

TEST_F(LeftOutTest, ADeleteThatLeavesSomethingBehindTellsItAfterItsQuestion) {
  use<Clinging>();
  write({"From\\Tree\\stays"});
  remove({"\\ Tree"}, {yes(), yes(),
                       told("1 Item(s) Left Out :\r\rC:\\From\\Tree\\stays :  Operation not permitted" + wholeList())});
}

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

TEST_F(SpaceTest, ANearlyFullTargetIsAskedAboutAndADiscIsNone) {
  room(1999, 100'000);
  copies({asksRoom("1,999")}, true);
  room(2000, 100'000);
  copies({}, true);
  room(0, 100'000);
  copies({asksRoom("", "")}, false);
  room(5, 0);
  copies({asksRoom("5")}, true);
  volume.info.fileSystem = "UDF";
  copies({told("Cannot Copy Or Move To CD-Rom/DVD-Rom !\rFunction Exits !")}, false);
  volume.info.fileSystem = "EXT4";
  room(1, 100'000);
  move({"a"});
  EXPECT_TRUE(rig.exists("C:\\To\\a.txt")) << "a move on one drive needs no room";
}

TEST_F(SpaceTest, WhatIsSelectedMustFit) {
  rig.menu("ValCopyMove").choose();
  EXPECT_EQ(rig.app().program.settings.get(core::setting::ValidateCM), "1");
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

}  // namespace
}  // namespace varnholt::fileops
