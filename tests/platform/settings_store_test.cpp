#include "platform/posix/settings_store.hpp"

#include "support/temp_folder.hpp"

#include <sqlite3.h>

namespace varnholt::platform::posix {
namespace {

class SettingsTest : public testing::Test {
 protected:
  test::ScratchFolder folder;
  const std::string file = folder / "settings.db";
};

TEST_F(SettingsTest, CompareWithoutCase) {
  SqliteSettingsStore store(file);
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

void sql(const std::string& file, const char* text) {
  sqlite3* handle = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &handle), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(handle, text, nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(handle);
}

TEST_F(SettingsTest, ThatAreDamagedAreSetAsideAndAFreshFileIsMade) {
  const std::pair<const char*, std::function<void()>> damages[] = {
      {"bytes of something else", [this] { folder.write("settings.db", std::string(5000, 'x')); }},
      {"a page overwritten",
       [this] { folder.write("settings.db", folder.read("settings.db").replace(4096, 2048, 2048, '\x7F')); }},
      {"a database of another program",
       [this] {
         std::filesystem::remove(file);
         sql(file, "CREATE TABLE cookies(host, value)");
       }},
      {"tables of another form", [this] { sql(file, "DROP TABLE settings; CREATE TABLE settings(name, text)"); }}};
  int number = 0;
  for (const auto& [what, make] : damages) {
    ASSERT_TRUE(SqliteSettingsStore(file).save("a", "s", "k", std::string(20'000, 'o')));
    make();
    const std::string damaged = folder.read("settings.db");
    const std::string aside = "settings.db.damaged-" + std::to_string(++number);
    {
      SqliteSettingsStore store(file);
      ASSERT_EQ(store.database().setAside().value_or(""), folder / aside) << what;
      EXPECT_EQ(store.get("a", "s", "k", "fallback"), "fallback");
      ASSERT_TRUE(store.save("a", "s", "k", "fresh"));
    }
    EXPECT_EQ(folder.read(aside), damaged) << what;
    const SqliteSettingsStore again(file);
    EXPECT_EQ(again.get("a", "s", "k"), "fresh");
  }
}

TEST_F(SettingsTest, DoNotWaitForAPipeInPlaceOfTheirFile) {
  folder.pipe("settings.db");
  SqliteSettingsStore store(file);
  EXPECT_EQ(store.database().setAside().value_or(""), folder / "settings.db.damaged-1");
  EXPECT_TRUE(store.save("a", "s", "k", "fresh"));
  std::filesystem::remove(folder / "settings.db-journal");
  folder.pipe("settings.db-journal");
  EXPECT_TRUE(SqliteSettingsStore(file).database().refused()) << "nor in place of its journal";
}

TEST_F(SettingsTest, InAReadOnlyFolderAreReadAndNotWritten) {
  ASSERT_TRUE(SqliteSettingsStore(file).save("a", "s", "k", "kept"));
  namespace fs = std::filesystem;
  fs::permissions(file, fs::perms(0444));
  fs::permissions(folder / "settings.db-journal", fs::perms(0444));
  fs::permissions(folder.path(), fs::perms(0555));
  EXPECT_TRUE(test::heldAsOrdinaryUser([&] {
    for (const auto& [name, read] : {std::pair{file, "kept"}, std::pair{folder / "other.db", "none"}}) {
      SqliteSettingsStore store(name);
      EXPECT_EQ(test::codeOf(store.save("a", "s", "k", "new")), ErrorCode::AccessDenied) << name;
      EXPECT_EQ(store.get("a", "s", "k", "none"), read);
    }
  }));
  fs::permissions(folder.path(), fs::perms(0755));
}

}  // namespace
}  // namespace varnholt::platform::posix
