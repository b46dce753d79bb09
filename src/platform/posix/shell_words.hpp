#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace varnholt::platform::posix {

/// A stretch of a word, with its quotes taken off.
struct CommandPart {
  std::string text;
  bool quoted = false;
};

/// One word of a command line.
struct CommandWord {
  std::vector<CommandPart> parts;
  size_t begin = 0, end = 0;  ///< where it stands in the line, quotes included

  std::string text() const;
  /// True when it has no quotes at all.
  bool plain() const;
};

/// Splits a command line by blanks and tabs outside double quotes. A doubled quote inside quotes is one quote, a
/// quote that is not closed runs to the end of the line. `""` is an empty word.
std::vector<CommandWord> splitCommand(std::string_view line);

/// True for "C:\" and whatever follows, in any case.
bool isDrivePath(std::string_view text);

}  // namespace varnholt::platform::posix
