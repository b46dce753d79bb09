#include "core/attribute_words.hpp"
#include "core/format.hpp"
#include "core/item_text.hpp"
#include "core/val_input_rule.hpp"
#include "core/wildcard.hpp"
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

TEST(Rows, ShowTheClassOfTheirAttributes) {
  const std::map<platform::Attributes, ItemClass> classes{{1, ReadOnlyClass}, {33, ReadOnlyClass}, {2, HiddenClass},
                                                          {3, HiddenClass},   {4, HiddenClass},    {6, HiddenClass},
                                                          {7, HiddenClass},   {34, HiddenClass},   {35, HiddenClass},
                                                          {36, HiddenClass},  {38, HiddenClass},   {39, HiddenClass}};
  for (platform::Attributes value = 0; value <= 64; ++value)
    EXPECT_EQ(itemClass(value), classes.contains(value) ? classes.at(value) : FileClass) << value;
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
  // The value, its words in the status bar, and in the properties. Compressed items have words of their own or those of
  // the rest.
  for (const auto text :
       test::Rows{"0|No Attributes|No Attributes !", "6|Hidden|Hidden", "23|Folder  [Special]|",
                  "38|Archive,Hidden,System|Archive,Hidden and System",
                  "37|Cannot Identify Attributes !|Cannot Identify Attributes !",
                  "48|Folder  [ReadOnly]|Folder(48), Read-Only", "128|Compressed File|Compressed File",
                  "129|Cannot Identify Attributes !|Cannot Identify Attributes !",
                  "2082|Compressed,ArchiveReady,Index service|Compressed,ArchiveReady,Index service",
                  "2049|Readonly|Readonly", "2064|Folder  [Normal]|Folder(16), Normal",
                  "2053|Cannot Identify Attributes !|Cannot Identify Attributes !"}) {
    const test::Row row(text);
    const auto value = static_cast<platform::Attributes>(std::stoul(row.first));
    EXPECT_EQ(fileatrib(value), row.second) << value;
    EXPECT_EQ(propertiesAttributes(value), row.third) << value;
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

TEST(NumberPictures, WriteWholeNumbersWithoutLoss) {
  for (const auto text :
       test::Rows{"#,#|0|", "#,#|1000|1,000", "###,###|123456789|123,456,789", "#,#|-1234|-1,234",
                  "#,#|9007199254740993|9,007,199,254,740,993", "#,#|-9223372036854775808|-9,223,372,036,854,775,808",
                  "000,000,000,000|1234|000,000,001,234", "000,000,000,000|1234567890123456|1,234,567,890,123,456",
                  "000000|12|000012", "0.00|5|5.00", "#.##|5|5.", "[ #,# MB ]|12345|[ 12,345 MB ]"})
    EXPECT_EQ(format(test::Row(text).first, std::int64_t{std::stoll(test::Row(text).second)}, english),
              test::Row(text).third)
        << text;
  EXPECT_EQ(format("#,#", UINT64_MAX, english), "18,446,744,073,709,551,615");
}

TEST(NumberPictures, RoundHalfAwayFromZeroAndTakeTheRegionsSigns) {
  for (const auto text :
       test::Rows{"#,#|2.5|3", "#,#|-2.5|-3", "#,#|-0.4|", "0.00|1.005|1.01", "0.00|9.999|10.00", "#,#|999.5|1,000",
                  "#.##|0.25|.25", "#,##0.0#|1234.5|1,234.5", "#,#|1e15|1,000,000,000,000,000", "#,#|nan|"})
    EXPECT_EQ(format(test::Row(text).first, std::stod(test::Row(text).second), english), test::Row(text).third) << text;
  EXPECT_EQ(format("0", 1e30, english).size(), 31u);
  const platform::RegionalFormats french{.thousandsSign = "\u202F", .decimalSign = ",", .twelveHourClock = false};
  EXPECT_EQ(format("#,##0.00", 1234567.5, french), "1\u202F234\u202F567,50");
}

TEST(NumberPictures, AreWrittenQuicklyAsTheyAreInGeneral) {
  for (const std::uint64_t value : {0ull, 7ull, 999ull, 1000ull, 123'456ull, 999'999'999'999ull, 1ull << 63}) {
    std::string one, twelve;
    appendGrouped(value, 1, ",", one);
    appendGrouped(value, 12, ",", twelve);
    EXPECT_EQ(one, format("#,##0", value, english));
    EXPECT_EQ(twelve, format("000,000,000,000", value, english));
  }
}

TEST(DatePictures, TellMonthsFromMinutes) {
  const platform::CalendarTime afternoon{2007, 3, 9, 14, 5, 7, 5}, midnight{1999, 12, 31, 0, 59, 0, 5};
  for (const auto text :
       test::Rows{"mm-dd-yy  hh:mm  AM/PM|03-09-07  02:05  PM|12-31-99  12:59  AM",
                  "dd-mm-yy  hh:mm|09-03-07  14:05|31-12-99  00:59", "hh:nn:ss AM/PM|02:05:07 PM|12:59:00 AM",
                  "hhmm|1405|0059", "hh  mm|14  03|00  12",
                  "dd-mm-yyyy hh:mm mm|09-03-2007 14:05 03|31-12-1999 00:59 12", "d m y h|d m y h|d m y h"}) {
    const test::Row row(text);
    EXPECT_EQ(formatDate(row.first, afternoon), row.second);
    EXPECT_EQ(formatDate(row.first, midnight), row.third);
  }
  EXPECT_EQ(formatDate("hh AM/PM", {2007, 3, 9, 12, 0, 0, 5}), "12 PM");
}

TEST(Wildcards, MatchTheWholeText) {
  for (const auto row : test::Rows{"|", "*|", "*.txt|a.txt", "a*b*c|a1b2b3c", "?|ä", "?|\xFF", "img###.jpg|img123.jpg",
                                   "[a-c]x|bx", "[!a-c]x|dx", "[abx-z]|y", "[-a]|-", "[a-]|-", "[ä-ö]|ö", "[*]|*",
                                   "[?][#]|?#", "[!]|!", "[!!]|a", "a]|a]", "a[]b|ab"})
    EXPECT_TRUE(wildcardMatch(test::Row(row).first, test::Row(row).second)) << row;
  for (const auto row :
       test::Rows{"|a", "*.txt|a.txt.bak", "a*b*c|a1b2b3", "?|", "??|ä", "img###.jpg|img12x.jpg", "#|\u0663",
                  "[a-c]x|dx", "[!a]|", "[!!]|!", "[]|]", "*[a|xa", "[a|[a", "[z-a]|b", "*[z-a]*|", "A|a"})
    EXPECT_FALSE(wildcardMatch(test::Row(row).first, test::Row(row).second)) << row;
}

TEST(Wildcards, DoNotHangOnManyStars) {
  std::string pattern;
  for (int i = 0; i < 60; ++i)
    pattern += "*a";
  EXPECT_FALSE(wildcardMatch(pattern + "b", std::string(20'000, 'a')));
}

}  // namespace
}  // namespace varnholt::core
