#pragma once

#include "controls/list_view.hpp"
#include "controls/standard.hpp"
#include "core/program.hpp"
#include "rename/field_rule.hpp"
#include "rename/mask.hpp"

#include <string>

namespace varnholt::rename {

/// Who asks for the dialog.
enum class Caller { Panel, Favourite, Bookmark, RenameTarget };

/// "Rename Item(s)": one item after the other gets the name in the upper field; or, with the mask on, all selected
/// files at once get the names that the preview shows.
class Form14 : public controls::Form {
 public:
  explicit Form14(core::Program& program);

  // --- One item --------------------------------------------------------------------------------------------------
  controls::PictureBox Picture1{*this, "Picture1"};  ///< icon of its type
  controls::Label Label1{*this, "Label1"};           ///< the item in hand
  controls::Label Label2{*this, "Label2"};           ///< its place among the selected ones: "2 / 5"
  controls::TextBox Text1{*this, "Text1"};           ///< its new name
  controls::Button Image1{*this, "Image1"};          ///< to the item before
  controls::Button Image10{*this, "Image10"};        ///< to the next one
  controls::PictureBox Image3{*this, "Image3"};
  controls::Button Image2{*this, "Image2"}, Image11{*this, "Image11"};  ///< the same beside the picture
  controls::Button Command1{*this, "Command1"};                         ///< the old name back
  controls::Button Command3{*this, "Command3"}, Command4{*this, "Command4"};
  controls::Button Command9{*this, "Command9"};    ///< open the item
  controls::Button Command5{*this, "Command5"};    ///< mask off, mask on
  controls::Button Command11{*this, "Command11"};  ///< rename and go on
  controls::Button Command2{*this, "Command2"};    ///< cancel

  // --- The mask --------------------------------------------------------------------------------------------------
  controls::CheckBox Check2{*this, "Check2"};  ///< a new base instead of the old name
  controls::Label Label3{*this, "Label3"};
  controls::TextBox Text3{*this, "Text3"};  ///< the base
  controls::Label Label5{*this, "Label5"};
  controls::TextBox Text5{*this, "Text5"};       ///< where the counter begins
  controls::Button Command8{*this, "Command8"};  ///< "+" or "-"
  controls::Label Label4{*this, "Label4"};
  controls::TextBox Text2{*this, "Text2"};  ///< the text to add or cut
  controls::Label Label6{*this, "Label6"};
  controls::TextBox Text4{*this, "Text4"};                                    ///< the extension
  controls::CheckBox Check3{*this, "Check3"}, Check1{*this, "Check1"};        ///< lower case, upper case
  controls::ListView ListView1{*this, "ListView1"};                           ///< the preview
  controls::Label Label7{*this, "Label7"};                                    ///< what the preview could not give
  controls::Button Command7{*this, "Command7"}, Command6{*this, "Command6"};  ///< preview, execute all

  // --- State -----------------------------------------------------------------------------------------------------
  std::string Folder;     ///< of the item in hand
  std::string Item;       ///< its name
  std::string NewName;    ///< what the mask made of the last name
  bool Invalid = false;   ///< a field was refused
  std::size_t Index = 0;  ///< of the item in hand, among the selected ones

  /// As when it first opens: mask off, fields empty, no preview.
  void reset(Caller caller);
  /// Puts an item in hand, number `Index` of `count`.
  void showItem(const std::string& folder, const std::string& name, std::size_t count);
  bool maskOn() const;
  /// Says under the preview how many items would keep their names, and why the first of them would.
  void showKept(std::size_t count, const std::string& first);
  /// The icon of such a row.
  static constexpr int KeptIcon = 90;

  // --- The mask at work --------------------------------------------------------------------------------------------
  /// Reads the counter and tests the fields; false: one was refused, and the user was told.
  bool readMask();
  /// The new name of an item for the preview and for the real run: one rule. What is no file gets none.
  void Stringsum(const std::string& name, bool isFile);
  void Stringsum_real(const std::string& name, bool isFile) { Stringsum(name, isFile); }
  /// The tests of the fields; they set `Invalid`.
  void CheckBaseChars() { checkField(BaseChars, Text3, true); }
  void CheckAddChars() { checkField(AddChars, Text2, true); }
  void CheckExtChars() { checkField(ExtChars, Text4, true); }
  void CheckNewName() { checkField(NewNameChars, Text1, false); }

 private:
  void dressItemPart();
  void dressMaskPart();
  void Command5_Click();
  void Command8_Click();
  void Check2_Click();
  void Text5_Change();
  void setMask(bool on);
  void showMask(bool on);
  void checkField(const FieldRule& rule, controls::TextBox& field, bool empties);
  void readCounter();
  Mask mask() const;
  void showPicture();

  core::Program& program_;
  std::string counter_ = "0";
  controls::Twips narrowHeight_ = 0;  ///< of the window before the mask made it larger
};

}  // namespace varnholt::rename
