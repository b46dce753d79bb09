#include "core/rtf.hpp"

#include "platform/text_character.hpp"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace varnholt::core {
namespace {

using controls::Color;
using controls::NoColor;
using controls::TextFormat;

constexpr std::string_view FontName = "Sans Serif";
constexpr int SmallestSize = 2, LargestSize = 2000;
/// Groups beyond this depth are read, but what they set holds on behind their ends.
constexpr std::size_t DeepestGroup = 50000;

/// Windows code page 1252 from 0x80 to 0x9F; the others are those of Latin-1. 0: no character.
constexpr std::uint16_t CodePage[] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

/// Words that stand for a character.
struct NamedCharacter {
  std::string_view word;
  std::uint32_t code;
};
constexpr NamedCharacter Characters[] = {
    {"tab", '\t'},       {"line", 0x2028},   {"emdash", 0x2014},    {"endash", 0x2013},    {"bullet", 0x2022},
    {"lquote", 0x2018},  {"rquote", 0x2019}, {"ldblquote", 0x201C}, {"rdblquote", 0x201D}, {"emspace", 0x2003},
    {"enspace", 0x2002}, {"~", 0x00A0},      {"-", 0x00AD},         {"_", 0x2011},         {"\\", '\\'},
    {"{", '{'},          {"}", '}'}};

/// Words that say nothing which is not written again or would be seen.
constexpr std::string_view Silent[] = {"rtf",  "ansi",   "deff",   "deflang",  "deflangfe",
                                       "lang", "langfe", "langnp", "viewkind", "nouicompat",
                                       "fnil", "fswiss", "uc",     "fcharset", "ansicpg"};

template <class Table>
bool isOneOf(const Table& table, std::string_view word) {
  return std::ranges::find(table, word) != std::end(table);
}

class Reader {
 public:
  explicit Reader(std::string_view bytes) : rest_(bytes) {}

  RtfText read() {
    if (!rest_.starts_with("{\\rtf")) return asPlainText();
    while (!rest_.empty() && !ended_)
      step();
    flushSurrogate();
    if (!ended_) made_.isWhole = false;
    // Each paragraph is ended; the one behind the last end is none.
    auto& paragraphs = made_.text.paragraphs;
    if (paragraphs.size() > 1 && paragraphs.back().empty()) paragraphs.pop_back();
    made_.text.append({}, {});
    return std::move(made_);
  }

 private:
  enum class Destination : std::uint8_t { Text, Colors, Fonts, Skipped };
  struct State {
    TextFormat format;
    std::uint16_t skipped = 1;  ///< characters that stand behind \u for readers that do not know it
    Destination destination = Destination::Text;
  };

  RtfText asPlainText() {
    made_.text = controls::RichText::of(rest_);
    made_.isWhole = rest_.empty();
    return std::move(made_);
  }

  void step() {
    const char next = rest_.front();
    rest_.remove_prefix(1);
    switch (next) {
    case '{':
      open();
      break;
    case '}':
      close();
      break;
    case '\\':
      control();
      break;
    case '\r':
    case '\n':
    case '\0':
      break;
    default:
      byte(static_cast<unsigned char>(next));
    }
  }

  void open() {
    pending_ = 0;
    mayBeOptional_ = false;
    if (outer_.size() < DeepestGroup) {
      outer_.push_back(state_);
    } else {
      ++deeper_;
      made_.holdsMore = true;
    }
    begins_ = true;
  }

  void close() {
    pending_ = 0;
    begins_ = mayBeOptional_ = false;
    if (state_.destination == Destination::Fonts) endFont();
    if (deeper_ > 0) {
      --deeper_;
      return;
    }
    state_ = outer_.back();
    outer_.pop_back();
    ended_ = outer_.empty();
  }

  // --- Characters --------------------------------------------------------------------------------------------------

