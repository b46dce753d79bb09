#pragma once

#include "controls/list_view.hpp"
#include "controls/rich_text.hpp"
#include "controls/standard.hpp"
#include "core/kept_files.hpp"
#include "panels/desk.hpp"
#include "panels/room.hpp"
#include "places/place_list.hpp"

#include <string>

namespace varnholt::places {

/// "My Notes": the notes that there are, and the one that is written.
class Form46 : public controls::Form {
 public:
  explicit Form46(panels::Desk& desk);

  controls::ListView ListView1{*this, "ListView1"};
  controls::Label Label1{*this, "Label1"};
  controls::TextBox Text1{*this, "Text1"};  ///< the note's name
  // The look of what is selected in the text.
  controls::Button Command5{*this, "Command5"};  ///< bold
  controls::Button Command6{*this, "Command6"};  ///< italic
  controls::Button Command7{*this, "Command7"};  ///< underline
  controls::Label Label2{*this, "Label2"}, Label3{*this, "Label3"};
  controls::ComboBox Combo1{*this, "Combo1"};  ///< size
  controls::ComboBox Combo2{*this, "Combo2"};  ///< colour
  controls::RichTextBox RichTextBox1{*this, "RichTextBox1"};
  controls::Button Command1{*this, "Command1"};    ///< save
  controls::Button Command11{*this, "Command11"};  ///< save and close
  controls::Button Command2{*this, "Command2"};    ///< delete what is selected
  controls::Button Command4{*this, "Command4"};    ///< delete all
  controls::Button Command3{*this, "Command3"};    ///< close

  PlaceList notes;

 private:
  void setTexts();
  void bind();
  void Form_Load();
  void Form_KeyDown(controls::KeyEvent& event);
  void ListView1_Click();
  void ListView1_DblClick(controls::ListItem row);
  void Command2_Click();
  void Command4_Click();
  void showFormat();

  /// Shows the note of that row; false: the text in the box stays.
  bool load(const std::string& name);
  /// Saves under the name in the box; false: it was not.
  bool save();
  /// A file that stands there may go. One that could not be read to its end is noted as such.
  bool mayReplace(const std::string& name, const std::string& file);
  /// A text that was changed may be lost: false, the user keeps it.
  bool mayLose();
  void resetName();

  panels::Desk& desk_;
  core::KeptFiles kept_{desk_.program};
  std::string loaded_;  ///< row of the note in the text box; empty: none
  bool changed_ = false;
};

/// Notes that the user keeps beside the program.
class Notes : public panels::Room {
 public:
  explicit Notes(panels::Desk& desk);
  Notes(const Notes&) = delete;
  Notes& operator=(const Notes&) = delete;

  void addCommands(panels::CommandTable& table) override;
  std::vector<controls::Form*> dialogs() override { return {&Form46}; }
  void MyNotes_Click();

 private:
  panels::Desk& desk_;

 public:
  places::Form46 Form46;
};

}  // namespace varnholt::places
