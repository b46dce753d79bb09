#pragma once

#include "core/program.hpp"
#include "vdt/pointer_list.hpp"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace varnholt::vdt {

/// Finds out which targets of the list are there. Each drive is asked by itself and beside the window, once at a time,
/// so that one that does not answer keeps nobody waiting: its rows stay as they were until it does.
class Targets {
 public:
  Targets(core::Program& program, PointerList& list) : program_(program), list_(list) {}

  /// Asks for all rows. With `resolves`, as behind a load, rows whose targets are not there are looked for as somebody
  /// may have spelled them, and lines that were rubbish go.
  void ask(bool resolves);

  /// A drive has answered, and its rows have been told.
  std::function<void()> answered;

 private:
  struct Question;
  struct Drive {
    bool asked = false;     ///< it has not answered yet
    bool again = false;     ///< meanwhile it was to be asked anew
    bool resolves = false;  ///< and so
  };
  void askDrive(const std::string& name, std::vector<PointerList::Finding> rows);
  void takeAnswer(const std::string& name, const Question& question);
  void apply(const Question& question);
  /// The rows of one drive, or of all.
  std::map<std::string, std::vector<PointerList::Finding>> rowsByDrive(const std::string* only = nullptr) const;

  core::Program& program_;
  PointerList& list_;
  std::map<std::string, Drive> drives_;
};

}  // namespace varnholt::vdt
