#include "support/app_rig.hpp"
#include "support/mutations.hpp"

namespace varnholt::places {
namespace {

class OpenedItemsTest : public test::AppTest {
 protected:
  void SetUp() override {
    shell = &rig.useRecordingShell();
    rig.makeFolder("C:\\Work");
    write({"Work\\a.txt", "Work\\b.txt"});
    rig.startLeft();
  }
  OpenedItems& opened() { return rig.app().openedItems; }
  std::string file(const char* name) { return rig.programFolder() + name; }
  std::string kept(const char* name) { return files().readFile(file(name)).valueOr("none"); }
  /// The next start, after this run has come to its end.
  void startAgain() {
    rig.app().state.StoreProgramState();
    shell = &rig.useRecordingShell();
    rig.startLeft();
  }
  /// What explorer.exe has been handed last, if anything.
  std::string handed() {
    if (shell->started.empty()) return "";
    EXPECT_TRUE(shell->started.back().first.ends_with("explorer.exe\" \"" + file("\\Temp.Url") + "\""));
    shell->started.clear();
    return kept("\\Temp.Url");
  }
  static std::string shortcut(const std::string& base, const std::string& url) {
    return "[Default]\r\nBASEURL=" + base + "\r\n[InternetShortcut]\r\nURL=" + url + "\r\n";
  }
  static Names items(const controls::ComboBox& box) {
    Names texts;
    for (const auto& item : box.Items.get())
      texts.push_back(item.text);
    return texts;
  }

  void inRecent(const std::function<void(Form28&)>& acts, const std::vector<test::Answer>& answers = {}) {
    inDialog(
        "Recent_Files_Click", "Form28", [this, acts] { acts(opened().Form28); }, answers);
  }
  void inOpen(const std::function<void(Form29&)>& acts, const std::vector<test::Answer>& answers = {}) {
    inDialog(
        "OpenItem_Click", "Form29", [this, acts] { acts(opened().Form29); }, answers);
  }
  void openItem(const std::string& text) {
    inOpen([text](Form29& dialog) {
      dialog.Combo1.typeFromUser(text);
      dialog.Command11.press();
      EXPECT_FALSE(dialog.Visible) << text;
    });
  }
  Names mostUsed() {
    Names rows;
    for (const auto& entry : rig.app().mostUsed.entries)
      rows.push_back(std::to_string(entry.hits) + " " + entry.path());
    return rows;
  }

