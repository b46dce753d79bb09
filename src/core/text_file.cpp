#include "core/text_file.hpp"

#include "platform/paths.hpp"

#include <utility>

namespace varnholt::core {
namespace {

// Carriage return and line feed in the range in which platform::paths has its stand-in for the backslash, and with the
// same mark before one of these that is itself in the text.
constexpr std::pair<char, std::string_view> StandIns[] = {{'\r', "\xEF\x80\x8D"}, {'\n', "\xEF\x80\x8A"}};
constexpr std::string_view Mark = platform::paths::EscapeMark;
// What all three begin with: few texts have it, and the others are their own line.
constexpr std::string_view Beginning = "\xEF\x80";

/// What begins with a character that must not be taken for anything else: its bytes, or 0.
std::size_t markedAt(std::string_view text) {
  if (text.starts_with(Mark)) return Mark.size();
  for (const auto& [character, standIn] : StandIns)
    if (text.starts_with(standIn)) return standIn.size();
  return 0;
}

}  // namespace

std::string lineOf(std::string_view entry) {
  if (entry.find(Beginning) == std::string_view::npos && entry.find_first_of("\r\n") == std::string_view::npos)
    return std::string(entry);
  std::string line;
  for (std::size_t at = 0; at < entry.size();) {
    const std::size_t marked = markedAt(entry.substr(at));
    if (marked > 0) line += Mark;
    const std::string_view next = entry.substr(at, marked > 0 ? marked : 1);
    at += next.size();
    if (next == "\r")
      line += StandIns[0].second;
    else if (next == "\n")
      line += StandIns[1].second;
    else
      line += next;
  }
  return line;
}

std::string entryOf(std::string_view line) {
  if (line.find(Beginning) == std::string_view::npos) return std::string(line);
  std::string entry;
  for (std::size_t at = 0; at < line.size();) {
    std::string_view rest = line.substr(at);
    // A mark before anything else is a part of the text: the stand-in for a backslash has one of its own.
    if (const std::size_t marked = rest.starts_with(Mark) ? markedAt(rest.substr(Mark.size())) : 0) {
      entry += rest.substr(Mark.size(), marked);
      at += Mark.size() + marked;
    } else if (rest.starts_with(StandIns[0].second) || rest.starts_with(StandIns[1].second)) {
      entry += rest.starts_with(StandIns[0].second) ? '\r' : '\n';
      at += StandIns[0].second.size();
    } else {
      entry += rest.front();
      ++at;
    }
  }
  return entry;
}

std::vector<std::string> splitLines(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  std::vector<std::string> lines;
  while (!text.empty()) {
    const auto end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.emplace_back(line);
  }
  return lines;
}

std::vector<std::string> readLines(const platform::FileSystem& files, const std::string& path) {
  const auto bytes = files.readFile(path);
  if (!bytes) return {};
  auto lines = splitLines(*bytes);
  std::erase_if(lines, [](const std::string& line) { return line.empty(); });
  for (std::string& line : lines)
    line = entryOf(line);
  return lines;
}

platform::Result<void> writeLines(platform::FileSystem& files, const std::string& path,
                                  const std::vector<std::string>& lines) {
  std::string text;
  for (const auto& line : lines)
    text += lineOf(line) + "\r\n";
  return files.writeFile(path, text);
}

}  // namespace varnholt::core
