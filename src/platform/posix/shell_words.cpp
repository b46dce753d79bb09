#include "platform/posix/shell_words.hpp"

#include <algorithm>

namespace varnholt::platform::posix {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

/// Reads the quoted stretch that begins behind `at`; gives the place behind its closing quote.
size_t readQuoted(std::string_view line, size_t at, std::string& text) {
  while (at < line.size()) {
    if (line[at] != '"') {
      text += line[at++];
    } else if (at + 1 < line.size() && line[at + 1] == '"') {
      text += '"';
      at += 2;
    } else {
      return at + 1;
    }
  }
  return at;
}

CommandWord readWord(std::string_view line, size_t at) {
  CommandWord word{{}, at, at};
  while (at < line.size() && !isBlank(line[at])) {
    CommandPart part;
    if (line[at] == '"') {
      part.quoted = true;
      at = readQuoted(line, at + 1, part.text);
    } else {
      const size_t end = std::min(line.find_first_of(" \t\"", at), line.size());
      part.text = line.substr(at, end - at);
      at = end;
    }
    word.parts.push_back(std::move(part));
  }
  word.end = at;
  return word;
}

}  // namespace

std::string CommandWord::text() const {
  std::string whole;
  for (const CommandPart& part : parts)
    whole += part.text;
  return whole;
}

bool CommandWord::plain() const {
  return std::none_of(parts.begin(), parts.end(), [](const CommandPart& part) { return part.quoted; });
}

std::vector<CommandWord> splitCommand(std::string_view line) {
  std::vector<CommandWord> words;
  for (size_t at = 0; at < line.size();) {
    if (isBlank(line[at])) {
      ++at;
      continue;
    }
    words.push_back(readWord(line, at));
    at = words.back().end;
  }
  return words;
}

bool isDrivePath(std::string_view text) {
  const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  return text.size() >= 3 && isLetter(text[0]) && text[1] == ':' && text[2] == '\\';
}

}  // namespace varnholt::platform::posix
