#include "core/wildcard.hpp"

#include "core/text_character.hpp"

namespace varnholt::core {
namespace {

struct ClassRange {
  std::uint32_t first = 0, last = 0;
};

/// Walks a class from its inside; `next` gives false at the end.
class ClassReader {
 public:
  explicit ClassReader(std::string_view inside) : rest_(inside) {}

  bool next(ClassRange& range) {
    if (rest_.empty()) return false;
    range.first = range.last = take();
    if (rest_.size() < 2 || rest_.front() != '-') return true;
    rest_.remove_prefix(1);
    range.last = take();
    return true;
  }

 private:
  std::uint32_t take() {
    const TextCharacter character = firstCharacter(rest_);
    rest_.remove_prefix(character.bytes);
    return character.code;
  }
  std::string_view rest_;
};

bool isNegated(std::string_view inside) { return inside.size() > 1 && inside.front() == '!'; }

bool classHolds(std::string_view inside, std::uint32_t code) {
  const bool negated = isNegated(inside);
  ClassReader reader(negated ? inside.substr(1) : inside);
  bool found = false;
  for (ClassRange range; !found && reader.next(range);)
    found = range.first <= code && code <= range.last;
  return found != negated;
}

/// No class is left open, and no range runs backwards.
bool isWellFormed(std::string_view pattern) {
  for (size_t open = pattern.find('['); open != std::string_view::npos; open = pattern.find('[', open)) {
    const size_t close = pattern.find(']', open);
    if (close == std::string_view::npos) return false;
    const std::string_view inside = pattern.substr(open + 1, close - open - 1);
    ClassReader reader(isNegated(inside) ? inside.substr(1) : inside);
    for (ClassRange range; reader.next(range);)
      if (range.first > range.last) return false;
    open = close;
  }
  return true;
}

/// Bytes of the pattern that stand for one character, or for nothing.
size_t markSize(std::string_view pattern) {
  if (pattern.front() == '[') return pattern.find(']') + 1;
  return firstCharacter(pattern).bytes;
}

bool markHolds(std::string_view mark, std::uint32_t code) {
  if (mark == "?") return true;
  if (mark == "#") return code >= '0' && code <= '9';
  if (mark.front() == '[') return classHolds(mark.substr(1, mark.size() - 2), code);
  return firstCharacter(mark).code == code;
}

/// A byte of the pattern that is a whole character and stands for itself.
bool isPlain(char mark) {
  return static_cast<unsigned char>(mark) < 0x80 && mark != '*' && mark != '?' && mark != '#' && mark != '[';
}

/// Where a star that ends at `text[at]` can end next, given what the pattern goes on with. npos: nowhere.
size_t nextEnd(std::string_view pattern, std::string_view text, size_t at) {
  if (at == text.size()) return std::string_view::npos;
  if (isPlain(pattern.front())) return text.find(pattern.front(), at + 1);
  return at + firstCharacter(text.substr(at)).bytes;
}

}  // namespace

bool wildcardMatch(std::string_view pattern, std::string_view text) {
  if (!isWellFormed(pattern)) return false;
  constexpr size_t none = std::string_view::npos;
  size_t p = 0, t = 0, afterStar = none, starText = 0;
  while (true) {
    if (p == pattern.size() && t == text.size()) return true;
    if (p < pattern.size() && pattern[p] == '*') {
      afterStar = ++p;
      if (p == pattern.size()) return true;
      starText = t;
      continue;
    }
    if (p < pattern.size() && isPlain(pattern[p])) {
      if (t < text.size() && text[t] == pattern[p]) {
        ++p;
        ++t;
        continue;
      }
    } else if (p < pattern.size()) {
      const std::string_view mark = pattern.substr(p, markSize(pattern.substr(p)));
      const bool isEmpty = mark == "[]";
      const TextCharacter character =
          !isEmpty && t < text.size() ? firstCharacter(text.substr(t)) : TextCharacter{0, 0};
      if (isEmpty || (character.bytes > 0 && markHolds(mark, character.code))) {
        p += mark.size();
        t += character.bytes;
        continue;
      }
    }
    // The last star takes one character more; an earlier one need not, since the last can take all that it would.
    if (afterStar == none) return false;
    t = starText = nextEnd(pattern.substr(afterStar), text, starText);
    if (t == none) return false;
    p = afterStar;
  }
}

}  // namespace varnholt::core
