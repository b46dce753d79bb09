// What an operation could not do: the rest is done, and it is told once at the ending.
#include "operation_test.hpp"
#include "support/faulty_file_system.hpp"

#include <sys/stat.h>

namespace varnholt::fileops {
namespace {

class LeftOutTest : public OperationTest {
 protected:
  std::string list() { return files().readFile(rig.programFolder() + "\\LeftOut.txt").valueOr(""); }
  std::string wholeList() { return "\r\rThe whole list :  " + rig.programFolder() + "\\LeftOut.txt"; }
};

TEST_F(LeftOutTest, AFolderWithOnePipeArrivesButForThePipe) {
  const auto name = [](int number) { return "\\Tree\\" + std::to_string(number % 7) + "\\" + std::to_string(number); };
  for (int number = 0; number < 300; ++number)
    rig.write("C:\\From" + name(number));
  ASSERT_EQ(::mkfifo(rig.systemPath("C:\\From\\Tree\\3\\pipe").c_str(), 0600), 0);
  copy({"\\ Tree"},
       {told("1 Item(s) Left Out :\r\rC:\\From\\Tree\\3\\pipe :  a pipe, socket or device" + wholeList())});
  for (int number = 0; number < 300; ++number)
    EXPECT_TRUE(rig.exists("C:\\To" + name(number))) << number;
  EXPECT_EQ(list(), "C:\\From\\Tree\\3\\pipe\ta pipe, socket or device\r\n");
}

TEST_F(LeftOutTest, AMergeOverManyProtectedFilesTellsTheFirstTenAndListsAll) {
  std::string text = "12 Item(s) Left Out :\r";
  for (int number = 10; number < 22; ++number) {
    const std::string name = "\\Tree\\" + std::string(60, 'n') + std::to_string(number);
    rig.write("C:\\From" + name, "new");
    rig.write("C:\\To" + name, "old");
    protect("C:\\To" + name);
    const std::string line = "\r..." + name.substr(8) + " :  the target is read-only, hidden or system";
    if (number < 20) text += line;
  }
  rig.write("C:\\From\\Tree\\z", "new");
  rig.write("C:\\To\\Tree\\z", "old");
  copy({"\\ Tree"}, {yes(), told(text + "\rand 2 more" + wholeList())});
  EXPECT_EQ(rig.read("C:\\To\\Tree\\z"), "new");
  EXPECT_EQ(std::ranges::count(list(), '\n'), 12);
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

}  // namespace
}  // namespace varnholt::fileops
