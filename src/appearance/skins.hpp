#pragma once

#include "core/program.hpp"
#include "panels/list_looks.hpp"
#include "panels/room.hpp"

#include <string>
#include <vector>

namespace varnholt::appearance {

/// The module `NewSkin`: eight background pictures for the windows, a small one for dialogs and a large one for the two
/// main windows, each with the accent of the windows and the grounds of the lists that go with it. Number 4 is the
/// user's own.
class NewSkin : public panels::Room {
 public:
  NewSkin(core::Program& program, panels::ListLooks& looks) : program_(program), looks_(looks) {}

  /// Loads the skin of the start-up state: a number below 0 or none at all counts as 0, one above 7 loads none.
  void applyInitState();
  /// Stores the number, takes both pictures and dresses all windows.
  void choose(int number);

  void addCommands(panels::CommandTable& table) override;
  /// Windows that take the small picture, and the two that take the large one.
  void addDialog(controls::Form& form);
  void addMainWindow(controls::Form& form);

  static std::string nameOf(int number);
  static constexpr int Count = 8;

 private:
  void dressAll();
  void wear(int number);
  void checkEntry(int number);
  std::string picture(int number, bool large) const;

  core::Program& program_;
  panels::ListLooks& looks_;
  std::vector<controls::Form*> dialogs_, mainWindows_;
  std::string small_, large_;
};

}  // namespace varnholt::appearance
