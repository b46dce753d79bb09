#include "core/item_text.hpp"

#include "core/attribute_words.hpp"
#include "core/name_split.hpp"
#include "core/val_input_rule.hpp"
#include "support/testing.hpp"

namespace varnholt::core {
namespace {

const platform::RegionalFormats english{};

TEST(ItemText, LeadsToOneFullPath) {
  for (const auto text :
       test::Rows{"a.txt|C:\\Photos|C:\\Photos\\a.txt", "a.txt|C:\\|C:\\a.txt", "D:\\x\\a.txt|C:\\Photos|D:\\x\\a.txt",
                  "D:odd name|C:\\Photos|C:\\Photos\\D:odd name", "a.txt||a.txt"}) {
    const test::Row row(text);
    EXPECT_EQ(entryPath(row.first, row.second), row.third);
  }
}

TEST(Rows, SplitNamesSoThatTheyCanBePutTogetherAgain) {
  for (const auto text :
       test::Rows{"a.b.txt|a.b|txt", "Makefile|Makefile|", ".profile|.profile|", "ends.|ends.|", "||"}) {
    const test::Row row(text);
    const NameParts parts = splitName(row.first);
    EXPECT_TRUE(parts.base == row.second && parts.extension == row.third) << text;
    EXPECT_EQ(rowFileName(parts.base, parts.extension), row.first);
  }
}

TEST(Rows, ShowTheClassOfTheirAttributes) {
  const std::map<platform::Attributes, ItemClass> classes{{1, ReadOnlyClass}, {33, ReadOnlyClass}, {2, HiddenClass},
                                                          {3, HiddenClass},   {4, HiddenClass},    {6, HiddenClass},
                                                          {7, HiddenClass},   {34, HiddenClass},   {35, HiddenClass},
                                                          {36, HiddenClass},  {38, HiddenClass},   {39, HiddenClass}};
  for (platform::Attributes value = 0; value <= 64; ++value)
    EXPECT_EQ(itemClass(value), classes.contains(value) ? classes.at(value) : FileClass) << value;
}

TEST(Rows, SortByTheirHiddenKeys) {
  std::vector<std::string> keys;
  for (const std::uint64_t size : {1ull, 9ull, 10ull, 999ull, 1000ull, 1'000'000ull, 999'999'999'999ull})
    keys.push_back(sizeKey(size, english));
  EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end()));
  EXPECT_EQ(keys[4], "000,000,001,000");
  EXPECT_EQ(sizeKey(0, english), "0");
  EXPECT_EQ(panelSize(0, english), "0");
  EXPECT_EQ(panelSize(1'234'567, english), "1,234,567");
}

TEST(Rows, CountDaysFromTheEndOf1899) {
  const std::pair<platform::CalendarTime, std::int64_t> cases[] = {
      {{1899, 12, 30}, 0},     {{1900, 3, 1}, 61},   {{2007, 3, 9, 23, 59, 59}, 39150},
      {{2100, 12, 31}, 73415}, {{1899, 12, 29}, -1}, {{1600, 1, 1}, -109571}};
  for (const auto& [time, days] : cases)
    EXPECT_EQ(dayNumber(time), days) << time.year;
  EXPECT_EQ(dateKey({2007, 3, 9, 23, 59, 59}), "000000000039150");
  EXPECT_EQ(dateKey({1899, 12, 29}), "-000000000000001");
}

TEST(Rows, ShowDatesByTheClockFormat) {
  const platform::CalendarTime time{2007, 3, 9, 14, 5, 7, 5};
  const auto all = [&](const char* format) {
    std::string texts;
    for (auto* text : {panelRowDate, propertiesDate, treeDate, statusTime, statusDate})
      texts += text(format, time) + "|";
    return texts;
  };
  EXPECT_EQ(all("1"), "03-09-07  02:05  PM|03-09-07  02:05 PM|03-09-07 02:05 PM|02:05:07 PM|03-09-2007|");
  EXPECT_EQ(all("0"), "09-03-07  14:05|09-03-07  14:05|09-03-07 14:05|14:05:07|09-03-2007|");
}

TEST(Properties, WriteTypesInProperCase) {
  for (const auto text : test::Rows{"PNG image|Png Image", "C:\\MY files\\x|C:\\my Files\\x", "élan ÉTÉ|Élan Été",
                                    "  two  BLANKS |  Two  Blanks ", "\xFFX y|\xFFx Y"})
    EXPECT_EQ(properCase(test::Row(text).first), test::Row(text).second);
}

TEST(AttributeWords, AreThoseOfTheTable) {
  const std::tuple<platform::Attributes, const char*, const char*> cases[] = {
      {0, "No Attributes", "No Attributes !"},
      {6, "Hidden", "Hidden"},
      {23, "Folder  [Special]", ""},
      {38, "Archive,Hidden,System", "Archive,Hidden and System"},
      {37, "Cannot Identify Attributes !", "Cannot Identify Attributes !"},
      {48, "Folder  [ReadOnly]", "Folder(48), Read-Only"},
      {128, "Compressed File", "Compressed File"},
      {129, "Cannot Identify Attributes !", "Cannot Identify Attributes !"},
      // Compressed items have words of their own or those of the rest.
      {2082, "Compressed,ArchiveReady,Index service", "Compressed,ArchiveReady,Index service"},
      {2049, "Readonly", "Readonly"},
      {2064, "Folder  [Normal]", "Folder(16), Normal"},
      {2053, "Cannot Identify Attributes !", "Cannot Identify Attributes !"}};
  for (const auto& [value, statusBar, properties] : cases) {
    EXPECT_EQ(fileatrib(value), statusBar) << value;
    EXPECT_EQ(propertiesAttributes(value), properties) << value;
  }
}

TEST(ValInputRule, FindsTheFirstCharacterThatMayNotStandInAName) {
  for (const char refused : std::string("<>:/\\*?|\"")) {
    const std::string name = std::string("ab") + refused + "c*";
    EXPECT_EQ(firstRefusedCharacter(name), refused);
    EXPECT_EQ(refusedCharacterText(refused), std::string("[ ") + refused + "InValid Chr. In Filename !, ");
  }
  for (const char* name : {"", "a.b c-d_e", "ü;,'&%$", "con"})
    EXPECT_FALSE(firstRefusedCharacter(name)) << name;
}

}  // namespace
}  // namespace varnholt::core
