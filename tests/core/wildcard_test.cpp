#include "core/wildcard.hpp"
#include "support/testing.hpp"

namespace varnholt::core {
namespace {

TEST(Wildcards, MatchTheWholeText) {
  struct Case {
    const char *pattern, *text;
    bool matches;
  };
  const Case cases[] = {{"", "", true},
                        {"", "a", false},
                        {"*", "", true},
                        {"*.txt", "a.txt", true},
                        {"*.txt", "a.txt.bak", false},
                        {"a*b*c", "a1b2b3c", true},
                        {"a*b*c", "a1b2b3", false},
                        {"?", "", false},
                        {"?", "ä", true},
                        {"??", "ä", false},
                        {"?", "\xFF", true},
                        {"img###.jpg", "img123.jpg", true},
                        {"img###.jpg", "img12x.jpg", false},
                        {"#", "\u0663", false},
                        {"[a-c]x", "bx", true},
                        {"[a-c]x", "dx", false},
                        {"[!a-c]x", "dx", true},
                        {"[!a]", "", false},
                        {"[abx-z]", "y", true},
                        {"[-a]", "-", true},
                        {"[a-]", "-", true},
                        {"[ä-ö]", "ö", true},
                        {"[*]", "*", true},
                        {"[?][#]", "?#", true},
                        {"[!]", "!", true},
                        {"[!!]", "a", true},
                        {"[!!]", "!", false},
                        {"a]", "a]", true},
                        {"a[]b", "ab", true},
                        {"[]", "]", false},
                        {"*[a", "xa", false},
                        {"[a", "[a", false},
                        {"[z-a]", "b", false},
                        {"*[z-a]*", "", false},
                        {"A", "a", false}};
  for (const Case& c : cases)
    EXPECT_EQ(wildcardMatch(c.pattern, c.text), c.matches) << c.pattern << " against " << c.text;
}

TEST(Wildcards, DoNotHangOnManyStars) {
  std::string pattern;
  for (int i = 0; i < 60; ++i)
    pattern += "*a";
  EXPECT_FALSE(wildcardMatch(pattern + "b", std::string(20'000, 'a')));
}

}  // namespace
}  // namespace varnholt::core
