// One big item: it can be stopped, the bar moves on the way, and what was written is written out at the end.
#include "operation_test.hpp"
#include "platform/forwarding_file_system.hpp"

namespace varnholt::fileops {
namespace {

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
  busy.onTheWay = [&](std::uint64_t) { ops().Form3.Command1.press(); };
  auto aborted = told("Copy Process Aborted. !");
  aborted.before = [&] { EXPECT_EQ(ops().Copy.tally().ItemsDone, 0u); };
  copy({"big"}, {existing(ThisOne), aborted});
  EXPECT_EQ(rig.read("C:\\To\\big"), "old");
  copy({"\\ Tree"}, {aborted});
  EXPECT_EQ(rig.names(right()), Names{"big|"});
  busy.onTheWay = [&](std::uint64_t) { ops().Form4.Command1.press(); };
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
