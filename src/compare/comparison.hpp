#pragma once

#include "compare/compare_dialog.hpp"
#include "panels/desk.hpp"

#include <optional>
#include <string>
#include <vector>

namespace varnholt::compare {

/// What the buttons of `Form30` do: folders to the panels, the three runs, and the copies that follow from them.
class Comparison {
 public:
  Comparison(panels::Desk& desk, Form30& dialog);

  /// Opens the dialog on the folders of the panels, and returns when it has closed.
  void open();
  void Command1_Click();
  void Command11_Click();
  void Command2_Click();

 private:
  void ComphisL_store();
  void ComphisR_store();
  void store(panels::History& history, controls::ComboBox& box, const std::string& folder);
  /// Tells what stands against a run; then it does not begin.
  std::optional<const char*> refusal();
  /// Whether one of the folders holds a file, whatever its panel shows of it.
  bool anyFile();
  /// False when no test is chosen: nothing was compared.
  bool run();
  void CompareBoth();
  void CompareLeftRight() { compareOneWay(panels::Side::Left); }
  void CompareRightLeft() { compareOneWay(panels::Side::Right); }
  void compareOneWay(panels::Side source);
  /// Fills the list of one direction.
  void compare(panels::Side source);
  bool found(const std::vector<panels::Side>& sources);
  /// Asks, and carries over what the lists hold, one direction after the other.
  void execute(const std::vector<panels::Side>& sources, const char* question);
  void CompareProgress(std::size_t count, std::size_t total);
  void inform(const char* text) { desk_.program.dialogs.inform(text); }

  panels::Desk& desk_;
  Form30& Form30_;
};

}  // namespace varnholt::compare
