#pragma once

#include "panels/desk.hpp"
#include "panels/room.hpp"

namespace varnholt::places {

/// Notes that the user keeps beside the program.
class Notes : public panels::Room {
 public:
  explicit Notes(panels::Desk& desk);
  Notes(const Notes&) = delete;
  Notes& operator=(const Notes&) = delete;

  void addCommands(panels::CommandTable& table) override;

 private:
  panels::Desk& desk_;
};

}  // namespace varnholt::places
