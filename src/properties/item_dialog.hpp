#pragma once

#include "controls/standard.hpp"

#include <cstddef>

namespace varnholt::properties {

/// "File/Folder Properties": the facts of the selected items, one at a time, with a picture of those that are one.
class Form15 : public controls::Form {
 public:
  explicit Form15(controls::MessageLoop& loop);

  controls::TextBox Text1{*this, "Text1"};  ///< name
  controls::TextBox Text2{*this, "Text2"};  ///< folder that it stands in
  controls::TextBox Text3{*this, "Text3"};  ///< type
  controls::TextBox Text4{*this, "Text4"};  ///< size; of a folder once it was asked for
  controls::TextBox Text5{*this, "Text5"};  ///< date created
  controls::TextBox Text6{*this, "Text6"};  ///< date last modified
  controls::TextBox Text7{*this, "Text7"};  ///< attributes in words
  // Archive, hidden, read-only; system, compressed, indexed.
  controls::CheckBox Check1{*this, "Check1"}, Check2{*this, "Check2"}, Check3{*this, "Check3"};
  controls::CheckBox Check4{*this, "Check4"}, Check5{*this, "Check5"}, Check6{*this, "Check6"};
  controls::Label Label1{*this, "Label1"};  ///< how many items there are to view
  controls::Label Label2{*this, "Label2"};  ///< which of them is in hand: "2 / 5"
  controls::PictureBox Image3{*this, "Image3"};
  controls::Button Image1{*this, "Image1"}, Image2{*this, "Image2"};  ///< to the item before, to the next one
  controls::Button Command1{*this, "Command1"};                       ///< size of a folder
  controls::Button Command4{*this, "Command4"};                       ///< reset the attributes
  controls::Button Command5{*this, "Command5"};                       ///< copy to the desktop
  controls::Button Command3{*this, "Command3"};                       ///< open
  controls::Button Command11{*this, "Command11"};                     ///< next item
  controls::Button Command2{*this, "Command2"};                       ///< cancel

  /// As it opens for so many items, on a medium that can be written or not.
  void reset(std::size_t count, bool readOnlyMedium);

 private:
  void dressFacts();
  void dressButtons();
};

}  // namespace varnholt::properties
