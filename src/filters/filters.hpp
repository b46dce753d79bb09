#pragma once

#include "filters/date_dialog.hpp"
#include "filters/filter_dialogs.hpp"
#include "panels/desk.hpp"
#include "panels/room.hpp"

#include <optional>
#include <vector>

namespace varnholt::filters {

/// The File Filter, which selects, and the View Filter, which hides.
class Filters : public panels::Room {
 public:
  explicit Filters(panels::Desk& desk);
  Filters(const Filters&) = delete;
  Filters& operator=(const Filters&) = delete;

  /// Asks for a filter and selects the files of the active panel that pass it.
  void Command5_Click();
  /// Asks for a filter; from then on both panels show only the files that pass it.
  void Viewuser_Click();
  void addCommands(panels::CommandTable& table) override;
  std::vector<controls::Form*> dialogs() override { return {&Form6, &Form25, &Form24}; }

 private:
  panels::Desk& desk_;

 public:
  filters::Form6 Form6;
  filters::Form25 Form25;
  filters::Form24 Form24;

 private:
  void selectFiles();
  void Form6_Command11_Click();
  void Form25_Command11_Click();
  void match(panels::Panel& panel, const Criteria& criteria);
  void take(panels::Panel& panel, controls::ListItem item);
  void showFileLine(const Criteria& criteria);
  panels::FileTest Viewdiv() const;

  std::optional<Criteria> view_;  ///< the View Filter in force
};

}  // namespace varnholt::filters
