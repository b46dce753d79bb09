#pragma once

#include "panels/room.hpp"
#include "properties/attribute_change.hpp"
#include "properties/item_properties.hpp"

namespace varnholt::properties {

/// What files are: their attributes, changed for many at once, and all their properties, one item after the other.
class Properties : public panels::Room {
 public:
  Properties(panels::Desk& desk, fileops::Desktop& desktop);
  Properties(const Properties&) = delete;
  Properties& operator=(const Properties&) = delete;

  void addCommands(panels::CommandTable& table) override;
  std::vector<controls::Form*> dialogs() override { return {&Form15, &Form18}; }

  properties::Form15 Form15;
  properties::Form18 Form18;
  ItemProperties items;
  AttributeChange attributes;

 private:
  panels::Desk& desk_;
};

}  // namespace varnholt::properties