  void byte(unsigned char value) {
    begins_ = false;
    if (pending_ > 0) {
      --pending_;
      return;
    }
    constexpr unsigned char First = 0x80, Behind = 0xA0;
    const std::uint32_t code = value < First || value >= Behind ? value : CodePage[value - First];
    if (code != 0) put(code);
  }

  void put(std::uint32_t code) {
    switch (state_.destination) {
    case Destination::Text:
      flushSurrogate();
      if (code >= ' ' || code == '\t') {
        std::string text;
        platform::appendCharacter(code, text);
        made_.text.append(text, state_.format);
      }
      break;
    case Destination::Colors:
      if (code == ';') endColor();
      break;
    case Destination::Fonts:
      if (code == ';')
        endFont();
      else
        platform::appendCharacter(code, font_);
      break;
    case Destination::Skipped:
      break;
    }
  }

  /// A code unit of \u: characters beyond 16 bits come as two.
  void unit(std::uint32_t code) {
    constexpr std::uint32_t High = 0xD800, Low = 0xDC00, BehindLow = 0xE000;
    if (code >= High && code < Low) {
      flushSurrogate();
      high_ = code;
    } else if (code >= Low && code < BehindLow) {
      const std::uint32_t high = std::exchange(high_, 0);
      put(high ? 0x10000 + ((high - High) << 10) + (code - Low) : Replacement);
    } else {
      put(code);
    }
  }

  void flushSurrogate() {
    if (std::exchange(high_, 0)) put(Replacement);
  }

  // --- Control words -------------------------------------------------------------------------------------------------

  struct Word {
    std::string_view name;
    std::optional<int> number;
    bool isOn() const { return number.value_or(1) != 0; }
  };

  static bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

  void control() {
    if (rest_.empty()) return;
    if (!isLetter(rest_.front())) return symbol();
    std::size_t length = 0;
    while (length < rest_.size() && isLetter(rest_[length]))
      ++length;
    Word word{rest_.substr(0, length), {}};
    rest_.remove_prefix(length);
    word.number = number();
    if (rest_.starts_with(' ')) rest_.remove_prefix(1);
    const bool begins = std::exchange(begins_, false);
    const bool isOptional = std::exchange(mayBeOptional_, false);
    if (word.name == "bin") return binary(word.number.value_or(0));
    if (pending_ > 0) {
      --pending_;
      return;
    }
    if (!(begins || isOptional) || !beginsDestination(word.name, isOptional)) obey(word);
  }

  std::optional<int> number() {
    std::size_t length = rest_.starts_with('-') ? 1 : 0;
    const std::size_t sign = length;
    while (length < rest_.size() && rest_[length] >= '0' && rest_[length] <= '9')
      ++length;
    if (length == sign) return {};
    int value = 0;
    const auto read = std::from_chars(rest_.data(), rest_.data() + length, value);
    rest_.remove_prefix(length);
    if (read.ec != std::errc()) made_.holdsMore = true;
    return value;
  }

  void symbol() {
    const std::string_view name = rest_.substr(0, 1);
    rest_.remove_prefix(1);
    if (name == "*" && begins_) {
      mayBeOptional_ = true;
      return;
    }
    begins_ = false;
    if (name == "'") return hexadecimal();
    if (pending_ > 0) {
      --pending_;
      return;
    }
    if (name == "\r" || name == "\n") return paragraph();
    if (const auto* character = named(name)) return put(character->code);
    made_.holdsMore = true;
  }

  void hexadecimal() {
    unsigned char value = 0;
    const std::string_view digits = rest_.substr(0, 2);
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    const auto used = static_cast<std::size_t>(read.ptr - digits.data());
    rest_.remove_prefix(used);
    if (used == 2) return byte(value);
    made_.holdsMore = true;
  }

  void binary(int bytes) {
    made_.holdsMore = true;
    rest_.remove_prefix(std::min(rest_.size(), static_cast<std::size_t>(std::max(bytes, 0))));
  }

