#pragma once

#include "panels/desk.hpp"
#include "panels/room.hpp"

namespace varnholt::vdt {

/// The Virtual DeskTop: a list of pointers to files and folders, kept in projects.
class VDT : public panels::Room {
 public:
  explicit VDT(panels::Desk& desk);
  VDT(const VDT&) = delete;
  VDT& operator=(const VDT&) = delete;

  void addCommands(panels::CommandTable& table) override;

 private:
  panels::Desk& desk_;
};

}  // namespace varnholt::vdt
