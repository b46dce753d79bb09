#include "core/error_words.hpp"

#include <algorithm>
#include <cctype>

namespace varnholt::core {

std::string reasonOf(const platform::Error& error, const std::string& name) {
  const std::string quoted = '"' + name + '"';
  switch (error.code) {
  case platform::ErrorCode::AlreadyThere:
  case platform::ErrorCode::IsAFolder:
    return quoted + " is taken";
  case platform::ErrorCode::ReadOnlyTarget:
    return quoted + " is read-only, hidden or system";
  case platform::ErrorCode::SameEntry:
    return quoted + " is the same file";
  case platform::ErrorCode::NotFound:
    return "it is not there any more";
  default:
    break;
  }
  std::string words = error.text.empty() ? "unknown reason" : error.text;
  words.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(words.front())));
  return words;
}

std::string leftOutText(const std::string& headline, const std::vector<std::string>& lines) {
  constexpr std::size_t most = 10;
  std::string text = headline + "\r";
  for (std::size_t at = 0; at < std::min(lines.size(), most); ++at)
    text += '\r' + lines[at];
  if (lines.size() > most) text += "\rand " + std::to_string(lines.size() - most) + " more";
  return text;
}

}  // namespace varnholt::core
