#include "core/wildcard.hpp"
#include "support/testing.hpp"

namespace varnholt::core {
namespace {

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
