#pragma once

#include "core/stoppable_call.hpp"
#include "fileops/desktop.hpp"
#include "panels/desk.hpp"
#include "properties/item_dialog.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace varnholt::properties {

/// Shows the properties of the selected items as the user steps through them, and resets their attributes.
class ItemProperties {
 public:
  ItemProperties(panels::Desk& desk, fileops::Desktop& desktop, Form15& dialog);

  void Command15_Click();

 private:
  void handOver();
  void open();
  /// Reads the facts of the item in hand. Nothing is known of one that cannot be asked.
  void Itemdata();
  void AttUpdate();
  /// The size of the folder in hand, while the windows go on painting and Cancel stops it.
  void foldercalc();
  void showBoxes();
  std::string type() const;
  void step(int by);
  void Command1_Click();
  void Command4_Click();
  void Command2_Click();
  void keyDown(controls::KeyEvent& key);

  const core::Item& item() const { return items_[index_]; }

  panels::Desk& desk_;
  fileops::Desktop& desktop_;
  Form15& Form15_;
  std::vector<core::Item> items_;  ///< by full path
  std::size_t index_ = 0;
  platform::Result<platform::EntryInfo> data_ = platform::Error{};
  bool readOnlyMedium_ = false;
  core::StoppableCall work_{desk_.program.loop};
  bool changed_ = false;  ///< the panels are to be read again
};

}  // namespace varnholt::properties
