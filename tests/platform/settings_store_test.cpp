#include "platform/posix/settings_store.hpp"

#include "support/scratch_folder.hpp"

#include <gtest/gtest.h>

#include <csignal>

#include <sqlite3.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

using test::ScratchFolder;

TEST(Settings, KeepTextsFromOneStartToTheNext) {
  ScratchFolder folder;
  const std::string awkward("a\0b\n\xFF \"quoted\" ä", 18);
  {
    SqliteSettingsStore store(folder / "settings.db");
    ASSERT_TRUE(store.save("kelvarton", "Init", "DateSystem", "2"));
    ASSERT_TRUE(store.save("kelvarton", "Init", "Awkward", awkward));
    ASSERT_TRUE(store.save("kelvarton", "Init", "Empty", ""));
  }
  SqliteSettingsStore store(folder / "settings.db");
  EXPECT_EQ(store.get("kelvarton", "Init", "DateSystem", "1"), "2");
  EXPECT_EQ(store.get("kelvarton", "Init", "Awkward"), awkward);
  EXPECT_EQ(store.get("kelvarton", "Init", "Empty", "fallback"), "");
  EXPECT_EQ(store.get("kelvarton", "Init", "Missing", "fallback"), "fallback");
  EXPECT_FALSE(store.database().setAside());
}

TEST(Settings, CompareWithoutCase) {
  ScratchFolder folder;
  SqliteSettingsStore store(folder / "settings.db");
  ASSERT_TRUE(store.save("Kelvarton", "Filefilter", "FileData", "*.jpg"));
  EXPECT_EQ(store.get("kelvarton", "FILEFILTER", "Filedata"), "*.jpg");
  ASSERT_TRUE(store.save("kelvarton", "filefilter", "filedata", "*.png"));
  EXPECT_EQ(store.get("Kelvarton", "Filefilter", "FileData"), "*.png");
  EXPECT_EQ(store.sections("KELVARTON"), std::vector<std::string>{"Filefilter"});
  ASSERT_TRUE(store.remove("KELVARTON", "filefilter", "FILEDATA"));
  EXPECT_EQ(store.get("Kelvarton", "Filefilter", "FileData", "gone"), "gone");
}

TEST(Settings, ListSectionsByLoweredNameInTheirFirstSpelling) {
  ScratchFolder folder;
  SqliteSettingsStore store(folder / "settings.db");
  for (const char* section : {"work", "Archive", "music", "WORK"})
    ASSERT_TRUE(store.save("presets", section, "Text", section));
  ASSERT_TRUE(store.save("other", "Zebra", "Text", ""));
  EXPECT_EQ(store.sections("presets"), (std::vector<std::string>{"Archive", "music", "work"}));
}

TEST(Settings, DeleteOnlyWhatIsNamed) {
  ScratchFolder folder;
  SqliteSettingsStore store(folder / "settings.db");
  ASSERT_TRUE(
      store.saveAll({{"a", "s", "k1", "1"}, {"a", "s", "k2", "2"}, {"a", "t", "k", "3"}, {"b", "s", "k", "4"}}));

  ASSERT_TRUE(store.remove("a", "s", "k1"));
  EXPECT_EQ(store.get("a", "s", "k2"), "2");
  ASSERT_TRUE(store.removeSection("a", "s"));
  EXPECT_EQ(store.get("a", "s", "k2", "gone"), "gone");
  EXPECT_EQ(store.get("a", "t", "k"), "3");
  ASSERT_TRUE(store.removeApplication("a"));
  EXPECT_TRUE(store.sections("a").empty());
  EXPECT_EQ(store.get("b", "s", "k"), "4");

  EXPECT_EQ(store.remove("a", "s", "k1").error().code, ErrorCode::NotFound);
  EXPECT_EQ(store.removeSection("a", "s").error().code, ErrorCode::NotFound);
  EXPECT_EQ(store.removeApplication("a").error().code, ErrorCode::NotFound);
}

TEST(Settings, AreSharedByTwoRunningPrograms) {
  ScratchFolder folder;
  SqliteSettingsStore first(folder / "settings.db"), second(folder / "settings.db");
  ASSERT_TRUE(first.save("a", "s", "k", "from first"));
  EXPECT_EQ(second.get("a", "s", "k"), "from first");
  ASSERT_TRUE(second.save("a", "s", "k", "from second"));
  EXPECT_EQ(first.get("a", "s", "k"), "from second");
}

// Writes pairs that belong together until it is killed, so that a torn write would show as a pair that differs.
[[noreturn]] void writePairsForever(const std::string& file, int ready) {
  SqliteSettingsStore store(file);
  for (int round = 1;; ++round) {
    const std::string text = std::to_string(round);
    if (!store.saveAll({{"a", "s", "left", text}, {"a", "s", "right", text}})) ::_exit(1);
    if (::write(ready, "x", 1) < 0) ::_exit(1);
  }
}

