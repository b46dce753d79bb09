#include "core/wildcard.hpp"

#include "core/text_character.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace varnholt::core {
namespace {

TEST(Wildcards, MatchTheWholeText) {
  struct Case {
    const char *pattern, *text;
    bool matches;
  };
  const Case cases[] = {
      {"", "", true},
      {"", "a", false},
      {"*", "", true},
      {"*", "anything", true},
      {"*.txt", "a.txt", true},
      {"*.txt", "a.txt.bak", false},
      {"*.*", "Makefile", false},
      {"a*b*c", "a1b2b3c", true},
      {"a*b*c", "a1b2b3", false},
      {"?", "", false},
      {"?", "a", true},
      {"??", "a", false},
      {"?", "ä", true},
      {"??", "ä", false},
      {"?", "\xFF", true},
      {"img###.jpg", "img123.jpg", true},
      {"img###.jpg", "img12x.jpg", false},
      {"#", "\u0663", false},
      {"[a-c]x", "bx", true},
      {"[a-c]x", "dx", false},
      {"[!a-c]x", "dx", true},
      {"[!a-c]x", "ax", false},
      {"[!a]", "", false},
      {"[abx-z]", "y", true},
      {"[-a]", "-", true},
      {"[a-]", "-", true},
      {"[a-]", "b", false},
      {"[ä-ö]", "ö", true},
      {"[ä-ö]", "a", false},
      {"[*]", "*", true},
      {"[*]", "a", false},
      {"[?][#]", "?#", true},
      {"[!]", "!", true},
      {"[!]", "a", false},
      {"[!!]", "a", true},
      {"[!!]", "!", false},
      {"[[]", "[", true},
      {"a]", "a]", true},
      {"[]", "", true},
      {"a[]b", "ab", true},
      {"[]", "]", false},
      {"[", "[", false},
      {"*[a", "xa", false},
      {"[a", "[a", false},
      {"[z-a]", "b", false},
      {"*[z-a]*", "", false},
      {"A", "a", false},
  };
  for (const Case& c : cases)
    EXPECT_EQ(wildcardMatch(c.pattern, c.text), c.matches) << c.pattern << " against " << c.text;
}

// The rule word for word: slow, and too simple to be wrong.
bool reference(std::string_view pattern, std::string_view text) {
  if (pattern.empty()) return text.empty();
  if (pattern.front() == '*') {
    if (reference(pattern.substr(1), text)) return true;
    return !text.empty() && reference(pattern, text.substr(firstCharacter(text).bytes));
  }
  if (pattern.starts_with("[]")) return reference(pattern.substr(2), text);
  if (text.empty()) return false;
  const TextCharacter character = firstCharacter(text);
  const std::string_view restOfText = text.substr(character.bytes);
  if (pattern.front() == '?') return reference(pattern.substr(1), restOfText);
  if (pattern.front() == '#')
    return std::isdigit(static_cast<unsigned char>(text.front())) && reference(pattern.substr(1), restOfText);
  if (pattern.front() != '[') {
    const size_t bytes = firstCharacter(pattern).bytes;
    return pattern.substr(0, bytes) == text.substr(0, character.bytes) && reference(pattern.substr(bytes), restOfText);
  }
  const size_t close = pattern.find(']');
  std::string_view inside = pattern.substr(1, close - 1);
  const bool negated = inside.size() > 1 && inside.front() == '!';
  if (negated) inside.remove_prefix(1);
  bool found = false;
  for (size_t i = 0; i < inside.size();) {
    const bool isRange = i + 2 < inside.size() && inside[i + 1] == '-';
    const auto first = static_cast<unsigned char>(inside[i]),
               last = static_cast<unsigned char>(inside[isRange ? i + 2 : i]);
    found = found || (character.code >= first && character.code <= last);
    i += isRange ? 3 : 1;
  }
  return found != negated && reference(pattern.substr(close + 1), restOfText);
}

bool isSound(std::string_view pattern) {
  for (size_t open = pattern.find('['); open != std::string_view::npos; open = pattern.find('[', open)) {
    const size_t close = pattern.find(']', open);
    if (close == std::string_view::npos) return false;
    std::string_view inside = pattern.substr(open + 1, close - open - 1);
    if (inside.size() > 1 && inside.front() == '!') inside.remove_prefix(1);
    for (size_t i = 0; i + 2 < inside.size();) {
      if (inside[i + 1] != '-') {
        ++i;
        continue;
      }
      if (inside[i] > inside[i + 2]) return false;
      i += 3;
    }
    open = close;
  }
  return true;
}

TEST(Wildcards, AgreeWithTheRuleWordForWord) {
  std::mt19937 random(1);
  const std::string_view patternMarks = "ab1**??#[]!-[a][!b]", textMarks = "aab1]-!";
  int matched = 0;
  for (int i = 0; i < 200'000; ++i) {
    std::string pattern, text;
    for (unsigned n = random() % 9; n > 0; --n)
      pattern += patternMarks[random() % patternMarks.size()];
    for (unsigned n = random() % 9; n > 0; --n)
      text += textMarks[random() % textMarks.size()];
    if (random() % 8 == 0) text += "ä\xFF";
    const bool expected = isSound(pattern) && reference(pattern, text);
    matched += expected ? 1 : 0;
    ASSERT_EQ(wildcardMatch(pattern, text), expected) << pattern << " against " << text;
  }
  EXPECT_GT(matched, 2'000);
}

TEST(Wildcards, MatchAnyBytesByThemselves) {
  std::mt19937 random(2);
  for (int i = 0; i < 50'000; ++i) {
    std::string pattern, text;
    for (unsigned n = random() % 12; n > 0; --n)
      pattern += static_cast<char>(random());
    for (unsigned n = random() % 12; n > 0; --n)
      text += static_cast<char>(random());
    ASSERT_TRUE(wildcardMatch("*", text));
    if (wildcardMatch(pattern, text)) {
      ASSERT_TRUE(wildcardMatch("*" + pattern, text));
    }
    std::erase_if(text, [](char c) { return std::string_view("*?#[").find(c) != std::string_view::npos; });
    ASSERT_TRUE(wildcardMatch(text, text));
    ASSERT_TRUE(wildcardMatch("*" + text + "*", text));
  }
}

TEST(Wildcards, DoNotHangOnManyStars) {
  std::string pattern;
  for (int i = 0; i < 60; ++i)
    pattern += "*a";
  EXPECT_FALSE(wildcardMatch(pattern + "b", std::string(20'000, 'a')));
}

}  // namespace
}  // namespace varnholt::core
