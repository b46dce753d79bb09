// Many small files are handled several at once. What the user sees must be what one by one would give.
#include "operation_test.hpp"

namespace varnholt::fileops {
namespace {

class LargeSelectionTest : public OperationTest {
 protected:
  static constexpr int Count = 400;
  static std::string name(int number) { return "f" + std::to_string(1000 + number); }
  static std::string from(int number) { return "C:\\From\\" + name(number); }
  static std::string to(int number) { return "C:\\To\\" + name(number); }
  void SetUp() override {
    OperationTest::SetUp();
    for (int number = 0; number < Count; ++number)
      rig.write(from(number), name(number));
  }
  void all(const char* handler, const Answers& dialogs, const std::string& target = "C:\\To") {
    select({}, {.to = target});
    rig.command("selectall_Click");
    start(handler, dialogs, {});
  }
  /// Numbers of the files in a folder, as "0-9 12 14-399".
  std::string numbersIn(const std::string& folder) {
    std::string text;
    for (int number = 0; number < Count; ++number) {
      if (!rig.exists(folder + "\\" + name(number))) continue;
      const int first = number;
      while (number + 1 < Count && rig.exists(folder + "\\" + name(number + 1)))
        ++number;
      text += (text.empty() ? "" : " ") + std::to_string(first) + (first == number ? "" : "-" + std::to_string(number));
    }
    return text;
  }
  std::function<void()> holds(const std::string& folder, const std::string& numbers) {
    return [this, folder, numbers] { EXPECT_EQ(numbersIn(folder), numbers); };
  }
};

TEST_F(LargeSelectionTest, NothingBehindAQuestionIsTouchedBeforeItsAnswer) {
  rig.write(to(250), "old");
  rig.write(to(100), "old");
  const std::string source = "Source FileName:     ";
  all("Command1_Click", {{"Form3"},
                         {"Form7", Skip, source + name(250), holds("C:\\To", "100 250-399")},
                         {"Form7", Cancel, source + name(100), holds("C:\\To", "100-399")}});
  EXPECT_EQ(numbersIn("C:\\To"), "100-399");
  EXPECT_EQ(rig.read(to(250)), "old");
}

TEST_F(LargeSelectionTest, ADeleteAsksAboutProtectedFilesInTheirOrder) {
  protect(from(350), platform::attribute::Hidden);
  protect(from(120));
  rig.menu("HidSysfiles").choose();
  all("Command4_Click", {{"Form4"},
                         yes(),
                         {"Form10", SkipIt, "", holds("C:\\From", "0-350")},
                         {"Form10", CancelAll, "", holds("C:\\From", "0-120 350")}});
  EXPECT_EQ(numbersIn("C:\\From"), "0-120 350");
}

TEST_F(LargeSelectionTest, StopLeavesWhatIsNotCounted) {
  using Case = std::tuple<const char*, const char*, const Operation&>;
  for (const auto& [handler, name, operation] :
       {Case{"Command1_Click", "Form3", ops().Copy}, Case{"Command3_Click", "Form5", ops().Move},
        Case{"Command4_Click", "Form4", ops().Delete}}) {
    const std::string target = "C:\\To" + std::string(name);
    rig.makeFolder(target);
    auto* dialog = dynamic_cast<OperationForm*>(rig.loop.form(name));
    const bool deleting = dialog == &ops().Form4;
    int turns = 0;
    rig.loop.onTurn = [&] {
      if (dialog->isRunning() && ++turns == 4) dialog->Command1.press();
    };
    std::size_t counted = 0, before = 0;
    auto aborted = told();
    aborted.before = [&, &run = operation] { counted = run.tally().ItemsDone, before = run.tally().ItemsTotal; };
    all(handler, deleting ? Answers{{name}, yes(), aborted} : Answers{{name}, aborted}, target);
    rig.loop.onTurn = {};
    EXPECT_GT(counted, 3u);
    EXPECT_LT(counted, 300u);
    EXPECT_EQ(right().list.count(), deleting ? 0 : counted) << name;
    EXPECT_EQ(left().list.count(), dialog == &ops().Form3 ? before : before - counted) << name;
  }
}

/// A volume on which one file of a batch fails while those around it are done.
struct FailingOnce : platform::ForwardingFileSystem {
  using ForwardingFileSystem::ForwardingFileSystem;
  platform::BatchResults copyFiles(const std::string& folder, const std::vector<std::string>& names,
                                   const std::string& to, std::uint64_t limit,
                                   const platform::Progress& progress) override {
    auto results = base_.copyFiles(folder, names, to, limit, progress);
    if (results.size() > 2 && !failed) {
      failed = names[1];
      (void)base_.deleteFile(to + names[1], true);
      results[1] = platform::Error{platform::ErrorCode::NoSpace, names[1], "no room"};
    }
    return results;
  }
  std::optional<std::string> failed;
};

TEST_F(LargeSelectionTest, AFileThatFailsInABatchIsTriedByItselfAndNoOtherIsAskedAbout) {
  auto& failing = use<FailingOnce>();
  all("Command1_Click", {{"Form3"}});
  ASSERT_TRUE(failing.failed);
  EXPECT_EQ(numbersIn("C:\\To"), "0-399");
  EXPECT_EQ(rig.read(to(399)), name(399));
  EXPECT_EQ(ops().Copy.tally().ItemsDone, 400u);
  EXPECT_EQ(ops().Copy.tally().BytesDone, 400 * 5);
}

TEST_F(LargeSelectionTest, AVolumeThatFillsUpInABatchEndsTheCopyAtThatFile) {
  use<test::FaultyFileSystem>().failsAfterBytes = 250 * name(0).size();
  all("Command1_Click", {{"Form3"}, no()});  // it did not arrive; go no further
  EXPECT_EQ(numbersIn("C:\\To"), "150-399");
}

// One big item: it can be stopped, the bar moves on the way, and what was written is written out at the end.

/// Lets the test act on the way through a call.
struct Busy : platform::ForwardingFileSystem {
  using ForwardingFileSystem::ForwardingFileSystem;
  std::function<void(std::uint64_t)> onTheWay;
  std::vector<bool> waits;  ///< of each time that the volume is written out
  mutable int sizesAsked = 0;
  platform::DriveType type = platform::DriveType::Fixed;

