#include "support/app_rig.hpp"

namespace varnholt::tools {
namespace {

namespace fs = std::filesystem;

using platform::RegistryRoot;
using test::no;
using test::noticed;
using test::yes;

class ToolsTest : public test::AppTest {
 protected:
  void SetUp() override { rig.startLeft(); }
};

TEST_F(ToolsTest, CookiesGoWithoutTheirFoldersAndOnlyAfterAYes) {
  const std::string question = "\rYou are about to Delete All Cookie Files In Folder :C:\\Jar\r"
                               "You will Loose all information related to web sides !\rARE YOU SURE ?";
  write({"Jar\\a.txt", "Jar\\locked.txt", "Jar\\below\\b.txt", "elsewhere.txt"});
  setAttributes("C:\\Jar\\locked.txt", platform::attribute::ReadOnly);
  rig.scratch.link("home/Jar/link", rig.systemPath("C:\\elsewhere.txt"));
  rig.useShellFolder("Cookies", "C:\\Jar");
  rig.command("DelCookies_Click", {no(question)});
  EXPECT_TRUE(rig.exists("C:\\Jar\\a.txt"));
  show("C:\\Jar", "C:\\");
  rig.command("DelCookies_Click", {yes(question), noticed("All Cookie Files Deleted !")});
  EXPECT_FALSE(rig.exists("C:\\Jar\\a.txt") || rig.exists("C:\\Jar\\locked.txt") || rig.exists("C:\\Jar\\link"));
  EXPECT_EQ(rig.form().Panel1.list.count(), 1u) << "the panel shows what stays";
  EXPECT_TRUE(rig.exists("C:\\Jar\\below\\b.txt") && rig.exists("C:\\elsewhere.txt"));
  rig.command("DelCookies_Click", {yes(), noticed("No Cookies Folder Exist or NO Cookies !")});
}

TEST_F(ToolsTest, AStoredFolderThatHoldsPlacesOfTheUserIsNotCleaned) {
  write({"keep.txt"});
  for (const std::string& folder :
       {std::string("C:\\"), std::string("D:\\."), "Z:" + rig.systemPath("C:\\"), std::string("Z:\\")}) {
    std::string named = folder;
    std::ranges::replace(named, '/', '\\');
    rig.useShellFolder("Recent", named);
    rig.write("D:\\also.txt");
    rig.command("DelRecent_Click",
                {yes("\rYou are about to Delete All Recent Files In Folder :" + named + "\rARE YOU SURE ?"),
                 noticed("Folder NOT Allowed To Clean !\r" + named)});
    rig.loop.expectAllReached();
  }
  EXPECT_TRUE(rig.exists("C:\\keep.txt") && rig.exists("D:\\also.txt"));
}

TEST_F(ToolsTest, ThePrefetchFolderIsEmptiedAndALinkInItsPlaceLeadsNowhere) {
  const std::string prefetch = platform::paths::join(rig.app().program.folders.windir, "Prefetch");
  rig.command("CleanPrefetch_Click", {noticed("Prefetch Folder Do Not Exist !")});
  ASSERT_TRUE(files().createFolder(prefetch) && files().writeFile(prefetch + "\\a.pf", "x"));
  rig.command("CleanPrefetch_Click", {noticed("Prefetch Folder Cleaned !")});
  EXPECT_TRUE(files().folderExists(prefetch) && !files().fileExists(prefetch + "\\a.pf"));
  ASSERT_TRUE(files().deleteFolder(prefetch, true));
  write({"Mine\\letter.txt"});
  ASSERT_EQ(::symlink(rig.systemPath("C:\\Mine").c_str(), rig.platform->toSystem(prefetch).c_str()), 0);
  rig.command("CleanPrefetch_Click", {noticed("Prefetch Folder Cleaned !")});
  EXPECT_TRUE(rig.exists("C:\\Mine\\letter.txt"));
  EXPECT_FALSE(files().info(prefetch).valueOr({}).isLink);
}

TEST_F(ToolsTest, TheSelectionIsWrittenWithItsFieldsQuoted) {
  write({"Out\\plain.txt", "Out\\a, \"b\".txt", "Out\\=1+1", "Out\\left.txt"});
  rig.makeFolder("C:\\Out\\sub");
  for (const char* name : {"plain.txt", "a, \"b\".txt", "=1+1"})
    rig.setDate(std::string("C:\\Out\\") + name, 2007, 3, 9);
  show("C:\\Out", "C:\\");
  rig.command("CommaFile_Click", {noticed(" No Items selected. ! ")});
  clickAll({"plain", "=1+1", "a, \"b\""});
  const std::string path = rig.programFolder() + "\\ItemToFile Out.Csv";
  rig.command("CommaFile_Click", {yes("Do You Want To Print Selected Items To File As :\rItemToFile Out.Csv"),
                                  noticed("Selected Items Printed To File :\r" + path)});
  EXPECT_EQ(files().readFile(path).valueOr({}),
            "Date: 09-03-07  14:05:07\r\nSelected Items In Folder: C:\\Out\\\r\n\r\n"
            "Item Name:,ByteSize:,Date Modified:\r\n\r\n"
            "'=1+1,1,09-03-07  12:00\r\n\"a, \"\"b\"\".txt\",1,09-03-07  12:00\r\nplain.txt,1,09-03-07  12:00\r\n");
}

TEST_F(ToolsTest, TheDriveTestTellsEachDrive) {
  rig.loop.whenShows("Form17")
      .run([&](controls::Form&) {
        auto& dialog = rig.app().tools.Form17;
        EXPECT_EQ(dialog.Label1.Caption.get(), "C:\\");
        EXPECT_NE(dialog.Label2.Caption.get().find("  |  SN:  "), std::string::npos);
        ASSERT_EQ(dialog.MSChart1.Values->size(), 2u);
        EXPECT_GT(dialog.MSChart1.Values.get()[0].number, 0);
        EXPECT_TRUE(dialog.Label7.Caption.get().ends_with(" Bytes"));
        rig.drives->freeBytes = {{'C', 1'499'999'999}, {'Z', 0}};
        fs::remove_all(rig.systemPath("D:\\"));
        rig.loop.whenBox("Drive Test Result", controls::MessageAnswer::Ok,
                         "\rC:\\  ...  Drive Is Ready !             [ 1,500 MB Free ]"
                         "\rD:\\  ...  Drive Not Ready !         "
                         "\rZ:\\  ...  Drive Is Ready !             [ NA ]");
        dialog.Command1.press();
      })
      .press("Command3");
  rig.command("DiskInfo_Click");
}

class UsageTest : public ToolsTest {
 protected:
  void SetUp() override {
    ToolsTest::SetUp();
    rig.write("C:\\U\\big.bin", std::string(5000, 'x'));
    rig.write("C:\\U\\none.txt", "");
    rig.write("C:\\U\\one.txt", "1");
    rig.write("C:\\U\\sub\\a.bin", std::string(700, 'x'));
    rig.write("C:\\U\\sub\\deep\\b.bin", std::string(7, 'x'));
    rig.scratch.hardLink("home/U/sub/again.bin", "home/U/big.bin");
    show("C:\\U", "C:\\");
  }
  Form45& dialog() { return rig.app().tools.Form45; }
  Names rows() { return test::rowsOf(dialog().ListView1, 2); }
};

TEST_F(UsageTest, FollowsTheSelectionAndCountsAFileOfTwoNamesOnce) {
  clickAll({"\\ sub", "big", "none", "one"});
  rig.command("DiskGraH_Click");
  EXPECT_EQ(rows(), (Names{"\\ sub|5,707", "big.bin|0", "none.txt|0", "one.txt|1"}));
  EXPECT_EQ(dialog().Caption.get(), "Disk Usage In Graphics, - 4 Item(s)");
  EXPECT_EQ(dialog().Label3.Caption.get() + "," + dialog().Label4.Caption.get(), "\\ sub,big.bin");
  EXPECT_EQ(dialog().MSChart1.Values.get()[0].number, 5707);

  dialog().ListView1.headerFromUser(2);
  EXPECT_EQ(dialog().ListView1.cell(3, 0), "\\ sub");
  dialog().MSChart1.selectFromUser(0);
  EXPECT_EQ(dialog().ListView1.focusedRow(), 3u);
  EXPECT_EQ(dialog().StatusBar1.panel(1) + "," + dialog().StatusBar1.panel(2), "\\ sub,5,707 Bytes");
  dialog().Label4.Click();
  EXPECT_EQ(dialog().MSChart1.SelectedPoint.get(), 1);

  rig.write("C:\\U\\zero.txt", "");
  show("C:\\U", "C:\\");
  clickAll({"none", "zero"});
  EXPECT_EQ(dialog().Label3.Caption.get() + dialog().Label4.Caption.get(), "") << "the largest of nothing";
  clickAll({"none"});
  EXPECT_EQ(dialog().Caption.get(), "Disk Usage In Graphics, - Please Select More Than One Item !");
  EXPECT_TRUE(rows().empty() && dialog().MSChart1.Values->empty() && !dialog().Command1.Enabled);
}

TEST_F(UsageTest, GoesToAnItemOrSaysThatItIsGone) {
  clickAll({"\\ sub", "none"});
  rig.command("DiskGraH_Click");
  dialog().Command4.press();
  EXPECT_EQ(left().path(), "C:\\U\\sub\\") << "the first item is in hand";
  dialog().MSChart1.selectFromUser(1);
  ASSERT_TRUE(files().deleteFile("C:\\U\\none.txt", true));
  rig.loop.meets({test::told("File/Folder Path NOT Valid, - Make New Selection!")});
  dialog().Command4.press();
  rig.loop.meets({test::told("File/Folder Path NOT Valid!, - Make New Selection.")});
  dialog().ListView1.doubleClickFromUser(dialog().ListView1.focusedRow());
  EXPECT_EQ(rows().size(), 2u);
}

class NetworkingTest : public ToolsTest {
 protected:
  static constexpr const char* Tcp = "SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters";
  static constexpr const char* Work = "SYSTEM\\CurrentControlSet\\Services\\lanmanworkstation\\parameters";
  Form31& dialog() { return rig.app().tools.Form31; }
  std::uint32_t stored(const char* key, const char* name) {
    const auto value = rig.platform->registry.get(RegistryRoot::LocalMachine, key, name);
    return value ? std::get<std::uint32_t>(*value) : 0;
  }
  void open(const std::function<void()>& act, const std::vector<test::Answer>& answers = {},
            const char* leaves = "Command2") {
    inDialog("NetOp_Click", "Form31", act, answers, leaves);
  }
};

TEST_F(NetworkingTest, AConnectionTypeSetsItsValuesAndAllAreWritten) {
  open([&] {
    EXPECT_EQ(dialog().Label10.Caption.get() + dialog().Label14.Caption.get(),
              "Current Value = Not PresentCurrent Value = Not Present");
    EXPECT_TRUE(dialog().Check103.Value && dialog().Slider4.Enabled && dialog().Slider4.Value == 0);
    dialog().Label101.Click();
    EXPECT_FALSE(dialog().Check103.Value || dialog().Slider5.Enabled);
  });
  EXPECT_EQ(stored(Tcp, "MTU"), 0u);

  const auto chooses = [&] {
    dialog().Slider1.slideFromUser(20);
    dialog().Check102.toggleFromUser();
    dialog().Check104.toggleFromUser();
  };
  open(chooses,
       {noticed("MaxCmds = 20"), noticed("MaxThreads = 0"), noticed("MaxCollectionCount = 0"),
        noticed("TCPWindowSize = 256960"), noticed("GlobalMaxTcpWindowSize = 256960"), noticed("MTU = 1480"),
        noticed("Tcp1323Opts = 1"), noticed("EnablePMTUDiscovery = 0")},
       "Command11");
  EXPECT_EQ(stored(Work, "MaxCmds"), 20u);
  EXPECT_EQ(stored(Tcp, "GlobalMaxTcpWindowSize"), 256960u);

  open([&] {
    EXPECT_TRUE(dialog().Check102.Value && dialog().Check104.Value && !dialog().Check105.Value);
    EXPECT_EQ(dialog().Label10.Caption.get(), "Current Value = 20");
    dialog().Slider1.slideFromUser(7);
    dialog().Command1.press();
    EXPECT_EQ(dialog().Slider1.Value.get(), 20);
  });
}

}  // namespace
}  // namespace varnholt::tools
