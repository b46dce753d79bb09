#include "core/settings.hpp"

#include "core/init_state.hpp"
#include "core/kept_files.hpp"
#include "core/registry_access.hpp"
#include "support/app_rig.hpp"

namespace varnholt::core {
namespace {

class SettingsTest : public testing::Test {
 protected:
  test::AppRig rig;
  Settings settings{rig.platform->settings};
};

TEST_F(SettingsTest, NoTwoKeysOfTheVocabularyAreOneInTheStore) {
  std::set<std::string> seen;
  for (const auto& key : setting::all()) {
    std::string name = std::string(key.application) + "/" + std::string(key.section) + "/" + std::string(key.key);
    for (char& c : name)
      c = static_cast<char>(std::tolower(c));
    EXPECT_TRUE(seen.insert(name).second) << name;
    EXPECT_FALSE(key.meaning.empty()) << name;
  }
}

TEST_F(SettingsTest, NumbersAreSinglePrecisionTextsInTheRegionalForm) {
  using Row = std::pair<const char*, std::optional<double>>;
  for (const auto& [text, number] : {Row{"123", 123}, Row{"-15.5", -15.5}, Row{"345,25", 345.25}, Row{"", {}},
                                     Row{"12x", {}}, Row{"x", {}}, Row{"1e400", {}}, Row{"nan", {}}}) {
    settings.save(setting::Left, text);
    EXPECT_EQ(settings.number(setting::Left), number) << text;
  }
  settings.save(setting::Left, 1234.1);
  EXPECT_EQ(settings.get(setting::Left), "1234.1");
}

TEST_F(SettingsTest, TheClockFollowsTheRegionUntilTheUserChooses) {
  EXPECT_EQ(LoadInitSettings(settings, true).DateTimeFormat, "1");
  EXPECT_EQ(LoadInitSettings(settings, false).DateTimeFormat, "0");
  settings.save(setting::DateTimeFormat, "0");
  EXPECT_EQ(LoadInitSettings(settings, true).DateTimeFormat, "0");
}

TEST_F(SettingsTest, RegistryWrappersGiveFallbacksAndNeverErrors) {
  using platform::RegistryRoot;
  RegistryAccess registry(rig.platform->registry, rig.app().dialogs);
  const std::string key = "Software\\Varnholt test";
  EXPECT_EQ(std::get<std::string>(registry.GetRegistryValue(RegistryRoot::CurrentUser, key, "name", "none")), "none");
  EXPECT_FALSE(registry.CheckRegistryKey(RegistryRoot::CurrentUser, key));
  EXPECT_FALSE(registry.SetRegistryValue(RegistryRoot::CurrentUser, key, "name", std::string("x")));

  rig.loop.whenShows("Form13").reads({"Caption|Information", "Label1|Window = 65535"}).closes();
  EXPECT_TRUE(registry.SetRegValue(RegistryRoot::CurrentUser, key, "Window", 65535));
  for (const char* spelling : {"SOFTWARE\\varnholt TEST", "\\Software\\Varnholt test\\", "software", ""})
    EXPECT_TRUE(registry.CheckRegistryKey(RegistryRoot::CurrentUser, spelling)) << spelling;
  for (const char* other : {"Software\\Varnholt", "Varnholt test", "Software\\Varnholt test\\Deeper"})
    EXPECT_FALSE(registry.CheckRegistryKey(RegistryRoot::CurrentUser, other)) << other;
  const auto number = registry.GetRegistryValue(RegistryRoot::CurrentUser, key, "window", std::uint32_t{1});
  EXPECT_EQ(std::get<std::uint32_t>(number), 65535u);
  EXPECT_EQ(std::get<std::string>(registry.GetRegistryValue(RegistryRoot::CurrentUser, key, "window", "text")), "text")
      << "a value of another type is no answer";

  EXPECT_TRUE(registry.SetRegistryValue(RegistryRoot::CurrentUser, key, "name", std::string("abc\0def", 7)));
  EXPECT_EQ(std::get<std::string>(registry.GetRegistryValue(RegistryRoot::CurrentUser, key, "name", "")), "abc");
}

TEST_F(SettingsTest, TextFilesAreReadWithEitherLineEndAndWrittenWithOne) {
  const std::string file = rig.programFolder() + "\\lines.txt";
  ASSERT_TRUE(rig.platform->files.writeFile(file, "\xEF\xBB\xBF"
                                                  "one\ntwo\r\n\r\n\xFFthree"));
  EXPECT_EQ(readLines(rig.platform->files, file), (std::vector<std::string>{"one", "two", "\xFFthree"}));
  ASSERT_TRUE(writeLines(rig.platform->files, file, {"a", "b"}));
  EXPECT_EQ(*rig.platform->files.readFile(file), "a\r\nb\r\n");
  EXPECT_TRUE(readLines(rig.platform->files, file + " gone").empty());
}

TEST_F(SettingsTest, ALineBreakOfANameStaysInItsLineAndNoTwoNamesMeet) {
  const std::string file = rig.programFolder() + "\\lines.txt";
  const std::vector<std::string> names{"a\r\nb",
                                       "a\xEF\x80\x8D\xEF\x80\x8A"
                                       "b",
                                       "\xEF\x80\x9B\n",
                                       "\xEF\x80\x9B\xEF\x80\x8A",
                                       "\xEF\x80\x9B\xEF\x81\x9C",
                                       "\xEF\x80\x9B\xEF\x80\x9B",
                                       "\xEF"};
  ASSERT_TRUE(writeLines(rig.platform->files, file, names));
  EXPECT_EQ(std::ranges::count(*rig.platform->files.readFile(file), '\n'), std::ssize(names));
  EXPECT_EQ(readLines(rig.platform->files, file), names);
  EXPECT_EQ(entryOf("\xEF\x80\x9B\xEF\x81\x9C"), "\xEF\x80\x9B\xEF\x81\x9C") << "as written by hand";
}

TEST_F(SettingsTest, WhatCannotBeReadToItsEndIsKeptBeforeItsFileIsWrittenAgain) {
  auto& disk = rig.platform->files;
  KeptFiles kept(rig.app().program);
  const std::string file = rig.programFolder() + "\\kept.txt";
  const std::string large(LargestTextFile, 'x');
  struct Case {
    std::string bytes;
    std::size_t lines;
    bool whole;
  };
  for (const Case& each : {Case{"one\r\ntwo\r\n", 2, true}, Case{"one\ntwo", 2, true}, Case{"one\r\ntw", 2, false},
                           Case{"one\r\n" + large + "two", 1, false}}) {
    ASSERT_TRUE(disk.writeFile(file, each.bytes));
    EXPECT_EQ(kept.readLines(file).size(), each.lines);
    if (!each.whole) rig.loop.meets({{"Form12"}});
    ASSERT_TRUE(kept.writeLines(file, {"new"}));
    EXPECT_EQ(*disk.readFile(file), "new\r\n");
    const std::string aside = each.lines == 1 ? file + ".damaged-2" : file + ".damaged-1";
    EXPECT_EQ(disk.fileExists(aside), !each.whole);
    if (!each.whole) {
      EXPECT_EQ(*disk.fileSize(aside), each.bytes.size());
    }
    rig.loop.expectAllReached();
  }
  EXPECT_TRUE(kept.readLines(file + " gone").empty() && kept.wasReadWhole(file + " gone"));
}

}  // namespace
}  // namespace varnholt::core