  static const NamedCharacter* named(std::string_view word) {
    const auto found = std::ranges::find(Characters, word, &NamedCharacter::word);
    return found == std::end(Characters) ? nullptr : found;
  }

  /// The first word of a group may say what the group is. What is optional and not known is passed over, and so are
  /// those that hold no text of the note.
  bool beginsDestination(std::string_view name, bool isOptional) {
    constexpr std::string_view Others[] = {"stylesheet", "info",      "pict",      "object",  "header",  "headerl",
                                           "headerr",    "headerf",   "footer",    "footerl", "footerr", "footerf",
                                           "footnote",   "fldinst",   "listtable", "revtbl",  "filetbl", "xe",
                                           "tc",         "bkmkstart", "bkmkend",   "shp",     "template"};
    if (state_.destination == Destination::Skipped) return true;
    if (name == "colortbl") {
      state_.destination = Destination::Colors;
      colors_.clear();
      color_.reset();
    } else if (name == "fonttbl") {
      state_.destination = Destination::Fonts;
    } else if (isOptional || isOneOf(Others, name)) {
      made_.holdsMore = made_.holdsMore || name != "generator";
      state_.destination = Destination::Skipped;
    } else {
      return false;
    }
    return true;
  }

  void obey(const Word& word) {
    if (state_.destination == Destination::Skipped) return;
    if (word.name == "uc") {
      state_.skipped = static_cast<std::uint16_t>(std::clamp(word.number.value_or(1), 0, 0xFFFF));
    } else if (word.name == "u") {
      unit(static_cast<std::uint16_t>(word.number.value_or(0)));
      pending_ = state_.skipped;
    } else if (const auto* character = named(word.name)) {
      put(character->code);
    } else if (state_.destination == Destination::Colors) {
      colorPart(word);
    } else if (state_.destination == Destination::Text) {
      textWord(word);
    }
  }

  void textWord(const Word& word) {
    TextFormat& format = state_.format;
    if (word.name == "par") {
      paragraph();
    } else if (word.name == "b") {
      format.bold = word.isOn();
    } else if (word.name == "i") {
      format.italic = word.isOn();
    } else if (word.name == "ul") {
      format.underline = word.isOn();
    } else if (word.name == "ulnone") {
      format.underline = false;
    } else if (word.name == "fs") {
      format.size = std::clamp(word.number.value_or(TextFormat::DefaultSize), SmallestSize, LargestSize);
    } else if (word.name == "cf") {
      const auto at = static_cast<std::size_t>(std::max(word.number.value_or(0), 0));
      format.color = at < colors_.size() ? colors_[at] : NoColor;
    } else if (word.name == "plain") {
      format = {};
    } else if (word.name == "cell" || word.name == "row") {
      made_.holdsMore = true;
      word.name == "cell" ? put('\t') : paragraph();
    } else if (word.name == "ansicpg" && word.number != 1252) {
      made_.holdsMore = true;
    } else if (word.name == "f" ? word.number.value_or(0) != 0 : word.name != "pard" && !isOneOf(Silent, word.name)) {
      made_.holdsMore = true;
    }
  }

  void paragraph() {
    if (state_.destination != Destination::Text) return;
    flushSurrogate();
    made_.text.append({}, {});
    made_.text.endParagraph();
  }

  // --- Tables --------------------------------------------------------------------------------------------------------

  void colorPart(const Word& word) {
    const int shift = word.name == "red" ? 0 : word.name == "green" ? 8 : word.name == "blue" ? 16 : -1;
    if (shift < 0) return;
    const auto part = static_cast<Color>(std::clamp(word.number.value_or(0), 0, 0xFF));
    color_ = (color_.value_or(0) & ~(Color{0xFF} << shift)) | (part << shift);
  }

  void endColor() {
    constexpr std::size_t Most = 0x10000;
    if (colors_.size() < Most) colors_.push_back(color_.value_or(NoColor));
    color_.reset();
  }

