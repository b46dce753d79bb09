#pragma once

#include "panels/desk.hpp"
#include "panels/room.hpp"

namespace varnholt::zip {

/// Packs what is selected into a zip archive.
class Zip : public panels::Room {
 public:
  explicit Zip(panels::Desk& desk);
  Zip(const Zip&) = delete;
  Zip& operator=(const Zip&) = delete;

  void addCommands(panels::CommandTable& table) override;

 private:
  panels::Desk& desk_;
};

}  // namespace varnholt::zip
