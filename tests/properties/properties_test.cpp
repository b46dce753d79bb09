#include "../fileops/operation_test.hpp"

namespace varnholt::properties {
namespace {

using namespace platform::attribute;

class PropertiesTest : public fileops::OperationTest {
 protected:
  void SetUp() override {
    OperationTest::SetUp();
    rig.command("HidSysfiles_Click");
  }
};

class ItemPropertiesTest : public PropertiesTest {
 protected:
  Form15& dialog() { return rig.app().properties.Form15; }
  void view(const Names& rows, const std::function<void()>& act) {
    select(rows);
    const auto acts = [&] {
      EXPECT_EQ(form().mode(), "FilesMode");
      act();
    };
    inDialog("Fdetails_Click", "Form15", acts);
  }
  std::string boxes() {
    std::string marks;
    for (auto* box :
         {&dialog().Check1, &dialog().Check2, &dialog().Check3, &dialog().Check4, &dialog().Check5, &dialog().Check6})
      marks += box->Value ? '1' : '0';
    return marks;
  }
};

TEST_F(ItemPropertiesTest, AFileAndAFolderTellTheirFacts) {
  rig.write("C:\\From\\note.txt", std::string(1234, 'x'));
  rig.write("C:\\From\\Sub\\in.txt", std::string(2000, 'x'));
  rig.setDate("C:\\From\\note.txt", 2007, 3, 9);
  protect("C:\\From\\note.txt", Hidden | Archive);
  view({"note"}, [this] {
    EXPECT_EQ(dialog().Caption.get() + "|" + dialog().Label1.Caption.get(), "File/Folder Properties|1 Item To View");
    EXPECT_FALSE(dialog().Image1.Visible || dialog().Command11.Enabled || dialog().Command1.Enabled);
    EXPECT_EQ(dialog().Text2.Text.get() + dialog().Text1.Text.get(), "C:\\From\\note.txt");
    EXPECT_EQ(dialog().Text4.Text.get() + "|" + dialog().Text6.Text.get(), "1,234  Bytes|09-03-07  12:00");
    EXPECT_EQ(boxes() + dialog().Text7.Text.get(), "110001Archive and Hidden");
  });
  view({"\\ Sub"}, [this] {
    EXPECT_EQ(dialog().Text3.Text.get() + "|" + dialog().Text7.Text.get(), "Folder|Folder(16), Normal");
    EXPECT_EQ(dialog().Text4.Text.get(), "") << "not computed until it is asked for";
    EXPECT_FALSE(dialog().Command4.Enabled);
    dialog().Command1.press();
    EXPECT_EQ(dialog().Text4.Text.get(), "2,000  Bytes");
  });
}

TEST_F(ItemPropertiesTest, StepsStayAtTheEndsAndPicturesAreShown) {
  write({"From\\a.txt", "From\\b.PNG"});
  view({"a", "b"}, [this] {
    EXPECT_EQ(dialog().Label1.Caption.get(), "2 Items To View");
    dialog().Image1.press();
    EXPECT_EQ(dialog().Text1.Text.get(), "a.txt");
    for (int times = 0; times < 2; ++times)
      dialog().Command11.press();
    EXPECT_EQ(dialog().Label2.Caption.get() + "|" + dialog().Image3.Picture.get(), "2 / 2|C:\\From\\b.PNG");
    dialog().Image3.Click();
    EXPECT_FALSE(dialog().Image3.Stretch);
    controls::KeyEvent up{controls::key::PageUp, {}};
    dialog().KeyDown(up);
    EXPECT_EQ(dialog().Text1.Text.get(), "a.txt");
  });
  EXPECT_EQ(dialog().Image3.Picture.get(), "") << "nothing is kept in memory";
}

TEST_F(ItemPropertiesTest, TheFileInHandIsCopiedToTheDesktop) {
  rig.useShellFolder("Desktop", "C:\\To");
  write({"From\\a.txt", "From\\b.txt"});
  view({"a", "b"}, [this] {
    dialog().Command11.press();
    rig.loop.meets({test::noticed("Copy to Desktop Done !")});
    dialog().Command5.press();
  });
  EXPECT_TRUE(rig.exists("C:\\To\\b.txt"));
  EXPECT_FALSE(rig.exists("C:\\To\\a.txt"));
}

TEST_F(ItemPropertiesTest, AResetLeavesSystemAloneAndThePanelShowsIt) {
  write({"From\\a.txt", "From\\sys.txt"});
  protect("C:\\From\\a.txt", Hidden | Archive | ReadOnly);
  protect("C:\\From\\sys.txt", System | Archive);
  view({"a", "sys"}, [this] {
    dialog().Command4.press();
    EXPECT_EQ(boxes() + dialog().Text7.Text.get(), "000001No Attributes !");
    dialog().Image2.press();
    dialog().Command4.press();
    EXPECT_EQ(boxes(), "000101");
  });
  EXPECT_EQ(files().attributes("C:\\From\\a.txt").valueOr(99), 0u);
  EXPECT_EQ(left().rows->entry(rig.rowOf(left(), "sys")).attributes, System);
}

TEST_F(ItemPropertiesTest, ADiscIsReadOnlyAndAMissingDriveOrSelectionOpensNothing) {
  write({"From\\a.txt"});
  rig.drives->fileSystem = "UDF";
  view({"a"}, [this] {
    EXPECT_EQ(dialog().Caption.get(), "File/Folder Properties, - Read Only Data !");
    EXPECT_FALSE(dialog().Command4.Enabled);
  });
  select({});
  start("Command15_Click", {test::noticed(" No Items selected. ! ")}, {});
  rig.drives->away = {'C'};
  start("Command15_Click", {test::told("Cannot View Data, - Drive(s) Not Ready !\rFunction Exits !")}, {});
}

class AttributeChangeTest : public PropertiesTest {
 protected:
  Form18& dialog() { return rig.app().properties.Form18; }
  /// Selects the rows and gives them what these boxes tell.
  void change(const Names& rows, const std::vector<controls::CheckBox*>& boxes, const Answers& answers = {}) {
    select(rows);
    rig.loop.whenShows("Form18")
        .reads("Label1", std::to_string(rows.size()) + " Items To Change !  (Folders, Systemfiles NO change)")
        .reads("Text1", "Overwrites Exisitens Attributes !")
        .run([=, this](controls::Form&) {
          EXPECT_EQ(form().mode(), "AttributMode");
          for (controls::CheckBox* box : boxes)
            box->toggleFromUser();
          rig.loop.meets(answers);
          dialog().Command1.press();
          if (dialog().Visible) dialog().Command2.press();
        });
    rig.command("multiAtribut_Click");
  }
  platform::Attributes of(const std::string& name) { return files().attributes("C:\\From\\" + name).valueOr(9999); }
};

TEST_F(AttributeChangeTest, WhatIsSetReplacesWhatWasThereOnFilesAlone) {
  write({"From\\hidden.txt", "From\\plain.txt", "From\\out.txt", "From\\Sub\\in.txt"});
  protect("C:\\From\\hidden.txt", Hidden | ReadOnly);
  change({"\\ Sub", "hidden", "plain"}, {&dialog().Check1});
  EXPECT_EQ(of("hidden.txt"), Archive);
  change({"plain", "hidden"}, {&dialog().Check2, &dialog().Check3});
  EXPECT_EQ(of("plain.txt"), ReadOnly | Hidden);
  EXPECT_EQ(dialog().NewAttributes, 3u);
  change({"plain"}, {});
  EXPECT_EQ(of("plain.txt"), 0u) << "no box is the plain file";
  EXPECT_EQ(of("out.txt"), Archive);
  EXPECT_EQ(of("Sub"), Folder);
  EXPECT_EQ(of("Sub\\in.txt"), Archive);
}

TEST_F(AttributeChangeTest, SystemFilesStayInTheFiveValuesThatNameThem) {
  for (const platform::Attributes before : {4u, 7u, 36u, 38u, 39u, 5u, 6u, 37u}) {
    const std::string name = "s" + std::to_string(before);
    write({"From\\" + name});
    protect("C:\\From\\" + name, before);
    change({name}, {&dialog().Check3});
    const bool stays = before != 5 && before != 6 && before != 37;
    EXPECT_EQ(of(name), stays ? before : Hidden) << before;
  }
}

/// A volume that keeps read-only alone.
struct NoAttributes : platform::ForwardingFileSystem {
  using ForwardingFileSystem::ForwardingFileSystem;
  platform::Result<void> setAttributes(const std::string& path, platform::Attributes attributes) override {
    if (path.ends_with("b.txt")) return platform::Error{platform::ErrorCode::NotSupported, path, "not here"};
    return base_.setAttributes(path, attributes);
  }
};

TEST_F(AttributeChangeTest, FilesThatTakeNoneArePassedOverAndCounted) {
  use<NoAttributes>();
  write({"From\\a.txt", "From\\b.txt", "From\\c.txt"});
  change({"a", "b", "c"}, {&dialog().Check3}, {test::noticed("1 of 3 Item(s) Not Changed !")});
  EXPECT_EQ(of("a.txt") + of("c.txt"), 2 * Hidden);
  EXPECT_EQ(dialog().Text2.Text.get(), "(1 Not Changed !)  a.txt");
}

TEST_F(AttributeChangeTest, OnADiscWithoutItsDriveAndWithoutASelectionNothingChanges) {
  write({"From\\a.txt"});
  for (const char* disc : {"CDFS", "UDF"}) {
    rig.drives->fileSystem = disc;
    change({"a"}, {&dialog().Check3}, {test::told("Cannot Change Attribute On CD-Rom/DVD-Rom !\rFunction Exits !")});
  }
  select({"a"});
  const auto changes = [this] {
    rig.drives->away = {'C'};
    dialog().Command1.press();
    rig.drives->away = {};
  };
  inDialog("multiAtribut_Click", "Form18", changes,
           {test::told("Cannot Delete, - Drive(s) Not Ready !\rFunction Exits !")});
  EXPECT_EQ(of("a.txt"), Archive);
  select({});
  start("multiAtribut_Click", {test::noticed(" No Items selected. ! ")}, {});
}

}  // namespace
}  // namespace varnholt::properties