  test::RecordingShell* shell = nullptr;
};

TEST_F(OpenedItemsTest, OpensAddressesFilesAndFoldersByTheirText) {
  for (const auto& [typed, address] : {std::pair{"www.example.org/a:b", "http://www.example.org/a:b"},
                                       {"WWW.example.org", "http://WWW.example.org"},
                                       {"https://example.org", "https://example.org"}}) {
    openItem(typed);
    EXPECT_EQ(handed(), shortcut(address, address));
  }
  openItem(" c:\\work\\A.TXT ");
  EXPECT_EQ(handed(), shortcut("file://C:\\Work\\a.txt", "file:///C:\\Work\\a.txt"));
  EXPECT_EQ(mostUsed(), Names{"1 C:\\Work\\a.txt"});
  openItem("D:");
  openItem("C:\\WORK");
  EXPECT_EQ(left().path(), "C:\\Work\\");
  EXPECT_EQ(rig.app().histories.folders.entries().back(), "C:\\Work\\");
  inOpen([](Form29& dialog) {
    EXPECT_EQ(dialog.Combo1.Text.get(), "Address...");
    EXPECT_EQ(items(dialog.Combo1), (Names{"C:\\WORK", "D:", "c:\\work\\A.TXT", "https://example.org",
                                           "WWW.example.org", "www.example.org/a:b"}));
  });
}

TEST_F(OpenedItemsTest, WhatCannotBeOpenedIsToldAndNotKept) {
  const auto refused = [this](const char* typed, const char* told) {
    const auto types = [typed](Form29& dialog) {
      dialog.Combo1.typeFromUser(typed);
      dialog.Command11.press();
      EXPECT_TRUE(dialog.Visible) << typed;
    };
    inOpen(types, {test::told(told)});
  };
  for (const auto& [typed, told] : {std::pair{"Address...", "Invalid Input, - [: or \\] missing !"},
                                    {"", "Invalid Input, - [: or \\] missing !"},
                                    {"ftp://example.org", "Invalid keyword, - Item Do Not Exist !"},
                                    {"C:\\Work\\gone", "Invalid keyword, - Item Do Not Exist !"},
                                    {"C:\\\\\\gone", "Invalid Input, - To many [ \\ ]  !"}})
    refused(typed, told);
  auto& faulty = rig.use<test::FaultyFileSystem>();
  rig.startLeft();
  faulty.vanishes = rig.app().program.folders.windir + "explorer.exe";
  refused("www.example.org", "..\\Explorer.exe, - Do Not Exist !");
  inOpen([](Form29& dialog) { EXPECT_EQ(items(dialog.Combo1), Names{}); });
}

TEST_F(OpenedItemsTest, TheNewestAddressLeadsTheFileAndEachStandsThereOnce) {
  for (const char* typed : {"www.a", "www.b", "WWW.A"})
    openItem(typed);
  startAgain();
  EXPECT_EQ(kept("\\OpenHis.Dat"), "WWW.A\r\nwww.b\r\n");
  openItem("www.b");
  startAgain();
  EXPECT_EQ(kept("\\OpenHis.Dat"), "www.b\r\nWWW.A\r\n");
  inOpen([](Form29& dialog) {
    dialog.Combo1.chooseFromUser(0);
    dialog.Command4.press();
    EXPECT_EQ(dialog.Combo1.Text.get(), "");
    EXPECT_EQ(items(dialog.Combo1), Names{"WWW.A"});
  });
  startAgain();
  EXPECT_EQ(kept("\\OpenHis.Dat"), "WWW.A\r\n");
  inOpen([](Form29& dialog) { dialog.Command3.press(); }, {test::noticed("Open Items Cleared In Memory !")});
  startAgain();
  EXPECT_EQ(kept("\\OpenHis.Dat"), "");
}

TEST_F(OpenedItemsTest, ARecentFileIsOpenedAndBecomesTheNewest) {
  for (const char* path : {"C:\\Work\\a.txt", "C:\\Work\\b.txt"})
    rig.app().opener.Filehis_store(path);
  inRecent([](Form28& dialog) {
    EXPECT_EQ(items(dialog.ImageCombo1), (Names{"C:\\Work\\b.txt", "C:\\Work\\a.txt"}));
    dialog.ImageCombo1.chooseFromUser(1);
    dialog.Command11.press();
    EXPECT_FALSE(dialog.Visible);
  });
  EXPECT_EQ(handed(), shortcut("file://C:\\Work\\a.txt", "file:///C:\\Work\\a.txt"));
  EXPECT_EQ(mostUsed(), Names{"1 C:\\Work\\a.txt"});
  startAgain();
  EXPECT_EQ(kept("\\FileHis.Dat"), "C:\\Work\\b.txt\r\nC:\\Work\\a.txt\r\n");
}

TEST_F(OpenedItemsTest, ARecentFileIsGoneToAndOneThatIsGoneLeavesTheList) {
  for (const char* path : {"C:\\Work\\a.txt", "C:\\Work\\gone"})
    rig.app().opener.Filehis_store(path);
  const auto goes = [](Form28& dialog) {
    dialog.Command3.press();
    dialog.Command11.press();
    EXPECT_EQ(items(dialog.ImageCombo1), Names{"C:\\Work\\a.txt"});
    dialog.Command3.press();
    EXPECT_FALSE(dialog.Visible);
  };
  inRecent(goes, {test::told("File Path NOT Valid !"), test::told("File Do Not Exist !, - Removes From List.")});
  EXPECT_EQ(left().path(), "C:\\Work\\");
  EXPECT_EQ(selected(left()), Names{"a.txt"});
  inRecent([](Form28& dialog) { dialog.Command1.press(); }, {test::noticed("Recent Files Cleared In Memory !")});
  EXPECT_EQ(opened().Form28.ImageCombo1.Text.get(), "Recent Files Cleared ...");
  inRecent([](Form28& dialog) {
    EXPECT_EQ(dialog.ImageCombo1.Text.get(), "Recent Files Emty ...");
    EXPECT_FALSE(dialog.Command11.Enabled);
  });
}

TEST_F(OpenedItemsTest, CountsEachOpenAndOutlivesTheProgram) {
  rig.command("Mufi_Click", {test::told("No Items In Most Used Files !")});
  for (const char* path : {"C:\\Work\\a.txt", "C:\\Work\\b.txt", "C:\\Work\\a.txt", "C:\\root"})
    rig.app().mostUsed.Muf(path);
  startAgain();
  EXPECT_EQ(kept("\\MostUsed.Dat"), "[Entry]\r\n000001\r\nb.txt\r\nC:\\Work\\\r\n[Entry]\r\n000001\r\nroot\r\nC:\\\r\n"
                                    "[Entry]\r\n000002\r\na.txt\r\nC:\\Work\\\r\n");
  rig.loop.whenShows("Form40").run([this](controls::Form&) {
    auto& dialog = opened().Form40;
    EXPECT_EQ(dialog.StatusBar1.panel(1), "Entries = 3");
    EXPECT_EQ(dialog.ListView1.cell(0, 0) + dialog.ListView1.cell(0, 1) + dialog.ListView1.cell(0, 2),
              "000002a.txtC:\\Work\\");
    test::click(dialog.ListView1, 2);
    EXPECT_EQ(dialog.StatusBar1.panel(1), "File Do Not Exist !");
    dialog.Command11.press();
    dialog.Command6.press();
    dialog.Command3.press();
    EXPECT_EQ(dialog.ListView1.count(), 2u);
    test::click(dialog.ListView1, 0);
    dialog.Command6.press();
    EXPECT_FALSE(dialog.Visible);
  });
  rig.command("Mufi_Click", {test::told("Invalid Path, - File Do Not Exist !"), test::told("File Path NOT Valid !")});
  EXPECT_EQ(selected(left()), Names{"a.txt"});
  startAgain();
  EXPECT_EQ(mostUsed(), (Names{"1 C:\\Work\\b.txt", "2 C:\\Work\\a.txt"}));
}

TEST_F(OpenedItemsTest, OfMoreThanAHundredTheOnesAccessedLongestAgoGo) {
  const auto name = [](int number) { return "C:\\Work\\f" + std::to_string(number); };
  for (int number = 0; number < 101; ++number) {
    rig.write(name(number));
    const timespec times[2] = {{number == 70 ? 1'000'000 : 2'000'000, 0}, {0, UTIME_OMIT}};
    ASSERT_EQ(::utimensat(AT_FDCWD, rig.systemPath(name(number)).c_str(), times, 0), 0);
    rig.app().mostUsed.Muf(name(number));
  }
  rig.app().mostUsed.Muf(name(70));
  startAgain();
  EXPECT_EQ(mostUsed().size(), 100u);
  EXPECT_EQ(std::ranges::count(mostUsed(), "2 " + name(70)), 0) << "however often it was opened";
}

TEST_F(OpenedItemsTest, TwoRunningCopiesAddTheirHits) {
  auto& used = rig.app().mostUsed;
  used.Muf("C:\\a");
  used.Muf("C:\\b");
  ASSERT_TRUE(used.store(rig.app().program));
  panels::MostUsed other;
  other.load(rig.app().program);
  for (const char* path : {"C:\\a", "C:\\c"})
    other.Muf(path);
  used.Muf("C:\\a");
  std::erase_if(used.entries, [](const auto& entry) { return entry.name == "b"; });
  ASSERT_TRUE(other.store(rig.app().program));
  ASSERT_TRUE(used.store(rig.app().program));
  used.load(rig.app().program);
  EXPECT_EQ(mostUsed(), (Names{"1 C:\\c", "3 C:\\a"}));
}

TEST_F(OpenedItemsTest, AListThatWasCutOffIsKeptBesideTheNewOne) {
  const std::string cut = "[Entry]\r\n000004\r\na.txt\r\nC:\\Work\\\r\n[Entry]\r\n000009\r\n";
  ASSERT_TRUE(files().writeFile(file("\\MostUsed.Dat"), cut));
  rig.useRecordingShell();
  rig.splashGoes();
  rig.loop.meets(
      {test::told("MostUsed.Dat could not be read to its end.\rIt is kept as  " + file("\\MostUsed.Dat.damaged-1"))});
  ASSERT_TRUE(rig.app().Main());
  EXPECT_EQ(mostUsed(), Names{"4 C:\\Work\\a.txt"});
  rig.app().state.StoreProgramState();
  EXPECT_EQ(kept("\\MostUsed.Dat"), cut.substr(0, cut.rfind("[Entry]")));
  EXPECT_EQ(kept("\\MostUsed.Dat.damaged-1"), cut);
}

TEST_F(OpenedItemsTest, ADamagedListIsReadForWhatItIsWorth) {
  const auto read = [](const std::string& text) {
    const auto read = panels::MostUsed::entriesOf(text);
    std::string told = read.whole ? "" : "cut off ";
    for (const auto& entry : read.entries)
      told += std::to_string(entry.hits) + entry.path() + ";";
    return told;
  };
  const std::string good = "[Entry]\n000004\nb\nC:\\x\n";
  EXPECT_EQ(read("rubbish\r\n\r\n" + good), "4C:\\x\\b;");
  EXPECT_EQ(read("[Entry]\n000001\n" + good), "4C:\\x\\b;");
  EXPECT_EQ(read(good + "[Entry]\n000001\nc\n"), "cut off 4C:\\x\\b;");
  EXPECT_EQ(read("[Entry]\r\n000001\r\na\r\nC:\\Wor"), "cut off 1C:\\Wor\\a;");
  EXPECT_EQ(read("[Entry]\n-1\n[Entry]\nC:\\\n"), "0C:\\[Entry];") << "a file may be called so";
  EXPECT_EQ(read("[Entry]\n99999999999999999999999\na\nC:\\\n" + good + good), "999999C:\\a;4C:\\x\\b;");
  test::forMutationsOf(good + "[Entry]\r\n-9\r\n\xFF\r\nD:\\\r\n",
                       {"[Entry]\n", "\n", "\r", "C:\\", "/..\\", "9999999"}, [](const std::string& bytes) {
                         for (const auto& entry : panels::MostUsed::entriesOf(bytes).entries)
                           ASSERT_TRUE(!entry.name.empty() && entry.folder.ends_with('\\') && entry.hits <= 999'999)
                               << bytes;
                       });
}

}  // namespace
}  // namespace varnholt::places
