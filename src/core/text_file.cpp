#include "core/text_file.hpp"

#include "platform/paths.hpp"

namespace varnholt::core {
namespace {

using platform::paths::EscapeMark;

// All of these have three bytes.
constexpr std::string_view ReturnStandIn = "\xEF\x80\x8D", FeedStandIn = "\xEF\x80\x8A";

bool isMarked(std::string_view text) {
  return text.starts_with(ReturnStandIn) || text.starts_with(FeedStandIn) || text.starts_with(EscapeMark);
}

}  // namespace

bool endsWithinLine(std::string_view text) {
  return !text.empty() && text.back() != '\n' && text.find("\r\n") != std::string_view::npos;
}

std::string lineOf(std::string_view entry) {
  if (entry.find_first_of("\r\n\xEF") == std::string_view::npos) return std::string(entry);
  std::string line;
  for (std::size_t at = 0; at < entry.size(); ++at) {
    const char byte = entry[at];
    if (isMarked(entry.substr(at))) line += EscapeMark;
    if (byte == '\r' || byte == '\n')
      line += byte == '\r' ? ReturnStandIn : FeedStandIn;
    else
      line += byte;
  }
  return line;
}

std::string entryOf(std::string_view line) {
  if (line.find('\xEF') == std::string_view::npos) return std::string(line);
  std::string entry;
  for (std::size_t at = 0; at < line.size();) {
    const std::string_view rest = line.substr(at);
    if (rest.starts_with(EscapeMark) && isMarked(rest.substr(EscapeMark.size()))) {
      entry += rest.substr(EscapeMark.size(), EscapeMark.size());
      at += 2 * EscapeMark.size();
    } else if (rest.starts_with(ReturnStandIn) || rest.starts_with(FeedStandIn)) {
      entry += rest.starts_with(ReturnStandIn) ? '\r' : '\n';
      at += ReturnStandIn.size();
    } else {
      entry += line[at++];
    }
  }
  return entry;
}

namespace {

std::vector<std::string> split(std::string_view text, bool keepsEmpty) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  std::vector<std::string> lines;
  while (!text.empty()) {
    const auto end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (keepsEmpty || !line.empty()) lines.push_back(entryOf(line));
  }
  return lines;
}

}  // namespace

std::vector<std::string> splitLines(std::string_view text) { return split(text, true); }

std::vector<std::string> splitEntries(std::string_view text) { return split(text, false); }

FileText readText(const platform::FileSystem& files, const std::string& path) {
  auto bytes = files.readFile(path, LargestTextFile);
  if (bytes) return {*std::move(bytes), true};
  using platform::ErrorCode;
  if (bytes.error().code == ErrorCode::NotFound) return {};
  if (bytes.error().code != ErrorCode::TooLarge) return {{}, false};
  // The last line is only begun.
  std::string beginning = files.readBeginning(path, LargestTextFile).valueOr({});
  beginning.resize(beginning.rfind('\n') + 1);
  return {std::move(beginning), false};
}

FileLines readWholeLines(const platform::FileSystem& files, const std::string& path) {
  const FileText text = readText(files, path);
  return {splitEntries(text.bytes), text.whole && !endsWithinLine(text.bytes)};
}

std::vector<std::string> readLines(const platform::FileSystem& files, const std::string& path) {
  return readWholeLines(files, path).lines;
}

platform::Result<void> writeLines(platform::FileSystem& files, const std::string& path,
                                  const std::vector<std::string>& lines) {
  std::string text;
  for (const auto& line : lines)
    text += lineOf(line) + "\r\n";
  return files.writeFile(path, text);
}

}  // namespace varnholt::core
