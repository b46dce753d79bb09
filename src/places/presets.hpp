#pragma once

#include "panels/room.hpp"
#include "places/dynamic_presets.hpp"
#include "places/static_presets.hpp"

#include <functional>
#include <vector>

namespace varnholt::places {

/// Pairs of folders for the two panels: those that the user has named, and those visited in this run.
class Presets : public panels::Room {
 public:
  explicit Presets(panels::Desk& desk);
  Presets(const Presets&) = delete;
  Presets& operator=(const Presets&) = delete;

  void Command12_Click();
  void DynPresets_Click();
  void addCommands(panels::CommandTable& table) override;
  std::vector<controls::Form*> dialogs() override { return {&Form20, &Form21, &Form34}; }

 private:
  panels::Desk& desk_;
  bool moving_ = false;  ///< a pair is on its way, and half of it is none that was visited

 public:
  places::Form21 Form21;
  places::Form20 Form20;
  places::Form34 Form34;

 private:
  void DynPresetAdd();
  bool asOneMove(const std::function<bool()>& move);
};

}  // namespace varnholt::places