  // Another font than the one of the box is not kept.
  void endFont() {
    if (!font_.empty() && font_ != FontName) made_.holdsMore = true;
    font_.clear();
  }

  static constexpr std::uint32_t Replacement = 0xFFFD;

  std::string_view rest_;
  RtfText made_;
  State state_;
  std::vector<State> outer_;
  std::size_t deeper_ = 0;
  bool ended_ = false;
  bool begins_ = false;         ///< a group has just begun
  bool mayBeOptional_ = false;  ///< and the mark of what may be passed over stands in it
  std::uint32_t pending_ = 0;   ///< characters to be passed over behind \u
  std::uint32_t high_ = 0;      ///< first half of a character
  std::vector<Color> colors_;
  std::optional<Color> color_;
  std::string font_;
};

// --- Writing -------------------------------------------------------------------------------------------------------

/// The colours of a text, numbered from 1.
std::map<Color, std::size_t> colorsOf(const controls::RichText& text) {
  std::map<Color, std::size_t> colors;
  for (const auto& paragraph : text.paragraphs)
    for (const auto& run : paragraph)
      if (run.format.color != NoColor) colors.try_emplace(run.format.color, 0);
  std::size_t number = 0;
  for (auto& [color, at] : colors)
    at = ++number;
  return colors;
}

void appendUnit(std::uint32_t unit, std::string& out) {
  out += "\\u" + std::to_string(static_cast<std::int16_t>(unit)) + "?";
}

std::string byteWord(std::uint32_t byte) {
  constexpr std::string_view Digits = "0123456789abcdef";
  return {'\\', '\'', Digits[byte >> 4 & 0xF], Digits[byte & 0xF]};
}

void appendText(std::string_view text, std::string& out) {
  while (!text.empty()) {
    const auto [code, bytes] = platform::firstCharacter(text);
    const std::string_view character = text.substr(0, bytes);
    text.remove_prefix(bytes);
    if (code == '\t') {
      out += "\\tab ";
    } else if (code == '\\' || code == '{' || code == '}') {
      (out += '\\') += character;
    } else if (code == 0x2028) {
      out += "\\line ";
    } else if (code >= ' ' && code < 0x7F) {
      out += character;
    } else if (code >= platform::NotUtf8) {
      out += byteWord(code - platform::NotUtf8);
    } else if (code >= 0x10000) {
      appendUnit(0xD800 + ((code - 0x10000) >> 10), out);
      appendUnit(0xDC00 + ((code - 0x10000) & 0x3FF), out);
    } else if (code >= 0x7F) {
      appendUnit(code, out);
    }
  }
}

}  // namespace

RtfText readRtf(std::string_view bytes) { return Reader(bytes).read(); }

std::string writeRtf(const controls::RichText& text) {
  constexpr unsigned Byte = 0xFF;
  const auto colors = colorsOf(text);
  std::string out =
      "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fswiss " + std::string(FontName) + ";}}\r\n";
  out += "{\\colortbl ;";
  for (const auto& [color, at] : colors)
    out += "\\red" + std::to_string(color & Byte) + "\\green" + std::to_string((color >> 8) & Byte) + "\\blue" +
           std::to_string((color >> 16) & Byte) + ";";
  out += "}\r\n\\pard\\f0\r\n";
  for (const auto& paragraph : text.paragraphs) {
    for (const auto& run : paragraph) {
      const TextFormat& format = run.format;
      out += '{';
      if (format.bold) out += "\\b";
      if (format.italic) out += "\\i";
      if (format.underline) out += "\\ul";
      out += "\\fs" + std::to_string(format.size);
      if (format.color != NoColor) out += "\\cf" + std::to_string(colors.at(format.color));
      out += ' ';
      appendText(run.text, out);
      out += '}';
    }
    out += "\\par\r\n";
  }
  return out + "}\r\n";
}

}  // namespace varnholt::core
