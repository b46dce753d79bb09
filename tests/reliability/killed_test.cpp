// The program is killed at any moment of a copy, a move or a delete, and started anew.

#include "support/kill_at.hpp"
#include "world.hpp"

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
  /// `written` is the folder in which something is changed.
  Operation(void (User::*runs)(), std::string written) : run(runs), target(std::move(written)) {}
  virtual ~Operation() = default;
  virtual void build(World& world) const = 0;
  /// Selects, and says what will be answered.
  virtual void prepare(User& user, const World& world) const = 0;
  virtual void check(const TreeSnapshot& before, const World& world) const = 0;
  /// When the program's next start has done it once more.
  virtual void checkEnd(const TreeSnapshot& before, const World& world) const = 0;

  void (User::*const run)();
  const std::string target;
};

class Copy : public Operation {
 public:
  explicit Copy(void (User::*runs)() = &User::copies) : Operation(runs, "C:/To") {}
  void build(World& world) const override {
    world.file("C:/From/a.txt", pattern(100'000, 1)).file("C:/To/a.txt", pattern(90'000, 2), Old);
    world.file("C:/From/big.bin", pattern(300'000, 3));
    world.file("C:/From/locked", "new").file("C:/To/locked", "old", Old, 0444);
    world.link("C:/From/link", "a.txt").link("C:/To/link", "elsewhere").link("C:/From/Fresh/l", "x");
    world.file("C:/From/Fresh/x", "x").file("C:/From/Fresh/deep/y", pattern(200'000, 4));
    world.file("C:/From/Merge/m", pattern(5'000, 5)).file("C:/From/Merge/n", "n");
    world.file("C:/To/Merge/m", pattern(6'000, 6), Old).file("C:/To/Merge/kept", "kept", Old);
    world.file("C:/To/kept", "kept", Old);
  }
  void prepare(User& user, const World& world) const override {
    user.open("C:\\From", "C:\\To");
    user.markAll();
    user.meets({{"Form3"}, {"Form7", "Command6"}});
    for (const char* folder : {"C:/To/Merge", "C:/To/Fresh"})
      if (world.has(folder)) user.meets({yes()});
  }
  void check(const TreeSnapshot& before, const World& world) const override {
    const TreeSnapshot now = world.all();
    for (const auto& [name, facts] : before) {
      ASSERT_TRUE(now.contains(name)) << name << " is gone";
      if (!name.starts_with("C:/To/")) {
        EXPECT_EQ(now.at(name), facts) << name;
      }
    }
    for (const auto& [name, facts] : now)
      if (name.starts_with("C:/To/") && name.find("/.vnh-") == std::string::npos) checkTarget(before, name, facts);
  }
  void checkEnd(const TreeSnapshot& before, const World& world) const override {
    TreeSnapshot expected = before;
    for (const auto& [name, facts] : before)
      if (name.starts_with("C:/From/")) expected["C:/To/" + name.substr(8)] = facts;
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

/// The same by a compare that syncs, which replaces what is older.
class Sync : public Copy {
 public:
  Sync() : Copy(&User::syncs) {}
  void build(World& world) const override {
    world.file("C:/From/a.txt", pattern(100'000, 1)).file("C:/To/a.txt", pattern(90'000, 2), Old);
    world.file("C:/From/big.bin", pattern(300'000, 3)).file("C:/From/small", "small");
    world.file("C:/From/locked", "new").file("C:/To/locked", "old", Old, 0444);
    world.file("C:/To/kept", "kept", Old);
  }
  void prepare(User& user, const World& world) const override {
    user.open("C:\\From", "C:\\To");
    const TreeSnapshot from = world.tree("C:/From"), to = world.tree("C:/To");
    const bool isDone = std::ranges::all_of(
        from, [&](const auto& each) { return to.contains(each.first) && to.at(each.first) == each.second; });
    user.rig.loop.whenShows("Form30")
        .run([&user, isDone](controls::Form&) {
          auto& dialog = user.rig.app().compare.Form30;
          dialog.Check3.toggleFromUser();
          dialog.Check8.toggleFromUser();
          user.meets({isDone ? noticed("No Files To Execute, - ok !") : yes()});
          dialog.Command11.press();
        })
        .press("Command2");
  }
};

/// To the other volume each file is a copy, and then a delete; within the volume also folders, each in one step.
class Move : public Operation {
 public:
  explicit Move(const std::string& drive) : Operation(&User::moves, drive + "/To"), within_(drive == "C:") {}
  void build(World& world) const override {
    world.file("C:/From/a", pattern(200'000, 1)).file("C:/From/b", "b").file("C:/From/c", "c", 1'100'000'000, 0400);
    world.file("C:/From/empty", "").file(target + "/kept", "kept", Old).link("C:/From/l", "b");
    if (within_) world.file("C:/From/Tree/c", pattern(1000, 2)).file("C:/From/Tree/Sub/d", "d");
  }
  void prepare(User& user, const World& world) const override {
    user.open("C:\\From", target.substr(0, 2) + "\\To");
    user.markAll();
    user.meets({{"Form5"}});
    for (const auto& [name, facts] : world.tree("C:/From"))
      if (world.has(target + "/" + name)) user.meets({told()});
  }
  void check(const TreeSnapshot& before, const World& world) const override {
    const TreeSnapshot now = world.all();
    for (const auto& [name, facts] : before) {
      const auto here = now.find(name), there = now.find(target + name.substr(std::min<size_t>(7, name.size())));
      const bool isSource = name.starts_with("C:/From/"), arrived = isSource && there != now.end();
      EXPECT_TRUE(here != now.end() || arrived) << name << " is nowhere";
      EXPECT_FALSE(within_ && here != now.end() && arrived) << name << " is twice";
      if (here != now.end()) {
        EXPECT_EQ(here->second, facts) << name;
      }
      if (arrived) {
        EXPECT_TRUE(sameFile(there->second, facts)) << name << " arrived as " << there->second;
      }
    }
    for (const auto& [name, facts] : now)
      EXPECT_TRUE(before.contains(name) || name.starts_with(target)) << name;
  }
  void checkEnd(const TreeSnapshot& before, const World& world) const override {
    TreeSnapshot arrived = world.tree(target);
    for (const auto& [name, facts] : before)
      if (name.starts_with("C:/From/")) {
        EXPECT_TRUE(sameFile(arrived[name.substr(8)], facts)) << name;
      }
  }

 private:
  const bool within_;
};

class Delete : public Operation {
 public:
  Delete() : Operation(&User::deletes, "C:/From") {}
  void build(World& world) const override {
    for (const char* name : {"1", "2", "3", "Tree/4", "Tree/5", "Tree/Sub/6", "Tree/Sub/Deep/7", "Other/8", "Other/9"})
      world.file("C:/From/" + std::string(name), "some bytes");
    world.link("C:/From/Tree/out", "../../Kept").link("C:/From/toKept", "../Kept/file");
    world.file("C:/Kept/file", "kept").folder("C:/To");
  }
  void prepare(User& user, const World& world) const override {
    user.open("C:\\From", "C:\\To");
    user.markAll();
    user.meets({{"Form4"}, yes()});
    const auto hasFiles = [&](const std::string& folder) {
      return std::ranges::any_of(world.tree(folder), [](const auto& each) { return S_ISREG(each.second.mode); });
    };
    if (hasFiles("C:/From/Tree") || hasFiles("C:/From/Other")) user.meets({{"Form11", "Command2"}});
  }
  void check(const TreeSnapshot& before, const World& world) const override {
    const TreeSnapshot now = world.all();
    for (const auto& [name, facts] : now) {
      ASSERT_TRUE(before.contains(name)) << name;
      EXPECT_EQ(before.at(name), facts) << name;
    }
    for (const auto& [name, facts] : before)
      EXPECT_TRUE(now.contains(name) || name.starts_with("C:/From/")) << name;
  }
  void checkEnd(const TreeSnapshot& /*before*/, const World& world) const override {
    EXPECT_TRUE(world.tree("C:/From").empty());
    EXPECT_TRUE(world.has("C:/Kept/file"));
  }
};

/// What passes through a work folder of the program: at each moment a file stands at one place, whole.
class Passing : public Operation {
 public:
  explicit Passing(void (User::*runs)()) : Operation(runs, "C:/To") {}
  void check(const TreeSnapshot& before, const World& world) const override {
    TreeSnapshot now = world.all();
    for (const char* between : {"data/Tmp", "data/SwapTmp"})
      for (const auto& [name, facts] : world.tree(between))
        now.emplace(between + ("/" + name), facts);
    standOnce(before, now);
  }
  void checkEnd(const TreeSnapshot& before, const World& world) const override { standOnce(before, world.all()); }

 private:
  static void standOnce(const TreeSnapshot& before, const TreeSnapshot& now) {
    for (const auto& [name, facts] : before) {
      if (facts.isFolder()) continue;
      const auto isIt = [&](const auto& each) { return sameFile(each.second, facts); };
      EXPECT_EQ(std::ranges::count_if(now, isIt), 1) << name;
    }
  }
};

class Swap : public Passing {
 public:
  Swap() : Passing(&User::swaps) {}
  void build(World& world) const override {
    world.file("C:/From/a", pattern(5'000, 1)).file("C:/From/both", "left").file("C:/To/both", "right");
  }
  void prepare(User& user, const World& /*world*/) const override {
    user.open("C:\\From", "C:\\To");
    user.markBoth();
    user.meets({noticed("All Available/Selected Files Swapped ! ")});
  }
};

class MoveAs : public Passing {
 public:
  MoveAs() : Passing(&User::moves) {}
  void build(World& world) const override { world.file("C:/From/a", pattern(5'000, 1)).file("C:/To/kept", "kept"); }
  void prepare(User& user, const World& /*world*/) const override {
    user.open("C:\\From", "C:\\To");
    user.mark({"a"});
    auto& ops = user.rig.app().fileops;
    const auto names = [&ops] { ops.Form32.Text1.typeFromUser("new"); };
    const auto asks = [&user, &ops, names] {
      user.meets({{"Form32", "Command11", "", names}});
      ops.Form5.Command5.press();
    };
    user.meets({{"Form5", "Command11", "", asks}});
  }
  void checkEnd(const TreeSnapshot& before, const World& world) const override {
    Passing::checkEnd(before, world);
    EXPECT_TRUE(world.has("C:/To/new"));
  }
};

/// One kill: a fresh disk, the program, its end, and what its next starts find.
class Round {
 public:
  /// With `many` there are so many files more that the program handles several at once.
  Round(const Operation& operation, bool many) : operation_(operation) {
    ready = !operation.target.starts_with("D:") || world_.mountSecond();
    for (int i = 0; many && i < 220; ++i)
      world_.file("C:/From/many" + std::to_string(i), std::to_string(i));
    operation_.build(world_);
    before_ = world_.all();
  }
  KillAt killer() {
    return {[this] {
              running = std::make_unique<User>(world_);
              operation_.prepare(*running, world_);
            },
            [this] { (*running.*operation_.run)(); }};
  }
  void checkAfterwards() {
    operation_.check(before_, world_);
    EXPECT_TRUE(heldInChild([this] { finish(); }));
    for (const std::string& name : world_.names("data"))
      EXPECT_FALSE(name.starts_with(".vnh-working-")) << "it is not forgotten where work was done";
    operation_.checkEnd(before_, world_);
  }

  bool ready = true;

 private:
  /// The next start clears what was left, and does what was left undone.
  void finish() {
    User user(world_);
    EXPECT_TRUE(world_.temporary("C:").empty() && world_.temporary("D:").empty()) << "a left-over was not cleared";
    if (world_.tree("C:/From").empty()) return;
    operation_.prepare(user, world_);
    (user.*operation_.run)();
  }

  const Operation& operation_;
  World world_;
  TreeSnapshot before_;
};

std::unique_ptr<Operation> makeOperation(const std::string& name) {
  if (name.starts_with("Copy")) return std::make_unique<Copy>();
  if (name == "Sync") return std::make_unique<Sync>();
  if (name == "Swap") return std::make_unique<Swap>();
  if (name == "MoveAs") return std::make_unique<MoveAs>();
  if (name.starts_with("Delete")) return std::make_unique<Delete>();
  return std::make_unique<Move>(name == "MoveAcross" ? "D:" : "C:");
}

class Killed : public testing::TestWithParam<std::string> {};

TEST_P(Killed, AtAnySystemCall) {
  const auto operation = makeOperation(GetParam());
  const bool many = GetParam().ends_with("Many");
  const int mostKills = many ? 24 : 54;
  Round whole(*operation, many);
  if (!whole.ready) GTEST_SKIP() << "a second volume cannot be mounted here: no right to a mount table of one's own";
  const int moments = whole.killer().moments();
  if (moments == KillAt::Untraceable) GTEST_SKIP() << "processes may not be traced here";
  ASSERT_GT(moments, 20);
  const int steps = std::min(moments, mostKills);
  int kills = 0;
  for (int step = 0; step < steps; ++step) {
    const int moment = static_cast<int>(static_cast<long>(step) * moments / steps);
    SCOPED_TRACE("killed at moment " + std::to_string(moment) + " of " + std::to_string(moments));
    Round round(*operation, many);
    kills += round.killer().at(moment);
    round.checkAfterwards();
    if (HasFailure()) return;
  }
  // With several threads the last calls may come in another number.
  EXPECT_GE(kills, steps * 9 / 10);
}
INSTANTIATE_TEST_SUITE_P(Operations, Killed,
                         testing::Values("Copy", "MoveAcross", "MoveWithin", "MoveAs", "Swap", "Sync", "Delete",
                                         "CopyMany", "MoveMany", "DeleteMany"),
                         [](const auto& each) { return each.param; });

}  // namespace
}  // namespace varnholt::test
