#pragma once

#include "controls/rich_text.hpp"

#include <string>
#include <string_view>

namespace varnholt::core {

/// A text in the rich text format (RTF 1): paragraphs, bold, italic, underline, size and colour. Nothing that stands in
/// a file is ever run, opened or fetched: what is not known here is passed over.
struct RtfText {
  controls::RichText text;
  bool holdsMore = false;  ///< it held what was passed over, and writing `text` in its place would lose that
  bool isWhole = true;     ///< false: it ends within a group, or is no rich text at all
};

/// Takes any bytes.
RtfText readRtf(std::string_view bytes);
std::string writeRtf(const controls::RichText& text);

}  // namespace varnholt::core
