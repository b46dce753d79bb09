#include "../fileops/operation_test.hpp"

#include "platform/forwarding_file_system.hpp"

namespace varnholt::properties {
namespace {

using namespace platform::attribute;

class AttributeChangeTest : public fileops::OperationTest {
 protected:
  void SetUp() override {
    OperationTest::SetUp();
    rig.command("HidSysfiles_Click");
  }
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
    EXPECT_FALSE(rig.app().dispatcher.busy);
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

TEST_F(AttributeChangeTest, NothingSelectedOpensNoDialog) {
  select({});
  start("multiAtribut_Click", {test::noticed(" No Items selected. ! ")}, {});
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

TEST_F(AttributeChangeTest, OnADiscAndWithoutItsDriveNothingChanges) {
  write({"From\\a.txt"});
  for (const char* disc : {"CDFS", "UDF"}) {
    rig.drives->fileSystem = disc;
    change({"a"}, {&dialog().Check3}, {test::told("Cannot Change Attribute On CD-Rom/DVD-Rom !\rFunction Exits !")});
  }
  select({"a"});
  rig.loop.whenShows("Form18").run([this](controls::Form&) {
    rig.drives->away = {'C'};
    rig.loop.meets({test::told("Cannot Delete, - Drive(s) Not Ready !\rFunction Exits !")});
    dialog().Command1.press();
    rig.drives->away = {};
    dialog().Command2.press();
  });
  rig.command("multiAtribut_Click");
  EXPECT_EQ(of("a.txt"), Archive);
}

}  // namespace
}  // namespace varnholt::properties
