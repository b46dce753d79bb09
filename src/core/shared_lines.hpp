#pragma once

#include "platform/platform.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::core {

struct Program;

/// A text file beside the program that every running copy of it reads at the start and writes at the end. What another
/// copy has added meanwhile stays, what this one has taken out goes, and what it has made the newest again is so.
class SharedLines {
 public:
  /// Which line of the file is the newest. Here the newest is always the last one.
  enum class Newest { Last, First };
  /// What makes two lines one entry.
  using KeyOf = std::function<std::string(std::string_view line)>;

  /// A file of the layout (`core::program_file`).
  explicit SharedLines(std::string_view literal, Newest newest = Newest::Last) : literal_(literal), newest_(newest) {}

  /// A file that cannot be read to its end is set aside, and the user told.
  std::vector<std::string> load(const Program& program);
  /// Writes the lines together with those of other copies; the oldest go beyond `limit`. Without a key the letter case
  /// does not count.
  platform::Result<void> store(const Program& program, const std::vector<std::string>& lines, std::size_t limit,
                               const KeyOf& keyOf = {});

 private:
  std::string_view literal_;
  Newest newest_;
  std::vector<std::string> known_;  ///< of the lines in the file, those that were ours when it was last seen
};

}  // namespace varnholt::core
