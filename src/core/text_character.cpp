#include "core/text_character.hpp"

namespace varnholt::core {
std::string_view trimmed(std::string_view text) {
  const auto from = text.find_first_not_of(' ');
  if (from == std::string_view::npos) return {};
  return text.substr(from, text.find_last_not_of(' ') - from + 1);
}

std::string_view unquoted(std::string_view path) {
  const bool isQuoted = path.size() > 2 && path.front() == '"' && path.find('"', 1) == path.size() - 1;
  return isQuoted ? path.substr(1, path.size() - 2) : path;
}

size_t characterCount(std::string_view text) {
  size_t count = 0;
  for (; !text.empty(); ++count)
    text.remove_prefix(firstCharacter(text).bytes);
  return count;
}

std::string_view lastCharacters(std::string_view text, size_t count) {
  for (size_t all = characterCount(text); all > count; --all)
    text.remove_prefix(firstCharacter(text).bytes);
  return text;
}

std::string shortened(std::string_view text, size_t limit, size_t kept) {
  if (characterCount(text) < limit) return std::string(text);
  return "..." + std::string(lastCharacters(text, kept));
}

}  // namespace varnholt::core
