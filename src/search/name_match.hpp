#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace varnholt::search {

/// Whether names fit the letters that a user types. Letter case does not count.
class NameMatch {
 public:
  enum class Kind {
    Beginning,        ///< the letters begin the name; "?" is any one letter
    Anywhere,         ///< they stand anywhere in it
    AnywhereOrWhole,  ///< or the name is as they say with all wildcards
  };
  NameMatch(std::string_view letters, Kind kind);

  /// `pointless`: the name is compared with a point behind it.
  bool operator()(std::string_view name, bool pointless);

 private:
  /// False when the name, as it is spelled, cannot begin so.
  bool mayBegin(std::string_view name) const;
  bool begins(std::string_view name) const;

  Kind kind_;
  std::string letters_;
  std::size_t mark_;  ///< where the first "?" stands in them
  bool isPattern_;
  std::string folded_;  ///< of the name in hand
};

}  // namespace varnholt::search
