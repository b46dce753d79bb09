// What an operation could not do: the rest is done, and it is told once at the ending.
#include "operation_test.hpp"
#include "support/faulty_file_system.hpp"

#include <sys/stat.h>

namespace varnholt::fileops {
namespace {

class LeftOutTest : public OperationTest {
 protected:
  std::string list() { return rig.read(rig.programFolder() + "\\LeftOut.txt"); }
  std::string wholeList() { return "\r\rThe whole list :  " + rig.programFolder() + "\\LeftOut.txt\r"; }
  void pipe(const std::string& path) { ASSERT_EQ(::mkfifo(rig.systemPath(path).c_str(), 0600), 0); }
  template <class Files>
  Files& use() {
    Files* files = nullptr;
    rig.useFiles([&](platform::FileSystem& real) {
      auto made = std::make_unique<Files>(real);
      files = made.get();
      return made;
    });
    rig.startLeft();
    return *files;
  }
};

TEST_F(LeftOutTest, AFolderWithOnePipeArrivesButForThePipe) {
  for (int number = 0; number < 300; ++number)
    rig.write("C:\\From\\Tree\\" + std::to_string(number % 7) + "\\" + std::to_string(number));
  pipe("C:\\From\\Tree\\3\\pipe");
  select({"\\ Tree"});
  starts("Form3");
  rig.loop.whenShows("Form12")
      .reads("Label1", "1 Item(s) Left Out :\r\rC:\\From\\Tree\\3\\pipe :  a pipe, socket or device" + wholeList())
      .press("Command11");
  rig.command("Command1_Click");
  for (int number = 0; number < 300; ++number)
    EXPECT_TRUE(rig.exists("C:\\To\\Tree\\" + std::to_string(number % 7) + "\\" + std::to_string(number))) << number;
  EXPECT_EQ(list(), "C:\\From\\Tree\\3\\pipe\ta pipe, socket or device\r\n");
}

TEST_F(LeftOutTest, AMergeOverManyProtectedFilesTellsTheFirstTenAndListsAll) {
  for (int number = 10; number < 22; ++number) {
    const std::string name = "\\Tree\\" + std::string(60, 'n') + std::to_string(number);
    rig.write("C:\\From" + name, "new");
    rig.write("C:\\To" + name, "old");
    ASSERT_TRUE(files().setAttributes("C:\\To" + name, platform::attribute::ReadOnly));
  }
  rig.write("C:\\From\\Tree\\z", "new");
  rig.write("C:\\To\\Tree\\z", "old");
  select({"\\ Tree"});
  starts("Form3");
  rig.loop.whenShows("Form11").press("Command11");
  std::string text = "12 Item(s) Left Out :\r";
  for (int number = 10; number < 20; ++number)
    text += "\r..." + std::string(58, 'n') + std::to_string(number) + " :  the target is read-only, hidden or system";
  rig.loop.whenShows("Form12").reads("Label1", text + "\rand 2 more" + wholeList()).press("Command11");
  rig.command("Command1_Click");
  EXPECT_EQ(rig.read("C:\\To\\Tree\\z"), "new");
  EXPECT_EQ(std::ranges::count(list(), '\n'), 12);
}

TEST_F(LeftOutTest, AFileThatCouldNotBeOverwrittenForWantOfRoomIsTold) {
  auto& files = use<test::FaultyFileSystem>();
  for (const char* name : {"a", "b"}) {
    rig.write(std::string("C:\\From\\") + name, "new");
    rig.write(std::string("C:\\To\\") + name, "old");
  }
  ASSERT_TRUE(files.setAttributes("C:\\To\\a", platform::attribute::ReadOnly));
  select({"a", "b"});
  starts("Form3");
  rig.loop.whenShows("Form7").run([&](controls::Form&) { files.noSpace = true; }).press("Command6");
  rig.loop.whenShows("Form12")
      .reads("Label1",
             "2 Item(s) Left Out :\r\rC:\\To\\b :  No space left on device\rC:\\To\\a :  No space left on device\r")
      .press("Command11");
  rig.command("Command1_Click");
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
  rig.write("C:\\From\\Tree\\stays", "");
  select({"\\ Tree"});
  starts("Form4");
  rig.loop.whenShows("Form11").press("Command11");
  rig.loop.whenShows("Form11").press("Command11");
  rig.loop.whenShows("Form12")
      .reads("Label1", "1 Item(s) Left Out :\r\rC:\\From\\Tree\\stays :  Operation not permitted" + wholeList())
      .press("Command11");
  rig.command("Command4_Click");
}

}  // namespace
}  // namespace varnholt::fileops
