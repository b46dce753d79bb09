#include "platform/posix/settings_store.hpp"

#include "support/scratch_folder.hpp"

#include <gtest/gtest.h>

#include <sqlite3.h>
#include <sys/mount.h>
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
  for (const char* section : {"work", "Archive", "WORK"})
    ASSERT_TRUE(store.save("Kelvarton", section, "Text", section));
  EXPECT_EQ(store.sections("KELVARTON"), (std::vector<std::string>{"Archive", "Filefilter", "work"}));
  ASSERT_TRUE(store.remove("KELVARTON", "filefilter", "FILEDATA"));
  EXPECT_EQ(store.get("Kelvarton", "Filefilter", "FileData", "gone"), "gone");
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

struct Damage {
  const char* what;
  void (*make)(const ScratchFolder&);
};

const Damage damages[] = {
    {"bytes of something else",
     [](const ScratchFolder& folder) { folder.write("settings.db", std::string(5000, 'x')); }},
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
