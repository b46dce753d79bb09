#include "operation_test.hpp"
#include "support/faulty_file_system.hpp"

namespace varnholt::fileops {
namespace {

using controls::MessageAnswer;

class NewFolderTest : public OperationTest {
 protected:
  void SetUp() override {
    OperationTest::SetUp();
    rig.write("C:\\From\\file", "");
    rig.makeFolder("C:\\From\\there");
    select({});
  }
  Form2& dialog() { return ops().Form2; }
  void keys(const std::string& name) {
    dialog().Text1.typeFromUser(name);
    dialog().Command11.press();
  }
};

TEST_F(NewFolderTest, NamesThatMakeNoFolderAreToldAndTheDialogStays) {
  const std::string asked = "New Folder Creation As :    C:\\From\\";
  rig.loop.whenShows("Form2").reads("Caption", "New Folder").run([&](controls::Form&) {
    EXPECT_EQ(form().mode(), "FolderMode");
    for (const char* nothing : {"", "  ", "\\"}) {
      rig.loop.whenBox("Alert !", MessageAnswer::Ok, "Please key in new Foldername !");
      keys(nothing);
    }
    rig.loop.whenBox("Alert !", MessageAnswer::Ok, "New folder already Exist !      ");
    keys("there");
    for (const char* refused : {"file", "two\\levels", "sl/ash"}) {
      rig.loop.whenBox("New Folder", MessageAnswer::Ok, asked + refused);
      rig.loop.whenBox("Alert", MessageAnswer::Ok, "Cannot Create New Folder");
      keys(refused);
    }
    rig.loop.whenBox("New Folder", MessageAnswer::Cancel, asked + "abc");
    keys("abc\\");
    EXPECT_FALSE(rig.exists("C:\\From\\abc"));
    EXPECT_TRUE(dialog().Visible);
    rig.loop.whenBox("New Folder", MessageAnswer::Ok, asked + "abc");
    keys("abc\\");
  });
  rig.command("Command11_Click");
  EXPECT_EQ(rig.names(left()), (Names{"\\ abc| ", "\\ there| ", "file|"}));
  EXPECT_FALSE(rig.app().dispatcher.busy);
}

class DesktopTest : public OperationTest {
 protected:
  void SetUp() override {
    OperationTest::SetUp();
    write({"From\\a.txt", "From\\b.txt"});
    rig.makeFolder("C:\\From\\Sub");
  }
  void useDesktop(const std::string& folder) {
    const char* const key = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
    auto& registry = rig.platform->registry;
    ASSERT_TRUE(registry.createKey(platform::RegistryRoot::CurrentUser, key));
    ASSERT_TRUE(registry.set(platform::RegistryRoot::CurrentUser, key, "Desktop", folder));
  }
};

TEST_F(DesktopTest, SelectedFilesGoThereAndAskBeforeTheyReplace) {
  useDesktop("C:\\Gone");
  select({"a"});
  start("CopyDesktop_Click", {test::noticed(".. \\Desktop Folder Do Not Exist !")}, {});
  start("Copyfrom_desktop_Click", {test::noticed(".. \\Desktop Folder Do Not Exist !")}, {});

  rig.makeFolder("C:\\Desk");
  useDesktop("C:\\Desk");
  rig.write("C:\\Desk\\b.txt", "old");
  select({"\\ Sub", "a", "b"});
  start("CopyDesktop_Click", {test::no("File:  b.txt\rAlready Exist !, OverWrite ?")},
        {test::noticed("Copy to Desktop Done !")});
  EXPECT_TRUE(rig.exists("C:\\Desk\\a.txt"));
  EXPECT_FALSE(rig.exists("C:\\Desk\\Sub"));
  EXPECT_EQ(rig.read("C:\\Desk\\b.txt"), "old");
  start("CopyDesktop_Click", {test::no(), test::yes()}, {test::noticed("Copy to Desktop Done !")});
  EXPECT_NE(rig.read("C:\\Desk\\b.txt"), "old");

  select({"\\ Sub"});
  start("CopyDesktop_Click", {test::noticed(" No Items selected. ! ")}, {});
  rig.command("Copyfrom_desktop_Click");
  EXPECT_EQ(left().path(), "C:\\Desk\\");
  EXPECT_EQ(form().Caption.get(), "Varnholt -  C:\\Desk");
}

TEST_F(DesktopTest, ACopyThatDoesNotArriveIsTold) {
  auto& faulty = use<test::FaultyFileSystem>();
  rig.makeFolder("C:\\Desk");
  useDesktop("C:\\Desk");
  write({"From\\a.txt"});
  select({"a"});
  faulty.noSpace = true;
  start("CopyDesktop_Click", {test::noticed("Copy Failed To Desktop !")}, {});
  EXPECT_FALSE(rig.exists("C:\\Desk\\a.txt"));
}

}  // namespace
}  // namespace varnholt::fileops
