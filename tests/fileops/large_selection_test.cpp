// Many small files are handled several at once. What the user sees must be what one by one would give.
#include "operation_test.hpp"
#include "support/faulty_file_system.hpp"

namespace varnholt::fileops {
namespace {

class LargeSelectionTest : public OperationTest {
 protected:
  static constexpr int Count = 400;

  static std::string name(int number) { return "f" + std::to_string(1000 + number); }
  void SetUp() override {
    OperationTest::SetUp();
    for (int number = 0; number < Count; ++number)
      rig.write("C:\\From\\" + name(number), name(number));
  }
  void selectAll(const std::string& to = "C:\\To") {
    select({}, "C:\\From", to);
    rig.command("selectall_Click");
  }
  /// Numbers of the files in a folder, as "0-9 12 14-399".
  std::string numbersIn(const std::string& folder) {
    std::string text;
    for (int number = 0; number < Count; ++number) {
      if (!rig.exists(folder + "\\" + name(number))) continue;
      const int from = number;
      while (number + 1 < Count && rig.exists(folder + "\\" + name(number + 1)))
        ++number;
      text += (text.empty() ? "" : " ") + std::to_string(from) + (from == number ? "" : "-" + std::to_string(number));
    }
    return text;
  }
};

TEST_F(LargeSelectionTest, AllAreCopiedWithTheirBytesAndCounted) {
  selectAll();
  starts("Form3");
  rig.command("Command1_Click");
  EXPECT_EQ(numbersIn("C:\\To"), "0-399");
  for (int number = 0; number < Count; ++number)
    EXPECT_EQ(rig.read("C:\\To\\" + name(number)), name(number));
  EXPECT_EQ(form().ItemsDone, 400u);
  EXPECT_EQ(form().BytesDone, 400 * 5);
}

TEST_F(LargeSelectionTest, NothingBehindAQuestionIsTouchedBeforeItsAnswer) {
  rig.write("C:\\To\\" + name(250), "old");
  rig.write("C:\\To\\" + name(100), "old");
  selectAll();
  starts("Form3");
  rig.loop.whenShows("Form7")
      .reads("Label1", "Source FileName:     " + name(250))
      .run([&](controls::Form&) { EXPECT_EQ(numbersIn("C:\\To"), "100 250-399"); })
      .press("Command1");
  rig.loop.whenShows("Form7")
      .reads("Label1", "Source FileName:     " + name(100))
      .run([&](controls::Form&) { EXPECT_EQ(numbersIn("C:\\To"), "100-399"); })
      .press("Command2");
  rig.command("Command1_Click");
  EXPECT_EQ(numbersIn("C:\\To"), "100-399");
  EXPECT_EQ(rig.read("C:\\To\\" + name(250)), "old");
}

TEST_F(LargeSelectionTest, AllOlderGoesThroughTargetsAndFreePlacesAlike) {
  for (int number = 0; number < Count; number += 2) {
    rig.write("C:\\To\\" + name(number), "old");
    rig.setDate("C:\\To\\" + name(number), number % 4 ? 2001 : 2099, 1, 1);
  }
  selectAll();
  starts("Form3");
  rig.loop.whenShows("Form7").press("Command3");
  rig.command("Command1_Click");
  for (int number = 0; number < Count; ++number)
    EXPECT_EQ(rig.read("C:\\To\\" + name(number)), number % 4 == 0 ? "old" : name(number)) << number;
}

TEST_F(LargeSelectionTest, AMoveRefusesWhatExistsAndTakesTheRest) {
  rig.write("C:\\To\\" + name(300), "old");
  selectAll();
  starts("Form5");
  rig.loop.whenShows("Form12")
      .reads("Label1", "File Already exist on Target, - Cannot Move!\r")
      .run([&](controls::Form&) { EXPECT_EQ(numbersIn("C:\\From"), "0-300"); })
      .press("Command11");
  rig.command("Command3_Click");
  EXPECT_EQ(numbersIn("C:\\From"), "300");
  EXPECT_EQ(numbersIn("C:\\To"), "0-399");
  EXPECT_EQ(rig.read("C:\\To\\" + name(300)), "old");
}

TEST_F(LargeSelectionTest, ADeleteAsksAboutProtectedFilesInTheirOrder) {
  ASSERT_TRUE(files().setAttributes("C:\\From\\" + name(350), platform::attribute::Hidden));
  ASSERT_TRUE(files().setAttributes("C:\\From\\" + name(120), platform::attribute::ReadOnly));
  ASSERT_TRUE(rig.app().program.settings.get(core::setting::SysHidShow) != "1");
  rig.menu("HidSysfiles").choose();
  selectAll();
  starts("Form4");
  rig.loop.whenShows("Form11").press("Command11");
  rig.loop.whenShows("Form10")
      .run([&](controls::Form&) { EXPECT_EQ(numbersIn("C:\\From"), "0-350"); })
      .press("Command2");
  rig.loop.whenShows("Form10")
      .run([&](controls::Form&) { EXPECT_EQ(numbersIn("C:\\From"), "0-120 350"); })
      .press("Command3");
  rig.command("Command4_Click");
  EXPECT_EQ(numbersIn("C:\\From"), "0-120 350");
}

TEST_F(LargeSelectionTest, StopLeavesWhatIsNotCounted) {
  struct Case {
    const char *command, *dialog;
  };
  for (const Case& each :
       {Case{"Command1_Click", "Form3"}, Case{"Command3_Click", "Form5"}, Case{"Command4_Click", "Form4"}}) {
    const std::string to = "C:\\To" + std::string(each.dialog);
    rig.makeFolder(to);
    selectAll(to);
    const std::size_t before = left().list.count();
    auto* dialog = dynamic_cast<OperationForm*>(rig.loop.form(each.dialog));
    int turns = 0;
    rig.loop.onTurn = [&] {
      if (dialog->isRunning() && ++turns == 4) dialog->Command1.press();
    };
    std::size_t counted = 0;
    starts(each.dialog);
    if (dialog == &ops().Form4) rig.loop.whenShows("Form11").press("Command11");
    rig.loop.whenShows("Form12").run([&](controls::Form&) { counted = form().ItemsDone; }).press("Command11");
    rig.command(each.command);
    rig.loop.onTurn = {};
    EXPECT_GT(counted, 3u);
    EXPECT_LT(counted, 300u);
    EXPECT_EQ(right().list.count(), dialog == &ops().Form4 ? 0 : counted) << each.dialog;
    EXPECT_EQ(left().list.count(), dialog == &ops().Form3 ? before : before - counted) << each.dialog;
  }
}

/// A volume on which one file of a batch fails while those around it are done.
struct FailingOnce : platform::ForwardingFileSystem {
  explicit FailingOnce(platform::FileSystem& real) : ForwardingFileSystem(real), real(real) {}
  platform::BatchResults copyFiles(const std::string& folder, const std::vector<std::string>& names,
                                   const std::string& to, std::uint64_t limit,
                                   const platform::Progress& progress) override {
    auto results = real.copyFiles(folder, names, to, limit, progress);
    if (results.size() > 2 && !failed) {
      failed = names[1];
      (void)real.deleteFile(to + names[1], true);
      results[1] = platform::Error{platform::ErrorCode::NoSpace, names[1], "no room"};
    }
    return results;
  }
  platform::FileSystem& real;
  std::optional<std::string> failed;
};

TEST_F(LargeSelectionTest, AFileThatFailsInABatchIsTriedByItselfAndNoOtherIsAskedAbout) {
  FailingOnce* failing = nullptr;
  rig.useFiles([&](platform::FileSystem& real) {
    auto made = std::make_unique<FailingOnce>(real);
    failing = made.get();
    return made;
  });
  rig.startLeft();
  selectAll();
  starts("Form3");
  rig.command("Command1_Click");
  ASSERT_TRUE(failing->failed);
  EXPECT_EQ(numbersIn("C:\\To"), "0-399");
  EXPECT_EQ(form().ItemsDone, 400u);
}

/// A volume that fills up, and counts what batches have brought to it.
struct FillingUp : test::FaultyFileSystem {
  using FaultyFileSystem::FaultyFileSystem;
  platform::BatchResults copyFiles(const std::string& folder, const std::vector<std::string>& names,
                                   const std::string& to, std::uint64_t limit,
                                   const platform::Progress& progress) override {
    auto results = FaultyFileSystem::copyFiles(folder, names, to, limit, progress);
    inBatches += results.size();
    return results;
  }
  std::size_t inBatches = 0;
};

TEST_F(LargeSelectionTest, AVolumeThatFillsUpInABatchEndsTheCopyAtThatFile) {
  FillingUp* files = nullptr;
  rig.useFiles([&](platform::FileSystem& real) {
    auto made = std::make_unique<FillingUp>(real);
    files = made.get();
    return made;
  });
  rig.startLeft();
  files->failsAfterBytes = 250 * name(0).size();
  selectAll();
  starts("Form3");
  rig.loop.whenShows("Form11").press("Command1");  // it did not arrive; go no further
  rig.command("Command1_Click");
  EXPECT_EQ(numbersIn("C:\\To"), "150-399");
  EXPECT_GT(files->inBatches, 200u);
}

}  // namespace
}  // namespace varnholt::fileops
