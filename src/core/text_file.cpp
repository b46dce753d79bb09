#include "core/text_file.hpp"

namespace varnholt::core {

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
  return lines;
}

platform::Result<void> writeLines(platform::FileSystem& files, const std::string& path,
                                  const std::vector<std::string>& lines) {
  std::string text;
  for (const auto& line : lines)
    text += line + "\r\n";
  return files.writeFile(path, text);
}

}  // namespace varnholt::core
