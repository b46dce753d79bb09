// One big item: it can be stopped, the bar moves on the way, and what was written is written out at the end.
#include "operation_test.hpp"
#include "platform/forwarding_file_system.hpp"

namespace varnholt::fileops {
namespace {

/// Lets the test act on the way through a call.
struct Busy : platform::ForwardingFileSystem {
  using ForwardingFileSystem::ForwardingFileSystem;
  std::function<void(std::uint64_t)> onTheWay;

  platform::Progress watched(const platform::Progress& progress) const {
    return [this, &progress](std::uint64_t done) {
      (void)progress(done);
      if (onTheWay) onTheWay(done);
      return progress(done);
    };
  }
  platform::Result<void> copyFile(const std::string& from, const std::string& to, bool overwrite,
                                  const platform::Progress& progress) override {
    return base_.copyFile(from, to, overwrite, watched(progress));
  }
  platform::Result<void> copyFolder(const std::string& from, const std::string& to, bool overwrite,
                                    const platform::Progress& progress, platform::LeftOuts* leftOut) override {
    return base_.copyFolder(from, to, overwrite, watched(progress), leftOut);
  }
  platform::Result<void> deleteFolder(const std::string& path, bool force, const platform::Progress& progress,
                                      platform::LeftOuts* leftOut) override {
    return base_.deleteFolder(path, force, watched(progress), leftOut);
  }
  platform::Result<void> writeOut(const std::string& path, bool wait, const platform::Progress&) override {
    writtenOut.emplace_back(path, wait);
    return {};
  }
  platform::Result<platform::DriveInfo> volume(const std::string& path) const override {
    auto info = base_.volume(path);
    if (info) info->type = type;
    return info;
  }
  std::vector<std::pair<std::string, bool>> writtenOut;
  platform::DriveType type = platform::DriveType::Fixed;
};

class LongCallTest : public OperationTest {
 protected:
  void SetUp() override {
    rig.useFiles([&](platform::FileSystem& real) {
      auto made = std::make_unique<Busy>(real);
      busy = made.get();
      return made;
    });
    OperationTest::SetUp();
    rig.write("C:\\From\\big", std::string(Big, 'n'));
    rig.write("C:\\From\\small", "x");
  }

  static constexpr std::size_t Big = 40 << 20;
  Busy* busy = nullptr;
};

TEST_F(LongCallTest, StopEndsTheCopyOfABigFileAndItsOldTargetStands) {
  for (const bool isThere : {false, true}) {
    if (isThere) rig.write("C:\\To\\big", "old");
    select({"big"});
    busy->onTheWay = [&](std::uint64_t) { ops().Form3.Command1.press(); };
    starts("Form3");
    if (isThere) rig.loop.whenShows("Form7").press("Command11");
    std::size_t counted = 9;
    rig.loop.whenShows("Form12")
        .reads("Label1", "Copy Process Aborted. !\r")
        .run([&](controls::Form&) { counted = ops().Copy.tally().ItemsDone; })
        .press("Command11");
    rig.command("Command1_Click");
    EXPECT_EQ(counted, 0u);
    EXPECT_EQ(rig.names(right()), isThere ? std::vector<std::string>{"big|"} : std::vector<std::string>{});
    if (isThere) {
      EXPECT_EQ(rig.read("C:\\To\\big"), "old");
    }
  }
}

TEST_F(LongCallTest, StopEndsTheCopyAndTheDeleteOfAFolder) {
  for (int number = 0; number < 200; ++number)
    rig.write("C:\\From\\Tree\\" + std::to_string(number), "x");
  for (const auto& [command, dialog] : {std::pair{"Command1_Click", "Form3"}, std::pair{"Command4_Click", "Form4"}}) {
    select({"\\ Tree"});
    auto* form = dynamic_cast<OperationForm*>(rig.loop.form(dialog));
    busy->onTheWay = [&](std::uint64_t) { form->Command1.press(); };
    starts(dialog);
    if (form == &ops().Form4) {
      rig.loop.whenShows("Form11").press("Command11");
      rig.loop.whenShows("Form11").press("Command11");
    }
    rig.loop.whenShows("Form12").press("Command11");
    rig.command(command);
    EXPECT_TRUE(rig.exists("C:\\From\\Tree"));
    EXPECT_FALSE(rig.exists("C:\\To\\Tree"));
  }
}

TEST_F(LongCallTest, TheBarsMoveThroughABigItemByItsBytes) {
  select({"small", "big"});
  std::vector<double> shares, overall;
  std::vector<std::string> lines;
  busy->onTheWay = [&](std::uint64_t done) {
    if (done <= 1) return;
    rig.loop.tickMeanwhile();
    shares.push_back(ops().Form3.ProgressBar1.Value / ops().Form3.ProgressBar1.Max);
    overall.push_back(form().ProgressBar1.Value);
    lines.push_back(ops().Form3.Label5.Caption);
  };
  starts("Form3");
  rig.command("Command1_Click");
  ASSERT_GT(shares.size(), 2u);
  EXPECT_TRUE(std::ranges::is_sorted(shares));
  EXPECT_LT(shares.front(), 0.2);
  EXPECT_GT(shares.back(), 0.99);
  EXPECT_GE(overall.front(), 50);
  EXPECT_NEAR(overall.back(), 100, 0.1);
  EXPECT_EQ(lines.front(), lines.back()) << "the texts stay";
}

TEST_F(LongCallTest, WhatWasWrittenIsWrittenOutOnceAtTheEnd) {
  using platform::DriveType;
  struct Case {
    std::string command, dialog;
    DriveType type;
    std::vector<bool> waits;
  };
  for (const Case& each : {Case{"Command1_Click", "Form3", DriveType::Fixed, {false}},
                           Case{"Command1_Click", "Form3", DriveType::Removable, {true}},
                           Case{"Command1_Click", "Form3", DriveType::Network, {true}},
                           Case{"Command3_Click", "Form5", DriveType::Fixed, {false}}}) {
    busy->writtenOut.clear();
    busy->type = each.type;
    std::filesystem::remove(rig.systemPath("C:\\To\\small"));
    select({"small"});
    starts(each.dialog);
    rig.command(each.command);
    std::vector<bool> waits;
    for (const auto& [path, wait] : busy->writtenOut) {
      EXPECT_EQ(path, "C:\\To\\");
      waits.push_back(wait);
    }
    EXPECT_EQ(waits, each.waits) << each.dialog;
  }
  busy->writtenOut.clear();
  rig.write("C:\\To\\big", "old");
  select({"big"});
  starts("Form3");
  rig.loop.whenShows("Form7").press("Command1");
  rig.command("Command1_Click");
  select({"big"});
  starts("Form4");
  rig.loop.whenShows("Form11").press("Command11");
  rig.command("Command4_Click");
  EXPECT_TRUE(busy->writtenOut.empty()) << "nothing was written";
}

}  // namespace
}  // namespace varnholt::fileops
