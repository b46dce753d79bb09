#pragma once

#include "panels/desk.hpp"

#include <string>
#include <string_view>

namespace varnholt::tools {

/// A field of a comma separated file (RFC 4180): in quotes where it holds the separator, a quote or a line end. A text
/// that a spreadsheet would take for a formula gets an apostrophe in front.
std::string csvField(std::string_view text);

/// Writes the selected items of the active panel into a comma separated file beside the program.
class SelectionReport {
 public:
  explicit SelectionReport(panels::Desk& desk) : desk_(desk) {}
  void CommaFile_Click();

 private:
  std::string text(const panels::Panel& panel) const;

  panels::Desk& desk_;
};

}  // namespace varnholt::tools