TEST(Settings, AreOldOrNewAfterAKillInTheMiddleOfWriting) {
  ScratchFolder folder;
  const std::string file = folder / "settings.db";
  int written = 0;
  for (int round = 0; round < 25; ++round) {
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) writePairsForever(file, ready[1]);
    char signs[1 + 7];
    ASSERT_GT(::read(ready[0], signs, 1 + round % 7), 0);
    // Somewhere inside one of the next writes: a different stretch of work in each round.
    volatile int spin = 0;
    for (int i = 0; i < round * 40000; ++i)
      spin = spin + 1;
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    ::close(ready[0]);
    ::close(ready[1]);

    SqliteSettingsStore store(file);
    ASSERT_FALSE(store.database().setAside());
    const std::string left = store.get("a", "s", "left"), right = store.get("a", "s", "right");
    ASSERT_EQ(left, right);
    ASSERT_NE(left, "");
    written += std::stoi(left);
  }
  EXPECT_GE(written, 25);
}

void sql(const std::string& file, const char* text) {
  sqlite3* handle = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &handle), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(handle, text, nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(handle);
}

std::vector<SettingsStore::Write> manyWrites(const char* prefix, int count, const char* value) {
  std::vector<SettingsStore::Write> writes;
  for (int i = 0; i < count; ++i)
    writes.push_back({"a", "s", prefix + std::to_string(i), value + std::string(100, '.')});
  return writes;
}

// The limit on a file's size kills the child with pages of the transaction in the file and others not.
TEST(Settings, AreOldAfterAKillBetweenTwoPagesOfOneWrite) {
  ScratchFolder folder;
  const std::string file = folder / "settings.db";
  {
    SqliteSettingsStore store(file);
    ASSERT_TRUE(store.saveAll(manyWrites("k", 400, "old")));
  }
  const std::string before = folder.read("settings.db");
  const pid_t child = ::fork();
  if (child == 0) {
    const rlimit limit{before.size() + 4096, before.size() + 4096};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    SqliteSettingsStore store(file);
    std::vector<SettingsStore::Write> writes = manyWrites("k1", 5, "new");
    for (auto& write : manyWrites("z", 400, "new"))
      writes.push_back(std::move(write));
    ::_exit(store.saveAll(writes) ? 0 : 1);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ);
  ASSERT_NE(folder.read("settings.db"), before) << "the kill came too early to show anything";

  SqliteSettingsStore store(file);
  EXPECT_FALSE(store.database().setAside());
  for (int i = 0; i < 400; ++i) {
    EXPECT_EQ(store.get("a", "s", "k" + std::to_string(i)).substr(0, 3), "old") << i;
    EXPECT_EQ(store.get("a", "s", "z" + std::to_string(i), "none"), "none") << i;
  }
}

TEST(Settings, OfManyWritesAreKeptAllOrNone) {
  ScratchFolder folder;
  SqliteSettingsStore store(folder / "settings.db");
  ASSERT_TRUE(store.save("a", "s", "k1", "old"));
  sql(folder / "settings.db", "CREATE TRIGGER refuse BEFORE INSERT ON settings WHEN new.key='k2'"
                              " BEGIN SELECT RAISE(ABORT, 'refused'); END");
  EXPECT_FALSE(store.saveAll({{"a", "s", "k1", "new"}, {"a", "s", "k2", "new"}}));
  EXPECT_EQ(store.get("a", "s", "k1"), "old");
  EXPECT_TRUE(store.saveAll({{"a", "s", "k1", "newer"}, {"a", "s", "k3", "newer"}}));
  EXPECT_EQ(store.get("a", "s", "k1"), "newer");
}

struct Damage {
  const char* what;
  void (*make)(const ScratchFolder&);
};

const Damage damages[] = {
    {"bytes of something else",
     [](const ScratchFolder& folder) { folder.write("settings.db", std::string(5000, 'x')); }},
    {"a short text", [](const ScratchFolder& folder) { folder.write("settings.db", "hello"); }},
    {"cut in the middle",
     [](const ScratchFolder& folder) {
       std::filesystem::resize_file(folder / "settings.db", std::filesystem::file_size(folder / "settings.db") / 2);
     }},
    {"a page overwritten",
     [](const ScratchFolder& folder) {
       std::string bytes = folder.read("settings.db");
       bytes.replace(4096, 2048, 2048, '\x7F');
       folder.write("settings.db", bytes);
     }},
    {"a database of another program",
     [](const ScratchFolder& folder) {
       std::filesystem::remove(folder / "settings.db");
       sql(folder / "settings.db", "CREATE TABLE cookies(host, value)");
     }},
    {"tables of another form",
     [](const ScratchFolder& folder) {
       sql(folder / "settings.db", "DROP TABLE settings; CREATE TABLE settings(name, text)");
     }},
};

