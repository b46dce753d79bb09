#pragma once

#include "platform/platform.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::core {

struct Program;

/// A text file beside the program that every running copy of it reads at the start and writes at the end, newest line
/// last. What another copy has added meanwhile stays, and what this one has taken out goes.
class SharedLines {
 public:
  /// What makes two lines one entry.
  using KeyOf = std::function<std::string(std::string_view line)>;

  /// A file of the layout (`core::program_file`).
  explicit SharedLines(std::string_view literal) : literal_(literal) {}

  /// A file that cannot be read to its end is set aside, and the user told.
  std::vector<std::string> load(const Program& program);
  /// Writes the lines together with those of other copies; the oldest go beyond `limit`. Without a key the letter case
  /// does not count.
  platform::Result<void> store(const Program& program, const std::vector<std::string>& lines, std::size_t limit,
                               const KeyOf& keyOf = {});

 private:
  std::string_view literal_;
  std::vector<std::string> known_;  ///< of the lines in the file, those that were ours when it was last seen
};

}  // namespace varnholt::core
