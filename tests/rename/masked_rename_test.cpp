#include "rename_test.hpp"

namespace varnholt::rename {
namespace {

constexpr const char* Question = "Execute File Rename ?  [ No Undo Available ]\r( If Any Files To Rename ! )";

class MaskedRenameTest : public RenameTest {
 protected:
  /// Opens the dialog with the mask on, does these things, and cancels what is still open.
  void masked(const Action& inDialog) {
    rename([&] {
      dialog().Command5.press();
      inDialog();
      dialog().Command2.press();
    });
  }
  void masked(const Names& files, const Action& inDialog) {
    make(files);
    selectFiles(files);
    masked(inDialog);
  }
  void newBase(const std::string& base, const std::string& start) {
    dialog().Check2.toggleFromUser();
    type(dialog().Text3, base);
    type(dialog().Text5, start);
  }
  void executes(bool agrees = true) {
    asks(Question, agrees);
    dialog().Command6.press();
    EXPECT_EQ(dialog().Visible, !agrees);
  }
};

TEST_F(MaskedRenameTest, TheFieldsFollowTheBoxes) {
  make({"a.txt"});
  auto& form = dialog();
  select({"a"});
  masked([&] {
    type(form.Text2, "x");
    for (const bool newBase : {false, true}) {
      EXPECT_EQ(form.Label3.Caption.get(), newBase ? "Change FileName:" : "Exp. Filename:");
      EXPECT_TRUE(form.Text3.Enabled == newBase && form.Text5.Visible == newBase && form.Label5.Visible == newBase);
      EXPECT_EQ(form.Text2.Enabled, !newBase);
      EXPECT_TRUE(!newBase || form.Text2.Text->empty());
      form.Check2.toggleFromUser();
    }
    form.Check3.toggleFromUser();
    form.Check1.toggleFromUser();
    EXPECT_TRUE(form.Check1.Value == 1 && form.Check3.Value == 0);
    form.Check3.toggleFromUser();
    EXPECT_TRUE(form.Check1.Value == 0 && form.Check3.Value == 1);
    for (const char* sign : {"-", "+"}) {
      form.Command8.press();
      EXPECT_EQ(form.Command8.Caption.get(), sign);
    }
  });
  select({"a"});
  rename([&] {
    EXPECT_EQ(form.Command5.Caption.get() + form.Text4.Text.get(), "Mask Off*") << "each opening begins anew";
    EXPECT_EQ(form.Check3.Value, 0);
    form.Command2.press();
  });
}

TEST_F(MaskedRenameTest, TheCounterTakesNumbersOnly) {
  masked({"a.txt"}, [&] {
    newBase("Pic", "12");
    expectAlert("Input Not Numeric !");
    type(dialog().Text5, "12x");
    EXPECT_EQ(dialog().Text5.Text.get(), "0");
    type(dialog().Text5, "");
    dialog().Command7.press();
    EXPECT_EQ(preview(), Names{"a.txt > Pic0.txt"});
  });
}

TEST_F(MaskedRenameTest, ThePreviewShowsTheNewNamesAndChangesNothing) {
  Names opened;
  rig.app().opener.ownTypes["txt"] = [&](const std::string& path) { opened.push_back(path); };
  const auto opens = [&](std::uint32_t row) {
    dialog().ListView1.pressFromUser(row, {});
    dialog().ListView1.doubleClickFromUser(row);
  };
  make({"a.txt", "b.txt", "c.txt"});
  rig.makeFolder("C:\\Pics\\Coast");
  rig.makeFolder("C:\\Pics\\Dunes");
  select({"\\ Coast", "\\ Dunes", "a", "b", "c"});
  masked([&] {
    newBase("Pic", "007");
    ASSERT_TRUE(files().deleteFile("C:\\Pics\\b.txt", false));
    for (int again = 0; again < 2; ++again) {
      dialog().Command7.press();
      EXPECT_EQ(preview(), (Names{"Coast > ", "Dunes > ", "a.txt > Pic007.txt", "c.txt > Pic8.txt"}));
    }
    opens(3);
  });
  EXPECT_TRUE(exists("a.txt") && exists("c.txt"));
  select({"\\ Coast", "a"});
  masked([&] {
    EXPECT_EQ(preview(), Names{"No Items In View > "});
    expectAlert("File/Folder Path NOT Valid !");
    opens(0);
  });
  EXPECT_EQ(opened, Names{"C:\\Pics\\c.txt"});
}

TEST_F(MaskedRenameTest, NamesThatMeetAreTold) {
  masked({"aX.txt", "Xa.txt", "b.txt"}, [&] {
    type(dialog().Text2, "X");
    dialog().Command8.press();
    expectAlert("Problem !, - More File To Same Value !\rPreview Exits !");
    dialog().Command7.press();
    EXPECT_EQ(preview(), (Names{"aX.txt > a.txt", "b.txt > b.txt", "Xa.txt > a.txt"}));
  });
}

TEST_F(MaskedRenameTest, NamesThatCannotBeGivenAreMarkedBefore) {
  make({"a.txt", "b.txt", "Pic1.txt"});
  select({"a", "b"});
  masked([&] {
    newBase("Pic", "1");
    dialog().Command7.press();
    auto& list = dialog().ListView1;
    EXPECT_EQ(preview(), (Names{"a.txt > Pic1.txt", "b.txt > Pic2.txt"}));
    EXPECT_EQ(list.item(0).SmallIcon(), Form14::KeptIcon);
    EXPECT_NE(list.item(1).SmallIcon(), Form14::KeptIcon);
    EXPECT_EQ(list.rowToolTip(list.item(0)), "a.txt:  \"Pic1.txt\" is taken");
    EXPECT_EQ(list.rowToolTip(list.item(1)), "");
    EXPECT_EQ(dialog().Label7.Caption.get(), "a.txt:  \"Pic1.txt\" is taken");
    type(dialog().Text5, "2");
    dialog().Command7.press();
    EXPECT_EQ(dialog().Label7.Caption.get(), "");
  });
}

TEST_F(MaskedRenameTest, FieldsThatAreRefusedStopPreviewAndRun) {
  make({"a.txt"});
  const std::tuple<controls::TextBox Form14::*, const char*, const char*> rows[] = {
      {&Form14::Text3, "a?:b", "InValid Mask Pattern !, a?:b"},
      {&Form14::Text2, "a*", "InValid Chr. Pattern !, a*"},
      {&Form14::Text4, ".bak", "InValid Chr. Pattern !, .bak"}};
  for (const auto& [box, typed, message] : rows)
    for (controls::Button Form14::*button : {&Form14::Command6, &Form14::Command7}) {
      select({"a"});
      masked([&, box = box, typed = typed, message = message] {
        if (box == &Form14::Text3) dialog().Check2.toggleFromUser();
        controls::TextBox& field = dialog().*box;
        type(field, typed);
        expectAlert(message);
        (dialog().*button).press();
        EXPECT_EQ(field.Text.get(), "");
        EXPECT_TRUE(dialog().Invalid && field.hasFocus());
      });
    }
  EXPECT_TRUE(exists("a.txt"));
}

TEST_F(MaskedRenameTest, AllFilesGetTheirNamesAtOnce) {
  make({"a.txt", "b.txt", "c.TXT"});
  rig.makeFolder("C:\\Pics\\Coast");
  select({"\\ Coast", "a", "b", "c"});
  masked([&] {
    newBase("Pic", "9");
    executes(false);
    EXPECT_TRUE(exists("a.txt"));
    executes();
  });
  EXPECT_EQ(contents("Pic9.txt") + contents("Pic10.txt"), "a.txtb.txt");
  EXPECT_EQ(contents("Pic11.TXT"), "c.TXT");
  EXPECT_TRUE(exists("Coast"));
  EXPECT_EQ(rig.names(left()), (Names{"\\ Coast| ", "Pic10|txt", "Pic11|TXT", "Pic9|txt"}));
}

TEST_F(MaskedRenameTest, FilesThatKeepTheirNamesAreTold) {
  const std::string long_(250, 'n');
  make({"aX.txt", "Xa.txt", long_ + ".txt", "bX.txt", "gone.txt"});
  select({"aX", "Xa", long_, "bX", "gone"});
  masked([&] {
    type(dialog().Text2, "X");
    dialog().Command8.press();
    type(dialog().Text4, "longer");
    make({"b.longer"});
    ASSERT_TRUE(files().deleteFile("C:\\Pics\\gone.txt", false));
    asks(Question, true);
    expectAlert(
        "4 Item(s) Keep Their Names !\r\rbX.txt:  \"b.longer\" is taken\rgone.txt:  it is not there any more\r..." +
        long_.substr(0, 42) + ".txt:  file name too long\rXa.txt:  \"a.longer\" is taken");
    dialog().Command6.press();
  });
  EXPECT_EQ(contents("a.longer") + contents("Xa.txt"), "aX.txtXa.txt");
  EXPECT_EQ(contents("b.longer"), "b.longer");
}

TEST_F(MaskedRenameTest, AFileThatIsLeftOutHasTakenItsNumber) {
  make({"a.txt", "b.txt", "c.txt"});
  protect("a.txt", platform::attribute::ReadOnly);
  protect("b.txt", platform::attribute::ReadOnly);
  select({"a", "b", "c"});
  masked([&] {
    newBase("Pic", "1");
    asks(Question, true);
    asks("Current File:  a.txt\r Are marked:  Readonly\rAre you Sure ?", true);
    asks("Current File:  b.txt\r Are marked:  Readonly\rAre you Sure ?", false);
    dialog().Command6.press();
  });
  EXPECT_EQ(contents("Pic1.txt") + contents("b.txt"), "a.txtb.txt");
  EXPECT_EQ(contents("Pic3.txt"), "c.txt");
}

TEST_F(MaskedRenameTest, AnyNumberOfFilesMovesUpByOne) {
  Names names;
  for (int number = 1000; number < 2500; ++number)
    names.push_back("Pic" + std::to_string(number) + ".txt");
  masked(names, [&] {
    newBase("Pic", "1001");
    executes();
  });
  EXPECT_FALSE(exists("Pic1000.txt"));
  for (const int number : {1001, 2024, 2025, 2500})
    EXPECT_EQ(contents("Pic" + std::to_string(number) + ".txt"), "Pic" + std::to_string(number - 1) + ".txt");
}

TEST_F(MaskedRenameTest, ANameThatIsCutAwayStays) {
  masked({"README", "README2"}, [&] {
    type(dialog().Text2, "README");
    dialog().Command8.press();
    asks(Question, true);
    expectAlert("1 Item(s) Keep Their Names !\r\rREADME:  nothing is left of its name");
    dialog().Command6.press();
  });
  EXPECT_EQ(contents("README") + contents("2"), "READMEREADME2");
}

}  // namespace
}  // namespace varnholt::rename
