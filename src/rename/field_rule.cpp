#include "rename/field_rule.hpp"

#include "core/text_character.hpp"

namespace varnholt::rename {
namespace {

constexpr std::uint32_t LastCodePoint = 0x10FFFF;

}  // namespace

bool FieldRule::allows(std::string_view field) const {
  field = core::trimmed(field);
  if (loneAsterisk && field.size() > 1 && field.find('*') != std::string_view::npos) return false;
  while (!field.empty()) {
    const auto character = core::firstCharacter(field);
    // A byte of no character could be found inside one of the list.
    const bool isCharacter = character.code <= LastCodePoint;
    if (isCharacter && forbidden.find(field.substr(0, character.bytes)) != std::string_view::npos) return false;
    field.remove_prefix(character.bytes);
  }
  return true;
}

}  // namespace varnholt::rename
