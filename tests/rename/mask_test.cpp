#include "core/picture_file.hpp"
#include "rename/field_rule.hpp"
#include "rename/mask.hpp"
#include "support/testing.hpp"

namespace varnholt::rename {
namespace {

const platform::RegionalFormats Points{",", ".", false};
const platform::RegionalFormats Commas{".", ",", false};

Mask adds(std::string text, std::string extension = "*") {
  Mask mask;
  mask.text = std::move(text);
  mask.extension = std::move(extension);
  return mask;
}

Mask cuts(std::string text) {
  Mask mask = adds(std::move(text));
  mask.cuts = true;
  return mask;
}

Mask counts(std::string base, std::string extension = "*") {
  Mask mask = adds("", std::move(extension));
  mask.newBase = true;
  mask.base = std::move(base);
  return mask;
}

Mask inLetters(Mask mask, Letters letters) {
  mask.letters = letters;
  return mask;
}

std::string nameBy(const Mask& mask, const std::string& name) {
  std::string counter = "1";
  return maskedName(mask, name, counter, Points);
}

TEST(MaskedName, AddsAndCuts) {
  for (const auto& [name, mask, expected] : std::vector<std::tuple<std::string, Mask, std::string>>{
           {"Report.txt", adds("Old_"), "Old_Report.txt"},
           {"aXb.txt", cuts("x"), "aXb.txt"},
           {"Report.txt", adds("", "bak"), "Report.bak"},
           {"Report.txt", cuts(""), "Report.txt"},
           {"aabb.txt", cuts("ab"), ".txt"},            // the second comes about by the first
           {"Report.txt", cuts("Report."), "txt"},      // the point belongs to the name
           {"Report.txt", cuts(".txt"), "Report.txt"},  // the extension does not
           {"Report.txt", adds("", ""), "Report."},
           {"README", adds("", "txt"), "READMEtxt"},
           {"ends.", adds("", "txt"), "ends.txt"},
           {".profile", adds("x"), "x.profile"},
           {".profile", adds("", "bak"), ".profilebak"}})
    EXPECT_EQ(nameBy(mask, name), expected) << name;
}

TEST(MaskedName, CountsCharactersAndNotBytes) {
  EXPECT_EQ(nameBy(cuts("ø"), "smørbrød.æøå"), "smrbrd.æøå");
  EXPECT_EQ(nameBy(inLetters(adds("Æ"), Letters::Lower), "ØL.ÉTÉ"), "æøl.été");
  EXPECT_EQ(nameBy(inLetters(adds("æ"), Letters::Upper), "øl.été"), "ÆØL.ÉTÉ");
  EXPECT_EQ(nameBy(inLetters(adds("x"), Letters::Upper), "a\xFF.b"), "XA\xFF.B") << "bytes of no character stay";
}

TEST(MaskedName, ANewBaseTakesACounter) {
  using Names = std::vector<std::string>;
  for (const auto& [mask, name, start, names] : std::vector<std::tuple<Mask, std::string, std::string, Names>>{
           {counts("Pic"), "Report.txt", "007", {"Pic007.txt", "Pic8.txt"}},
           {counts("Pic"), "README", "1", {"Pic1.", "Pic2."}},
           {counts("Pic", ""), "Report.txt", "1", {"Pic1."}},
           {counts(""), "Report.txt", "9", {"9.txt", "10.txt"}},
           {inLetters(counts("Pic", "Jpg"), Letters::Upper), "a.txt", "1", {"PIC1.JPG"}}}) {
    std::string counter = start;
    for (const std::string& expected : names)
      EXPECT_EQ(maskedName(mask, name, counter, Points), expected) << "from " << start;
  }
  std::string counter = "007";
  maskedName(adds("x"), "a.txt", counter, Points);
  EXPECT_EQ(counter, "007") << "without a new base it stands still";
}

TEST(NextCounter, GoesOnByOne) {
  // The counter, and the next one where a point or a comma stands before decimals; the other sign parts groups.
  for (const auto text : test::Rows{"9|10|10", "0099|100|100", "1.5|2.5|16", "1,5|16|2,5", "1.50|2.5|151", "2.0|3|21",
                                    "-1|0|0", "-0.25|0.75|-24", "-1.25|-0.25|-124", "+4|5|5", " 4 |5|5", ".5|1.5|1",
                                    "99999999999999999999|100000000000000000000|100000000000000000000"}) {
    const test::Row row(text);
    EXPECT_EQ(nextCounter(row.first, Points), row.second) << text;
    EXPECT_EQ(nextCounter(row.first, Commas), row.third) << text;
  }
}

TEST(NextCounter, ReadsTheSignsOfTheRegion) {
  for (const char* number : {"0", "12", "-3", "+3", "1.5", ".5", "5.", "1,000", " 7 ", "007"})
    EXPECT_TRUE(isNumeric(number, Points)) << number;
  for (const char* other : {"", " ", "a", "7a", "1.5.2", "-", ".", ",5", "--1", "1 2", "1.5,0", "ø"})
    EXPECT_FALSE(isNumeric(other, Points)) << other;
  EXPECT_TRUE(isNumeric("1.000,5", Commas));
  EXPECT_FALSE(isNumeric("1,000.5", Commas));
  const platform::RegionalFormats narrow{"\u202F", ",", false};
  EXPECT_EQ(nextCounter("1\u202F000,5", narrow), "1001,5");
}

TEST(FieldRules, RefuseTheirCharacters) {
  using Case = std::tuple<const char*, const FieldRule&, std::string, std::string>;
  for (const auto& [name, rule, refused, message] :
       std::initializer_list<Case>{{"base", BaseChars, "\\/<>\":|", "InValid Mask Pattern !, "},
                                   {"text", AddChars, "\\/<>\":|*?", "InValid Chr. Pattern !, "},
                                   {"extension", ExtChars, "\\/<>\":|.?", "InValid Chr. Pattern !, "},
                                   {"new name", NewNameChars, "\\/<>\":|*?", "InValid NewName !, "}}) {
    EXPECT_EQ(rule.message, message);
    for (char c = ' '; c <= '~'; ++c) {
      if (c == '*' && &rule == &ExtChars) continue;
      EXPECT_EQ(rule.allows(std::string("a") + c), refused.find(c) == std::string::npos) << name << ": " << c;
    }
    EXPECT_FALSE(rule.allows("a¤")) << name;
    EXPECT_TRUE(rule.allows("Smørrebrød 日本 \xA4")) << name;
    EXPECT_TRUE(rule.allows("")) << name;
  }
  EXPECT_TRUE(ExtChars.allows(" * "));
  EXPECT_FALSE(ExtChars.allows("*x"));
  EXPECT_FALSE(ExtChars.allows("**"));
}

TEST(Pictures, AreKnownByNameAndFirstBytes) {
  EXPECT_TRUE(core::hasPictureName("coast.JPG"));
  EXPECT_FALSE(core::hasPictureName("letter.txt"));
  EXPECT_EQ(core::pictureFormat("\xFF\xD8\xFF\xE0 the rest"), "jpeg");
  EXPECT_EQ(core::pictureFormat("<?xml version='1.0'?><!-- drawn --><svg/>"), "svg");
  EXPECT_EQ(core::pictureFormat("picture"), "");
  EXPECT_EQ(core::pictureFormat(""), "");
}

}  // namespace
}  // namespace varnholt::rename