  template <class Progress>
  Progress watched(const Progress& progress) const {
    return [this, &progress](const auto& done) {
      (void)progress(done);
      if (onTheWay) onTheWay(bytesOf(done));
      return progress(done);
    };
  }
  static std::uint64_t bytesOf(std::uint64_t done) { return done; }
  static std::uint64_t bytesOf(const platform::FolderAdvance& done) { return done.bytes; }
  platform::Result<platform::TreeSize> folderSize(const std::string& path,
                                                  const platform::Progress& progress) const override {
    ++sizesAsked;
    return base_.folderSize(path, progress);
  }
  platform::Result<void> copyFile(const std::string& from, const std::string& to, bool overwrite,
                                  const platform::Progress& progress) override {
    return base_.copyFile(from, to, overwrite, watched(progress));
  }
  platform::Result<void> copyFolder(const std::string& from, const std::string& to, bool overwrite,
                                    const platform::FolderProgress& progress, platform::LeftOuts* leftOut) override {
    return base_.copyFolder(from, to, overwrite, watched(progress), leftOut);
  }
  platform::Result<void> deleteFolder(const std::string& path, bool force, const platform::Progress& progress,
                                      platform::LeftOuts* leftOut) override {
    return base_.deleteFolder(path, force, watched(progress), leftOut);
  }
  platform::Result<void> writeOut(const std::string& path, bool wait, const platform::Progress&) override {
    EXPECT_EQ(path, "C:\\To\\");
    waits.push_back(wait);
    return {};
  }
  platform::Result<platform::DriveInfo> volume(const std::string& path) const override {
    auto info = base_.volume(path);
    if (info) info->type = type;
    return info;
  }
};

class LongCallTest : public OperationTest {
 protected:
  void SetUp() override {
    rig.write("C:\\From\\big", std::string(40 << 20, 'n'));
    rig.write("C:\\From\\small", "x");
  }
  Busy& busy = use<Busy>();
};

TEST_F(LongCallTest, StopEndsTheCopyOfABigFileAndTheCopyAndTheDeleteOfAFolder) {
  for (int number = 0; number < 200; ++number)
    rig.write("C:\\From\\Tree\\" + std::to_string(number), "x");
  rig.write("C:\\To\\big", "old");
  busy.onTheWay = [&](std::uint64_t) { rig.loop.stopMeanwhile(); };
  auto aborted = told("Copy Process Aborted. !");
  aborted.before = [&] { EXPECT_EQ(ops().Copy.tally().ItemsDone, 0u); };
  copy({"big"}, {existing(ThisOne), aborted});
  EXPECT_EQ(rig.read("C:\\To\\big"), "old");
  copy({"\\ Tree"}, {aborted});
  EXPECT_EQ(rig.names(right()), Names{"big|"});
  rig.useShellFolder("Desktop", "C:\\To");
  select({"big"});
  start("CopyDesktop_Click", {yes(), aborted}, {});
  EXPECT_EQ(rig.read("C:\\To\\big"), "old");
  EXPECT_FALSE(ops().Form3.Visible);
  const auto as = [&] {
    rig.loop.meets({aborted});
    ops().Form3.Command5.press();
    EXPECT_TRUE(ops().Form3.Command5.Enabled && ops().Form3.Command11.Enabled);
  };
  start("Command1_Click", {{"Form3", "Command2", "", as}}, {});
  remove({"\\ Tree"}, {yes(), told()});
  EXPECT_TRUE(rig.exists("C:\\From\\Tree"));
}

TEST_F(LongCallTest, TheBarsMoveThroughABigItemByItsBytes) {
  std::vector<double> shares, overall;
  Names lines;
  busy.onTheWay = [&](std::uint64_t done) {
    if (done <= 1) return;
    rig.loop.tickMeanwhile();
    shares.push_back(ops().Form3.ProgressBar1.Value / ops().Form3.ProgressBar1.Max);
    overall.push_back(form().ProgressBar1.Value);
    lines.push_back(ops().Form3.Label5.Caption);
  };
  copy({"small", "big"});
  ASSERT_GT(shares.size(), 2u);
  EXPECT_TRUE(std::ranges::is_sorted(shares));
  EXPECT_LT(shares.front(), 0.2);
  EXPECT_GT(shares.back(), 0.99);
  EXPECT_GE(overall.front(), 50);
  EXPECT_NEAR(overall.back(), 100, 0.1);
  EXPECT_EQ(lines.front(), lines.back()) << "the texts stay";
}

TEST_F(LongCallTest, AFolderIsReadOnceForItsCopyAndItsSizeCountsAllTheSame) {
  rig.write("C:\\From\\Tree\\a", std::string(3000, 'x'));
  rig.write("C:\\From\\Tree\\Below\\b", std::string(500, 'x'));
  copy({"\\ Tree"});
  EXPECT_EQ(busy.sizesAsked, 0);
  EXPECT_EQ(ops().Copy.tally().BytesDone, 3500);
}

TEST_F(LongCallTest, WhatWasWrittenIsWrittenOutOnceAtTheEnd) {
  using enum platform::DriveType;
  for (const auto& [type, waits] : {std::pair{Fixed, false}, {Removable, true}, {Network, true}}) {
    busy.type = type;
    std::filesystem::remove(rig.systemPath("C:\\To\\small"));
    copy({"small"});
    EXPECT_EQ(std::exchange(busy.waits, {}), std::vector<bool>{waits});
  }
  copy({"small"}, {existing(Skip)});
  EXPECT_TRUE(busy.waits.empty()) << "nothing was written";
  move({"big"});
  EXPECT_EQ(std::exchange(busy.waits, {}).size(), 1u);
  remove({"small"});
  EXPECT_TRUE(busy.waits.empty());
}

}  // namespace
}  // namespace varnholt::fileops
