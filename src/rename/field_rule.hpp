#pragma once

#include <string_view>

namespace varnholt::rename {

/// What may not stand in a field of the dialog, and what the user is told about it.
struct FieldRule {
  std::string_view forbidden;
  bool loneAsterisk = false;  ///< an asterisk is refused beside other characters
  std::string_view message;   ///< followed by what the field holds

  /// Tests the field without the blanks around it.
  bool allows(std::string_view field) const;
};

/// The base of new names.
inline constexpr FieldRule BaseChars{"\\/<>\u00A4\":|", false, "InValid Mask Pattern !, "};
/// A text that is added to names or cut out of them.
inline constexpr FieldRule AddChars{"\\/<>\u00A4\":|*?", false, "InValid Chr. Pattern !, "};
/// An extension, or "*" for the old one.
inline constexpr FieldRule ExtChars{"\\/<>\u00A4\":|.?", true, "InValid Chr. Pattern !, "};
/// A whole name.
inline constexpr FieldRule NewNameChars{AddChars.forbidden, false, "InValid NewName !, "};

}  // namespace varnholt::rename
