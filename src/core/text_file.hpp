#pragma once

#include "platform/file_system.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::core {

/// Text files of our own: one entry a line, CR LF behind every line, UTF-8 without mark; read with CR LF or LF alike. A
/// line break within an entry, which names of files may hold, stands there as a character of the private range.

/// No file of ours is read beyond this.
inline constexpr std::uint64_t LargestTextFile = 64u << 20;

/// What a file of ours holds. What is not whole is less than was put there: the file could not be read to its end, or
/// is too large. A file that is not there is whole, and holds nothing.
struct FileText {
  std::string bytes;
  bool whole = true;
};
FileText readText(const platform::FileSystem& files, const std::string& path);

/// The same as lines without their ends; empty lines are left out. Not whole either is what was cut off within a line.
struct FileLines {
  std::vector<std::string> lines;
  bool whole = true;
};
FileLines readWholeLines(const platform::FileSystem& files, const std::string& path);

/// The lines alone, for files that can be made again.
std::vector<std::string> readLines(const platform::FileSystem& files, const std::string& path);

/// Replaces the file in one step.
platform::Result<void> writeLines(platform::FileSystem& files, const std::string& path,
                                  const std::vector<std::string>& lines);

/// Splits at LF or CR LF, each line as the entry that it is; keeps empty lines between others, none behind the last
/// line end.
std::vector<std::string> splitLines(std::string_view text);
/// The same without the empty lines.
std::vector<std::string> splitEntries(std::string_view text);

/// Whether a text of lines was cut off within the last one. We write CR LF behind each; an editor of this system, which
/// need not end the last, writes LF alone.
bool endsWithinLine(std::string_view text);

/// An entry as its line: CR and LF become U+F00D and U+F00A. Where the entry holds one of these itself, or the mark
/// U+F01B, a mark stands before it, so that no two entries meet. entryOf takes all that back.
std::string lineOf(std::string_view entry);
std::string entryOf(std::string_view line);

}  // namespace varnholt::core
