#include "rename/mask.hpp"

#include "core/text_character.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>
#include <optional>

namespace varnholt::rename {
namespace {

namespace paths = platform::paths;

std::string inLetters(Letters letters, std::string name) {
  switch (letters) {
  case Letters::Lower:
    return platform::foldCase(name);
  case Letters::Upper:
    return platform::upperCase(name);
  case Letters::AsTheyAre:
    break;
  }
  return name;
}

// --- Counters ------------------------------------------------------------------------------------------------------

/// A number as its digits, so that it can be as long as a name.
struct Decimal {
  bool negative = false;
  std::string whole, fraction;
};

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Takes the sign away from the front of the text.
bool take(std::string_view& text, std::string_view sign) {
  if (sign.empty() || !text.starts_with(sign)) return false;
  text.remove_prefix(sign.size());
  return true;
}

std::optional<Decimal> parse(std::string_view text, const platform::RegionalFormats& regional) {
  text = core::trimmed(text);
  Decimal number;
  number.negative = take(text, "-");
  if (!number.negative) take(text, "+");
  std::string* part = &number.whole;
  while (!text.empty()) {
    if (isDigit(text.front())) {
      *part += text.front();
      text.remove_prefix(1);
    } else if (part == &number.whole && take(text, regional.decimalSign)) {
      part = &number.fraction;
    } else if (part != &number.whole || number.whole.empty() || !take(text, regional.thousandsSign)) {
      return {};
    }
  }
  if (number.whole.empty() && number.fraction.empty()) return {};
  return number;
}

void countUp(std::string& digits) {
  auto digit = digits.rbegin();
  for (; digit != digits.rend() && *digit == '9'; ++digit)
    *digit = '0';
  if (digit == digits.rend()) {
    digits.insert(digits.begin(), '1');
  } else {
    ++*digit;
  }
}

/// For digits that are not all zero.
void countDown(std::string& digits) {
  auto digit = digits.rbegin();
  for (; *digit == '0'; ++digit)
    *digit = '9';
  --*digit;
}

bool isZero(std::string_view digits) { return digits.find_first_not_of('0') == std::string_view::npos; }

/// One less the digits behind the point, which are not all zero: 0.25 gives 0.75.
void complement(std::string& fraction) {
  for (char& digit : fraction)
    digit = static_cast<char>('0' + '9' - digit);
  countUp(fraction);
}

void addOne(Decimal& number) {
  if (!number.negative) return countUp(number.whole);
  if (!isZero(number.whole)) return countDown(number.whole);
  number.negative = false;
  isZero(number.fraction) ? countUp(number.whole) : complement(number.fraction);
}

std::string textOf(Decimal number, std::string_view decimalSign) {
  number.whole.erase(0, std::min(number.whole.find_first_not_of('0'), number.whole.size()));
  number.fraction.erase(number.fraction.find_last_not_of('0') + 1);
  const bool negative = number.negative && !(number.whole.empty() && number.fraction.empty());
  std::string text = negative ? "-" : "";
  text += number.whole.empty() ? "0" : number.whole;
  if (!number.fraction.empty()) text.append(decimalSign).append(number.fraction);
  return text;
}

}  // namespace

bool isNumeric(std::string_view text, const platform::RegionalFormats& regional) {
  return parse(text, regional).has_value();
}

std::string nextCounter(std::string_view counter, const platform::RegionalFormats& regional) {
  Decimal number = parse(counter, regional).value_or(Decimal{});
  addOne(number);
  return textOf(std::move(number), regional.decimalSign);
}

// --- Names ---------------------------------------------------------------------------------------------------------

std::string CutText(std::string name, std::string_view text) {
  if (text.empty()) return name;
  for (auto at = name.find(text); at != std::string::npos; at = name.find(text))
    name.erase(at, text.size());
  return name;
}

std::string maskedName(const Mask& mask, const std::string& name, std::string& counter,
                       const platform::RegionalFormats& regional) {
  const std::string_view old = paths::extension(name);
  const std::string extension = mask.extension == "*" ? std::string(old) : mask.extension;
  if (mask.newBase) {
    std::string result = inLetters(mask.letters, mask.base + counter + "." + extension);
    counter = nextCounter(counter, regional);
    return result;
  }
  std::string base = name.substr(0, name.size() - old.size());
  base = mask.cuts ? CutText(std::move(base), mask.text) : mask.text + base;
  return inLetters(mask.letters, base + extension);
}

}  // namespace varnholt::rename
