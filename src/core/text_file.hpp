#pragma once

#include "platform/file_system.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace varnholt::core {

/// Text files of our own: one entry a line, CR LF behind every line, UTF-8 without mark; read with CR LF or LF alike.
/// A line break within an entry, as names may have them, stands in the file as a character that names do not have.

/// An entry as its line, and back; exact both ways.
std::string lineOf(std::string_view entry);
std::string entryOf(std::string_view line);

/// The lines without their ends; empty lines are left out. A missing or unreadable file has none.
std::vector<std::string> readLines(const platform::FileSystem& files, const std::string& path);

/// Replaces the file in one step.
platform::Result<void> writeLines(platform::FileSystem& files, const std::string& path,
                                  const std::vector<std::string>& lines);

/// Splits at LF or CR LF; keeps empty lines between others, none behind the last line end.
std::vector<std::string> splitLines(std::string_view text);

}  // namespace varnholt::core
