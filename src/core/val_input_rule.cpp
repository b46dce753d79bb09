#include "core/val_input_rule.hpp"

namespace varnholt::core {

std::optional<char> firstRefusedCharacter(std::string_view name) {
  const size_t at = name.find_first_of("<>:/\\*?|\"");
  if (at == std::string_view::npos) return {};
  return name[at];
}

std::string refusedCharacterText(char refused) { return std::string("[ ") + refused + "InValid Chr. In Filename !, "; }

}  // namespace varnholt::core
