#pragma once

#include "platform/regional.hpp"

#include <string>
#include <string_view>

namespace varnholt::rename {

enum class Letters { AsTheyAre, Lower, Upper };

/// The rule for new names, as the fields of the dialog state it. Texts without blanks around them.
struct Mask {
  bool newBase = false;         ///< base, counter and extension take the place of the name
  std::string base;             ///< for newBase
  bool cuts = false;            ///< `text` is cut out of the name, instead of put in front of it
  std::string text;             ///< empty: nothing is cut or added
  std::string extension = "*";  ///< without point; "*": the old one stays
  Letters letters = Letters::AsTheyAre;
};

/// The new name of a file. With `newBase` the counter goes on by one. The point in front of the extension belongs to
/// the name: a name without one gets its new extension without a point, unless the base is new.
std::string maskedName(const Mask& mask, const std::string& name, std::string& counter,
                       const platform::RegionalFormats& regional);

/// The name without the text, also where it only comes about by the cutting. Letter case counts. An empty text cuts
/// nothing.
std::string CutText(std::string name, std::string_view text);

/// True for a sign, digits in regional groups or none, and a regional fraction; blanks around it do not count.
bool isNumeric(std::string_view text, const platform::RegionalFormats& regional);

/// The number plus one, exactly, however long it is: without leading zeros and groups, with the regional fraction sign.
/// What is no number counts as 0.
std::string nextCounter(std::string_view counter, const platform::RegionalFormats& regional);

}  // namespace varnholt::rename
