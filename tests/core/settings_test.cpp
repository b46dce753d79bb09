#include "core/settings.hpp"

#include "core/init_state.hpp"
#include "core/registry_access.hpp"
#include "core/text_file.hpp"
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

}  // namespace
}  // namespace varnholt::core
