#include "rename_test.hpp"

#include "core/attribute_words.hpp"

namespace varnholt::rename {
namespace {

using SingleRenameTest = RenameTest;

TEST_F(SingleRenameTest, TheSelectedFileGetsTheNewName) {
  rename({"a.txt"}, [&] {
    EXPECT_EQ(dialog().Caption.get() + "|" + dialog().Text1.Text.get(), "Rename Item(s)|a.txt");
    EXPECT_TRUE(dialog().Text1.hasFocus());
    EXPECT_EQ(rig.form().mode(), "RenameMode");
    EXPECT_EQ(left().list.foreColor(left().list.selectedIds().at(0)), panels::mark_color::Rename);
    for (const auto* arrow : {&dialog().Image1, &dialog().Image2, &dialog().Image10, &dialog().Image11})
      EXPECT_FALSE(arrow->Visible) << arrow->name();
    next("b.txt");
    EXPECT_FALSE(dialog().Visible);
  });
  EXPECT_EQ(contents("b.txt"), "a.txt");
  EXPECT_EQ(rig.names(left()), Names{"b|txt"});
  EXPECT_TRUE(rig.form().filecollect.empty());
  EXPECT_EQ(left().list.selectedCount(), 0u);
  EXPECT_TRUE(left().list.hasFocus());
}

TEST_F(SingleRenameTest, ArrowsStepWithoutRenaming) {
  rename({"a.txt", "b.txt"}, [&] {
    const auto shown = [&] { return dialog().Text1.Text.get(); };
    dialog().Image1.press();
    EXPECT_EQ(shown(), "a.txt") << "there is none before the first";
    type(dialog().Text1, "x.txt");
    dialog().Image10.press();
    EXPECT_EQ(shown(), "b.txt");
    dialog().Image11.Visible = true;
    dialog().Image11.press();
    EXPECT_EQ(shown(), "b.txt") << "there is none behind the last";
    controls::KeyEvent up{controls::key::PageUp, {}};
    dialog().KeyDown(up);
    EXPECT_TRUE(up.handled);
    EXPECT_EQ(shown(), "a.txt");
    next("first.txt");
    EXPECT_EQ(rig.names(left()), (Names{"b|txt", "first|txt"})) << "the panel shows it at once";
    EXPECT_EQ(dialog().Label2.Caption.get(), "2 / 2");
    dialog().Image1.press();
    EXPECT_EQ(shown(), "first.txt") << "under its new name";
    dialog().Command2.press();
    EXPECT_FALSE(dialog().Visible);
  });
  EXPECT_EQ(left().fileName(*left().list.SelectedItem()), "first.txt") << "the keyboard goes on from it";
  left().goOnFrom("b.txt");
  rig.write("C:\\Pics\\a.txt", "");
  rig.app().listing.ViewRenew();
  EXPECT_EQ(left().fileName(*left().list.SelectedItem()), "b.txt") << "also where rows have come before it";
  EXPECT_TRUE(exists("first.txt") && exists("b.txt"));
  EXPECT_FALSE(exists("x.txt"));
}

TEST_F(SingleRenameTest, ButtonsChangeTheNameInTheField) {
  rename({"Ærø.TXT"}, [&] {
    const auto name = [&] { return dialog().Text1.Text.get(); };
    dialog().Command3.press();
    EXPECT_EQ(name(), "ærø.txt");
    dialog().Command4.press();
    EXPECT_EQ(name(), "ÆRØ.TXT");
    dialog().Command1.press();
    EXPECT_EQ(name(), "Ærø.TXT");
    dialog().Command3.press();
    dialog().Command11.press();
  });
  EXPECT_TRUE(exists("ærø.txt"));
  EXPECT_FALSE(exists("Ærø.TXT"));
}

TEST_F(SingleRenameTest, ANameThatCannotStandIsRefusedAndTheItemStays) {
  rename({"a.txt"}, [&] {
    for (const char* name : {"a/b", "a\\b", "what?"}) {
      expectAlert(std::string("InValid NewName !, ") + name);
      next(name);
      EXPECT_EQ(dialog().Text1.Text.get(), name) << "to be mended";
    }
    expectAlert("a.txt,  - Cannot Rename !\rthe new name is empty");
    next("  ");
  });
  EXPECT_EQ(contents("a.txt"), "a.txt");
}

TEST_F(SingleRenameTest, WhatIsGoneIsSteppedOver) {
  rename({"a.txt", "b.txt"}, [&] {
    ASSERT_TRUE(files().deleteFile("C:\\Pics\\a.txt", false));
    expectAlert("a.txt,  - Cannot Rename !\rit is not there any more");
    next("x.txt");
    next("y.txt");
  });
  EXPECT_FALSE(exists("x.txt"));
  EXPECT_TRUE(exists("y.txt"));
}

TEST_F(SingleRenameTest, AnItemIsOpenedByItsKind) {
  auto& shell = rig.useRecordingShell();
  begin();
  make({"a.unheard-of"});
  rig.makeFolder("C:\\Pics\\Coast");
  select({"\\ Coast", "a"});
  rename([&] {
    dialog().Command9.press();
    EXPECT_EQ(shell.started.size(), 1u) << "the folder";
    EXPECT_EQ(dialog().Picture1.IconName.get(), "folder");
    dialog().Image10.press();
    EXPECT_NE(dialog().Picture1.IconName.get(), "folder");
    expectAlert("File Extension NOT registrated !\rMake one from Controlpanel ,Tools, FolderOptions.");
    dialog().Command9.press();
    dialog().Command2.press();
  });
}

TEST_F(SingleRenameTest, APictureIsShown) {
  rig.write("C:\\Pics\\a.png", "\x89PNG\r\n\x1A\n and so on");
  rig.write("C:\\Pics\\b.png", "no picture");
  select({"a", "b"});
  rename([&] {
    EXPECT_TRUE(dialog().Image3.Visible && dialog().Image2.Visible && dialog().Image11.Visible);
    EXPECT_TRUE(dialog().Image3.PictureData->starts_with("\x89PNG"));
    dialog().Image11.press();
    EXPECT_FALSE(dialog().Image3.Visible || dialog().Image11.Visible);
    dialog().Command2.press();
  });
}

TEST_F(SingleRenameTest, AFolderIsRenamedWithWhatItHoldsAndTakesNoOthersName) {
  rig.write("C:\\Pics\\Coast\\a.txt", "a");
  rig.makeFolder("C:\\Pics\\Empty");
  rig.makeFolder("C:\\Pics\\coast");
  select({"\\ Coast"});
  rename([&] {
    for (const char* taken : {"Empty", "coast"}) {
      expectAlert("Folder already Exist , - Cannot Rename !");
      next(taken);
    }
    next("Shore");
  });
  select({"\\ Shore"});
  rename([&] { next("SHORE"); });
  EXPECT_EQ(contents("SHORE\\a.txt"), "a");
  EXPECT_TRUE(exists("Empty") && exists("coast"));
  EXPECT_FALSE(exists("Shore"));
}

TEST_F(SingleRenameTest, AnOpenFolderKeepsItsNameAndAPanelInsideARenamedOneGoesToWhatIsLeft) {
  rig.makeFolder("C:\\Pics\\Coast\\Raw");
  const auto renameWhileOpen = [&](const char* open, const Action& action) {
    select({"\\ Coast"});
    ASSERT_TRUE(rig.app().navigation.goTo(rig.form().Panel2, open));
    left().list.SetFocus();
    rename(action);
  };
  renameWhileOpen("C:\\Pics\\Coast", [&] {
    expectAlert("Folder already Open, - Cannot Rename !");
    next("Shore");
    dialog().Command2.press();
  });
  EXPECT_TRUE(exists("Coast"));
  renameWhileOpen("C:\\Pics\\Coast\\Raw", [&] { next("Shore"); });
  EXPECT_EQ(rig.form().Panel2.path(), "C:\\Pics\\");
  EXPECT_EQ(rig.names(left()), Names{"\\ Shore| "});
}

TEST_F(SingleRenameTest, ProtectedFilesAreAskedAbout) {
  const std::set<platform::Attributes> unasked{0, 5, 32, 34};
  for (const platform::Attributes attributes : {0, 1, 2, 3, 4, 5, 6, 7, 32, 33, 34, 35, 36, 37, 38, 39}) {
    const bool isAsked = !unasked.contains(attributes);
    const std::string words(core::fileatrib(attributes));
    for (const bool agrees : {false, true}) {
      make({"a.txt"});
      protect("a.txt", attributes);
      rig.form().Menu["HidSysfiles"].Checked = true;
      select({"a"});
      rename([&] {
        if (isAsked) asks("Current File:  a.txt\r Are marked:  " + words + "\rAre you Sure ?", agrees);
        next("b.txt");
      });
      const bool renamed = agrees || !isAsked;
      EXPECT_EQ(exists("b.txt"), renamed) << attributes;
      EXPECT_EQ(exists("a.txt"), !renamed) << attributes;
      ASSERT_TRUE(files().deleteFile(renamed ? "C:\\Pics\\b.txt" : "C:\\Pics\\a.txt", true));
    }
  }
}

TEST_F(SingleRenameTest, AFileInTheWayIsAskedAboutAndReplacedWithoutACopy) {
  for (const char* button : {"Command11", "Command6", "Command2", "Command3", "Command1"}) {
    const bool replaces = button == std::string("Command11") || button == std::string("Command6");
    make({"a.txt", "b.txt"});
    rig.scratch.hardLink("home/Other/second.txt", "home/Pics/a.txt");
    for (const char* file : {"C:\\Pics\\a.txt", "C:\\Pics\\b.txt"})
      rig.setDate(file, 2010, 5, 6);
    select({"a"});
    rig.app().fileops.policy.OverwritePrompt = true;
    rename([&] {
      rig.loop.whenShows("Form7")
          .reads({"Label1|OverWrite File:     a.txt", "Label2|Date:  06-05-10  12:00       Size:  5 Bytes",
                  "Label3|With File:     b.txt", "Label4|Date:  06-05-10  12:00       Size:  5 Bytes",
                  "Label6|What is in \"b.txt\" now will be lost. \"a.txt\" takes its name."})
          .run([&](controls::Form&) {
            EXPECT_FALSE(dialog().Command11.Enabled || dialog().Command2.Enabled);
            EXPECT_FALSE(rig.app().fileops.Form7.Command4.Enabled);
          })
          .press(button);
      next("b.txt");
    });
    EXPECT_TRUE(dialog().Command11.Enabled && dialog().Command2.Enabled);
    EXPECT_EQ(files().sameEntry("C:\\Pics\\b.txt", "C:\\Other\\second.txt"), replaces) << button;
    EXPECT_EQ(exists("a.txt"), !replaces) << button;
    EXPECT_TRUE(rig.app().fileops.policy.OverwritePrompt) << "an operation asks by itself";
    std::filesystem::remove(rig.systemPath("C:\\Other\\second.txt"));
  }
}

TEST_F(SingleRenameTest, AllHoldsForTheRestOfTheDialogOnly) {
  make({"a.txt", "b.txt", "c.txt", "x.txt", "y.txt", "z.txt"});
  select({"a", "b"});
  rename([&] {
    rig.loop.whenShows("Form7").press("Command6");
    next("x.txt");
    next("y.txt");
  });
  EXPECT_EQ(contents("x.txt") + contents("y.txt"), "a.txtb.txt");
  select({"c"});
  rename([&] {
    rig.loop.whenShows("Form7").press("Command1");
    next("z.txt");
  });
  EXPECT_EQ(contents("z.txt"), "z.txt");
}

TEST_F(SingleRenameTest, WhatMayNotBeReplacedStays) {
  make({"a.txt", "b.txt"});
  protect("b.txt", platform::attribute::ReadOnly);
  rig.makeFolder("C:\\Pics\\folder");
  std::filesystem::create_symlink("a.txt", rig.systemPath("C:\\Pics\\link.txt"));
  std::filesystem::create_hard_link(rig.systemPath("C:\\Pics\\a.txt"), rig.systemPath("C:\\Pics\\second.txt"));
  const std::tuple<const char*, const char*, std::string> rows[] = {
      {"a", "b.txt", "a.txt,  - Cannot Rename !\r\"b.txt\" is read-only, hidden or system"},
      {"a", "folder", "a.txt,  - Cannot Rename !\r\"folder\" is taken"},
      {"a", "second.txt", "a.txt,  - Cannot Rename !\r\"second.txt\" is the same file"},
      {"link", "a.txt", "link.txt,  - Cannot Rename !\r\"a.txt\" is the same file"}};
  for (const auto& [row, name, alert] : rows) {
    select({row});
    rename([&, name = name, alert = alert] {
      if (name != std::string("folder")) rig.loop.whenShows("Form7").press("Command11");
      expectAlert(alert);
      next(name);
    });
    EXPECT_EQ(contents("a.txt") + contents("b.txt") + contents("second.txt"), "a.txtb.txta.txt") << name;
    EXPECT_TRUE(exists("folder") && exists("link.txt"));
  }
}

/// A volume on which every spelling leads to the file, as on a memory stick.
class CaselessFileSystem : public platform::ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;
  bool fileExists(const std::string& path) const override { return base_.fileExists(onDisk(path)); }
  bool folderExists(const std::string& path) const override { return base_.folderExists(onDisk(path)); }
  bool sameEntry(const std::string& a, const std::string& b) const override {
    return base_.sameEntry(onDisk(a), onDisk(b));
  }
  platform::Result<platform::EntryInfo> info(const std::string& path) const override {
    return base_.info(onDisk(path));
  }
  platform::Result<void> copyFile(const std::string& from, const std::string& to, bool,
                                  const platform::Progress&) override {
    ADD_FAILURE() << "copied " << from << " to " << to;
    return {};
  }
  platform::Result<void> deleteFile(const std::string& path, bool) override {
    ADD_FAILURE() << "deleted " << path;
    return {};
  }

 private:
  std::string onDisk(const std::string& path) const { return base_.resolve(path).valueOr(path); }
};

TEST_F(SingleRenameTest, ANameInOtherCaseIsGivenAFileAfterAQuestionWhereCaseIsNothing) {
  rig.use<CaselessFileSystem>();
  begin();
  for (const char* button : {"Command11", "Command6"}) {
    make({"read.me"});
    rig.setDate("C:\\Pics\\read.me", 2010, 5, 6);
    select({"read"});
    rename([&] {
      rig.loop.whenShows("Form7")
          .reads({"Label1|With Filename:     read.me", "Label2|Date:  06-05-10  12:00       size:  7 Bytes",
                  "Label3|As New File:        READ.me"})
          .press(button);
      next("READ.me");
    });
    EXPECT_EQ(rig.names(left()), Names{"READ|me"});
    EXPECT_EQ(contents("READ.me"), "read.me");
    std::filesystem::remove(rig.systemPath("C:\\Pics\\READ.me"));
  }
  rig.write("C:\\Pics\\Coast\\a.txt", "a");
  select({"\\ Coast"});
  rename([&] { next("COAST"); });
  EXPECT_EQ(contents("COAST\\a.txt"), "a");
}

}  // namespace
}  // namespace varnholt::rename
