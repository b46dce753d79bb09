#pragma once

#include "qt/qt_message_loop.hpp"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace varnholt::qt {

/// The program behind the message loop. It owns the forms and ends before the loop does.
class RunningProgram {
 public:
  virtual ~RunningProgram() = default;
  /// Keeps what leaving keeps.
  virtual void storeState() = 0;
  /// Leaves as by its close box.
  virtual void leave() = 0;
};

/// Makes the application in this look, calls `start` inside its message loop with the arguments that are not the
/// toolkit's, and runs until the program quits. `prepare` is called on another thread while the toolkit connects to the
/// display, and has returned before `start`. The system may end the program earlier: its state is stored, and what is
/// at work then is cut off like by a kill. Gives the process's exit code.
using StartProgram =
    std::function<std::unique_ptr<RunningProgram>(QtMessageLoop&, const std::vector<std::string>& arguments)>;
int runProgram(int argc, char** argv, const std::function<void()>& prepare, const StartProgram& start);

}  // namespace varnholt::qt
