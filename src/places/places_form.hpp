#pragma once

#include "controls/standard.hpp"
#include "places/place_list.hpp"
#include "rename/rename.hpp"

#include <string>

namespace varnholt::places {

/// What the dialogs of favorites and of bookmarks have in common: their list, from which files are opened, renamed and
/// deleted.
class PlacesForm : public controls::Form {
 public:
  controls::ListView ListView1{*this, "ListView1"};
  controls::Button Command1{*this, "Command1"};  ///< delete
  controls::Button Command4{*this, "Command4"};  ///< rename
  controls::Button Command3{*this, "Command3"};  ///< cancel

  PlaceList places;

 protected:
  struct Speech {
    rename::Caller caller;  ///< of the rename dialog
    const char* many;       ///< how a question goes on behind a number
  };
  PlacesForm(panels::Desk& desk, rename::Rename& rename, std::string name, PlaceKind kind, Speech speech);

  /// Follows the row that the user has chosen.
  virtual void open(controls::ListItem row) = 0;

  panels::Desk& desk_;

 private:
  void Form_Load();
  void Command1_Click();
  void Command4_Click();

  rename::Rename& rename_;
  Speech speech_;
};

}  // namespace varnholt::places
