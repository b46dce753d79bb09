#pragma once

#include <optional>
#include <string>
#include <vector>

namespace varnholt::app {

/// What a call of the program asks for that needs no window.
struct Answer {
  std::string text;
  int exitCode = 0;  ///< of the process; not 0: the text is an error
};

/// The answer to `--help`, `--version` or an argument that makes no sense; nothing when the windows are to open.
/// Arguments with one hyphen are the toolkit's.
std::optional<Answer> answerWithoutWindow(const std::vector<std::string>& arguments);

/// The folders named, in the system's form and absolute, for left and right. A file stands for its folder; a path that
/// is no system path is a program path and given as it is. A desktop gives as many as are selected there.
std::vector<std::string> foldersNamed(const std::vector<std::string>& arguments);

}  // namespace varnholt::app
