// The program is killed at any moment of a copy, a move or a delete, and started anew.

#include "support/kill_at.hpp"
#include "user.hpp"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <memory>
#include <optional>
#include <random>

#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::test {
namespace {

/// Room for a program in each child that is killed. Never ended there: the kill ends it, or _exit.
std::unique_ptr<User> running;

constexpr long Old = 900'000'000;

bool sameFile(const EntryFacts& a, const EntryFacts& b) {
  const bool areLinks = S_ISLNK(a.mode) && S_ISLNK(b.mode);
  return areLinks ? a.contents == b.contents : a == b;
}

/// A killed operation: how its disk is made, what the user does, and what must hold after the kill.
class Operation {
 public:
  virtual ~Operation() = default;
  virtual void build(World& world) const = 0;
  /// Selects, and says what will be answered.
  virtual void prepare(User& user, const World& world) const = 0;
  virtual void run(User& user) const = 0;
  virtual void check(const TreeSnapshot& before, const World& world) const = 0;
  /// Does it once more in the program's next start, so that it comes to its end.
  virtual void finish(const World& world) const = 0;
  /// When all is at its end.
  virtual void checkEnd(const TreeSnapshot& before, const World& world) const = 0;
  /// The folder in which something was written.
  virtual std::string target() const = 0;
  virtual bool needsTwoVolumes() const { return false; }
};

// --- Copy ----------------------------------------------------------------------------------------------------------

class CopyAll : public Operation {
 public:
  void build(World& world) const override {
    world.file("C:/From/a.txt", pattern(100'000, 1)).file("C:/To/a.txt", pattern(90'000, 2), Old);
    world.file("C:/From/big.bin", pattern(300'000, 3));
    world.file("C:/From/locked", "new").file("C:/To/locked", "old", Old, 0444);
    world.link("C:/From/link", "a.txt").link("C:/To/link", "elsewhere");
    world.file("C:/From/Fresh/x", "x").file("C:/From/Fresh/deep/y", pattern(200'000, 4)).link("C:/From/Fresh/l", "x");
    world.file("C:/From/Merge/m", pattern(5'000, 5)).file("C:/From/Merge/n", "n");
    world.file("C:/To/Merge/m", pattern(6'000, 6), Old).file("C:/To/Merge/kept", "kept", Old);
    world.file("C:/To/kept", "kept", Old).file("C:/Later/z", "z");
  }

  void prepare(User& user, const World& world) const override {
    user.open("C:\\From", "C:\\To");
    user.markAll();
    user.starts("Form3");
    user.answers("Form7", "Command6");
    for (const char* folder : {"Merge", "Fresh"})
      if (world.has("C:/To/" + std::string(folder))) user.answers("Form11", "Command11");
  }

  void run(User& user) const override { user.copies(); }
  std::string target() const override { return "C:/To"; }

  void check(const TreeSnapshot& before, const World& world) const override {
    const TreeSnapshot now = world.all();
    for (const auto& [name, facts] : before) {
      const auto found = now.find(name);
      ASSERT_NE(found, now.end()) << name << " is gone";
      if (!name.starts_with("C:/To/")) {
        EXPECT_EQ(found->second, facts) << name;
      }
    }
    for (const auto& [name, facts] : now)
      if (name.starts_with("C:/To/") && name.find("/.vnh-") == std::string::npos) checkTarget(before, name, facts);
  }

  void finish(const World& world) const override {
    User user(world);
    prepare(user, world);
    run(user);
  }

  void checkEnd(const TreeSnapshot& before, const World& world) const override {
    TreeSnapshot expected = before;
    for (const auto& [name, facts] : before)
      if (name.starts_with("C:/From/")) expected["C:/To/" + name.substr(8)] = facts;
    expected["C:/To/z"] = before.at("C:/Later/z");
    TreeSnapshot now = world.all();
    // A link's date is its own from the moment it is made to the moment it is set, and not every volume sets it.
    for (const char* name : {"C:/To/link", "C:/To/Fresh/l"})
      expected[name].modified = now[name].modified;
    EXPECT_EQ(difference(expected, now), "");
  }

 private:
  /// The old one or the new one, whole; a folder of the copy is a folder.
  static void checkTarget(const TreeSnapshot& before, const std::string& name, const EntryFacts& facts) {
    const auto old = before.find(name);
    const auto source = before.find("C:/From/" + name.substr(6));
    ASSERT_TRUE(old != before.end() || source != before.end()) << name;
    if (facts.isFolder()) return;
    const bool isNew = source != before.end() && sameFile(facts, source->second);
    const bool isOld = old != before.end() && sameFile(facts, old->second);
    EXPECT_TRUE(isNew || isOld) << name << " is " << facts;
  }
};

// --- Move ----------------------------------------------------------------------------------------------------------

/// Files to the other volume: each a copy, and then a delete.
class MoveAcross : public Operation {
 public:
  void build(World& world) const override {
    world.file("C:/From/a", pattern(200'000, 1)).file("C:/From/b", "b").file("C:/From/c", "c", 1'100'000'000, 0400);
    world.link("C:/From/l", "b").file("C:/From/empty", "").file("D:/To/kept", "kept", Old).file("C:/Later/z", "z");
  }
  void prepare(User& user, const World& world) const override {
    user.open("C:\\From", "D:\\To");
    user.markAll();
    user.starts("Form5");
    for (const auto& [name, facts] : world.tree("C:/From"))
      if (world.has("D:/To/" + name)) user.isTold();
  }
  void run(User& user) const override { user.moves(); }
  std::string target() const override { return "D:/To"; }
  bool needsTwoVolumes() const override { return true; }

  void check(const TreeSnapshot& before, const World& world) const override {
    const TreeSnapshot now = world.all();
    for (const auto& [name, facts] : before) {
      const auto here = now.find(name);
      if (here != now.end()) {
        EXPECT_EQ(here->second, facts) << name;
      }
      if (!name.starts_with("C:/From/")) {
        EXPECT_NE(here, now.end()) << name;
        continue;
      }
      const auto there = now.find("D:/To/" + name.substr(8));
      EXPECT_TRUE(here != now.end() || there != now.end()) << name << " is nowhere";
      if (there != now.end()) {
        EXPECT_TRUE(sameFile(there->second, facts)) << name << " arrived as " << there->second;
      }
    }
    for (const auto& [name, facts] : now)
      EXPECT_TRUE(before.contains(name) || name.starts_with("D:/To/")) << name;
  }

  void finish(const World& world) const override {
    if (world.tree("C:/From").empty()) return;
    User user(world);
    prepare(user, world);
    run(user);
  }

  void checkEnd(const TreeSnapshot& before, const World& world) const override {
    for (const auto& [name, facts] : before)
      if (name.starts_with("C:/From/")) {
        EXPECT_TRUE(sameFile(world.facts("D:/To/" + name.substr(8)), facts)) << name;
      }
  }
};

/// Files and folders within a volume: each in one step.
class MoveWithin : public Operation {
 public:
  void build(World& world) const override {
    for (const char* name : {"a", "b", "Tree/c", "Tree/Sub/d", "Other/e"})
      world.file("C:/From/" + std::string(name), pattern(1000, static_cast<unsigned char>(name[0])));
    world.folder("C:/To").file("C:/Later/z", "z");
  }
  void prepare(User& user, const World& /*world*/) const override {
    user.open("C:\\From", "C:\\To");
    user.markAll();
    user.starts("Form5");
  }
  void run(User& user) const override { user.moves(); }
  std::string target() const override { return "C:/To"; }

  void check(const TreeSnapshot& before, const World& world) const override {
    const TreeSnapshot from = world.tree("C:/From"), to = world.tree("C:/To");
    for (const auto& [name, facts] : before) {
      if (!name.starts_with("C:/From/")) continue;
      const std::string leaf = name.substr(8);
      EXPECT_EQ(from.contains(leaf) + to.contains(leaf), 1) << leaf;
      EXPECT_EQ(from.contains(leaf) ? from.at(leaf) : to.at(leaf), facts) << leaf;
    }
  }
  void finish(const World& world) const override {
    if (world.tree("C:/From").empty()) return;
    User user(world);
    prepare(user, world);
    run(user);
  }
  void checkEnd(const TreeSnapshot& before, const World& world) const override {
    EXPECT_TRUE(world.tree("C:/From").empty());
    const TreeSnapshot to = world.tree("C:/To");
    for (const auto& [name, facts] : before)
      if (name.starts_with("C:/From/")) {
        EXPECT_EQ(to.at(name.substr(8)), facts) << name;
      }
  }
};

// --- Delete --------------------------------------------------------------------------------------------------------

class DeleteAll : public Operation {
 public:
  void build(World& world) const override {
    for (const char* name : {"1", "2", "3", "Tree/4", "Tree/5", "Tree/Sub/6", "Tree/Sub/Deep/7", "Other/8", "Other/9"})
      world.file("C:/From/" + std::string(name), "some bytes");
    world.link("C:/From/Tree/out", "../../Kept").link("C:/From/toKept", "../Kept/file");
    world.file("C:/Kept/file", "kept").folder("C:/To").file("C:/Later/z", "z");
  }
  void prepare(User& user, const World& world) const override {
    user.open("C:\\From", "C:\\To");
    user.markAll();
    user.starts("Form4");
    user.answers("Form11", "Command11");
    const auto hasFiles = [&](const std::string& folder) {
      const TreeSnapshot tree = world.tree(folder);
      return std::ranges::any_of(tree, [](const auto& each) { return S_ISREG(each.second.mode); });
    };
    if (hasFiles("C:/From/Tree") || hasFiles("C:/From/Other")) user.answers("Form11", "Command2");
  }
  void run(User& user) const override { user.deletes(); }
  std::string target() const override { return "C:/From"; }

  void check(const TreeSnapshot& before, const World& world) const override {
    const TreeSnapshot now = world.all();
    for (const auto& [name, facts] : now) {
      ASSERT_TRUE(before.contains(name)) << name;
      EXPECT_EQ(before.at(name), facts) << name;
    }
    for (const auto& [name, facts] : before)
      if (!name.starts_with("C:/From/")) {
        EXPECT_TRUE(now.contains(name)) << name;
      }
  }
  void finish(const World& world) const override {
    User user(world);
    prepare(user, world);
    run(user);
  }
  void checkEnd(const TreeSnapshot& /*before*/, const World& world) const override {
    EXPECT_TRUE(world.tree("C:/From").empty());
    EXPECT_TRUE(world.has("C:/Kept/file"));
  }
};

/// With so many files more that the program handles several at once.
template <class Base>
class Many : public Base {
 public:
  void build(World& world) const override {
    for (int i = 0; i < 220; ++i)
      world.file("C:/From/many" + std::to_string(i), std::to_string(i));
    Base::build(world);
  }
};

// --- Killing -------------------------------------------------------------------------------------------------------

/// One kill: a fresh disk, the program, its end, and what its next starts find.
class Round {
 public:
  explicit Round(const Operation& operation) : operation_(operation) {
    if (operation.needsTwoVolumes() && !world_.mountSecond()) ready = false;
    operation_.build(world_);
    before_ = world_.all();
  }

  KillAt killer(AppRig::Wrapper wrapper = {}) {
    return {[this, wrapper] {
              running = std::make_unique<User>(world_, wrapper);
              operation_.prepare(*running, world_);
            },
            [this] { operation_.run(*running); }};
  }

  void checkAfterwards() {
    operation_.check(before_, world_);
    leftover = !world_.temporary(operation_.target()).empty();
    // The next thing done in that folder, and then all that was left undone.
    EXPECT_TRUE(heldInChild([this] { copyOneFile(); }));
    EXPECT_TRUE(world_.temporary(operation_.target(), false).empty()) << "a left-over was not cleared";
    EXPECT_TRUE(heldInChild([this] { operation_.finish(world_); }));
    EXPECT_TRUE(world_.temporary("C:").empty() && world_.temporary("D:").empty()) << "a left-over was not cleared";
    operation_.checkEnd(before_, world_);
  }

  bool ready = true;
  bool leftover = false;

 private:
  void copyOneFile() {
    User user(world_);
    std::string folder = operation_.target();
    std::ranges::replace(folder, '/', '\\');
    user.open("C:\\Later", folder);
    user.mark({"z"});
    user.starts("Form3");
    user.copies();
  }

  const Operation& operation_;
  World world_;
  TreeSnapshot before_;
};

std::unique_ptr<Operation> makeOperation(const std::string& name) {
  if (name == "CopyAll") return std::make_unique<CopyAll>();
  if (name == "MoveAcross") return std::make_unique<MoveAcross>();
  if (name == "MoveWithin") return std::make_unique<MoveWithin>();
  if (name == "CopyMany") return std::make_unique<Many<CopyAll>>();
  if (name == "MoveMany") return std::make_unique<Many<MoveWithin>>();
  if (name == "DeleteMany") return std::make_unique<Many<DeleteAll>>();
  return std::make_unique<DeleteAll>();
}

class Killed : public testing::TestWithParam<std::string> {
 protected:
  const std::unique_ptr<Operation> operation = makeOperation(GetParam());
};

constexpr const char* noMounts = "a second volume cannot be mounted here: no right to a mount table of one's own";

TEST_P(Killed, AtAnySystemCall) {
  const int mostKills = GetParam().ends_with("Many") ? 24 : 54;
  Round whole(*operation);
  if (!whole.ready) GTEST_SKIP() << noMounts;
  const int moments = whole.killer().moments();
  if (moments == KillAt::Untraceable) GTEST_SKIP() << "processes may not be traced here";
  ASSERT_GT(moments, 20);
  int kills = 0, leftovers = 0;
  for (int step = 0; step < std::min(moments, mostKills); ++step) {
    const int moment = moments <= mostKills ? step : static_cast<int>(static_cast<long>(step) * moments / mostKills);
    SCOPED_TRACE("killed at moment " + std::to_string(moment) + " of " + std::to_string(moments));
    Round round(*operation);
    kills += round.killer().at(moment);
    round.checkAfterwards();
    leftovers += round.leftover;
    if (HasFailure()) return;
  }
  RecordProperty("moments", moments);
  RecordProperty("kills", kills);
  RecordProperty("leftovers", leftovers);
  // With several threads the last calls may come in another number.
  EXPECT_GE(kills, std::min(moments, mostKills) * 9 / 10);
}

TEST_P(Killed, AtAnyTime) {
  std::mt19937 random(7);
  for (int step = 0; step < 8; ++step) {
    const unsigned microseconds = random() % 12'000;
    SCOPED_TRACE("killed after " + std::to_string(microseconds) + " microseconds");
    Round round(*operation);
    if (!round.ready) GTEST_SKIP() << noMounts;
    (void)round.killer().after(microseconds);
    round.checkAfterwards();
    if (HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(Operations, Killed,
                         testing::Values("CopyAll", "MoveAcross", "MoveWithin", "DeleteAll", "CopyMany", "MoveMany",
                                         "DeleteMany"),
                         [](const auto& each) { return each.param; });

}  // namespace
}  // namespace varnholt::test
