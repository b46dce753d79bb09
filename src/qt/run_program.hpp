#pragma once

#include "qt/qt_message_loop.hpp"

#include <functional>
#include <memory>

namespace varnholt::qt {

/// Makes the application in this look, calls `start` inside its message loop, and runs until the program quits. What
/// `start` gives owns the program's forms and ends before the loop does. Gives the process's exit code.
int runProgram(int argc, char** argv, const std::function<std::shared_ptr<void>(QtMessageLoop&)>& start);

}  // namespace varnholt::qt