class DamagedSettings : public testing::TestWithParam<Damage> {};

TEST_P(DamagedSettings, AreSetAsideAndAFreshFileIsMade) {
  ScratchFolder folder;
  const std::string file = folder / "settings.db";
  {
    SqliteSettingsStore store(file);
    ASSERT_TRUE(store.saveAll(manyWrites("", 400, "old")));
  }
  folder.write("settings.db.damaged-1", "an earlier one");
  GetParam().make(folder);
  const std::string damaged = folder.read("settings.db");
  {
    SqliteSettingsStore store(file);
    ASSERT_EQ(store.database().setAside().value_or(""), file + ".damaged-2");
    EXPECT_EQ(store.get("a", "s", "1", "fallback"), "fallback");
    ASSERT_TRUE(store.save("a", "s", "1", "fresh"));
  }
  EXPECT_EQ(folder.read("settings.db.damaged-1"), "an earlier one");
  EXPECT_EQ(folder.read("settings.db.damaged-2"), damaged);
  SqliteSettingsStore again(file);
  EXPECT_FALSE(again.database().setAside());
  EXPECT_EQ(again.get("a", "s", "1"), "fresh");
}

INSTANTIATE_TEST_SUITE_P(All, DamagedSettings, testing::ValuesIn(damages), [](const auto& test) {
  std::string name = test.param.what;
  for (char& c : name)
    if (c == ' ') c = '_';
  return name;
});

TEST(Settings, InAMissingFolderAnswerWithErrorsUntilItIsThere) {
  ScratchFolder folder;
  SqliteSettingsStore store(folder / "later/settings.db");
  EXPECT_EQ(store.get("a", "s", "k", "fallback"), "fallback");
  EXPECT_EQ(store.save("a", "s", "k", "v").error().code, ErrorCode::NotFound);
  EXPECT_FALSE(store.saveAll({{"a", "s", "k", "v"}}));
  EXPECT_FALSE(store.remove("a", "s", "k"));
  EXPECT_TRUE(store.sections("a").empty());
  std::filesystem::create_directory(folder / "later");
  ASSERT_TRUE(store.save("a", "s", "k", "v"));
  EXPECT_EQ(store.get("a", "s", "k"), "v");
}

// Permissions do not bind root, so the check runs in a child as nobody.
int asNobody(const std::function<bool()>& check) {
  const pid_t child = ::fork();
  if (child == 0) {
    const bool dropped = ::geteuid() != 0 || (::setgid(65534) == 0 && ::setuid(65534) == 0);
    ::_exit(!dropped ? 77 : check() ? 0 : 1);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(Settings, InAReadOnlyFolderAreReadAndNotWritten) {
  ScratchFolder folder;
  const std::string file = folder / "settings.db";
  {
    SqliteSettingsStore store(file);
    ASSERT_TRUE(store.save("a", "s", "k", "kept"));
  }
  namespace fs = std::filesystem;
  fs::permissions(file, fs::perms(0444));
  fs::permissions(folder / "settings.db-journal", fs::perms(0444));
  fs::permissions(folder.path(), fs::perms(0555));
  EXPECT_EQ(asNobody([&] {
              SqliteSettingsStore store(file);
              const auto saved = store.save("a", "s", "k", "new");
              return store.get("a", "s", "k") == "kept" && !saved && saved.error().code == ErrorCode::AccessDenied;
            }),
            0);
  EXPECT_EQ(asNobody([&] {
              SqliteSettingsStore store(folder / "other.db");
              const auto saved = store.save("a", "s", "k", "new");
              return !saved && saved.error().code == ErrorCode::AccessDenied && store.get("a", "s", "k", "f") == "f";
            }),
            0);
  fs::permissions(folder.path(), fs::perms(0755));
}

TEST(Settings, OnAFullVolumeKeepTheOldValue) {
  ScratchFolder folder;
  if (::mount("tmpfs", folder.path().c_str(), "tmpfs", 0, "size=128k") != 0) GTEST_SKIP() << "may not mount a volume";
  {
    SqliteSettingsStore store(folder / "settings.db");
    EXPECT_TRUE(store.save("a", "s", "k", "old"));
    const auto saved = store.save("a", "s", "k", std::string(300'000, 'x'));
    EXPECT_FALSE(saved);
    if (!saved) {
      EXPECT_EQ(saved.error().code, ErrorCode::NoSpace);
    }
    EXPECT_EQ(store.get("a", "s", "k"), "old");
  }
  ::umount(folder.path().c_str());
}

}  // namespace
}  // namespace varnholt::platform::posix
