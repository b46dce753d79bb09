#pragma once

#include "basket/collection_file.hpp"
#include "basket/paste_collection.hpp"
#include "controls/list_view.hpp"
#include "controls/standard.hpp"
#include "core/stoppable_call.hpp"
#include "panels/desk.hpp"

#include <string>

namespace varnholt::basket {

/// "Paste Viewer": shows what is in the basket, takes things out of it, and keeps it in collection files.
class Form38 : public controls::Form {
 public:
  Form38(panels::Desk& desk, PasteCollection& collection);

  controls::ListView ListView1{*this, "ListView1"};
  controls::Label Label1{*this, "Label1"};       ///< what a load left out
  controls::Label Label2{*this, "Label2"};       ///< what stands beside the list of collection files
  controls::Label Label3{*this, "Label3"};       ///< and beside the name
  controls::ComboBox Combo1{*this, "Combo1"};    ///< the collection files
  controls::TextBox Text2{*this, "Text2"};       ///< name to save under
  controls::CheckBox Check1{*this, "Check1"};    ///< a load adds
  controls::Button Command1{*this, "Command1"};  ///< total size
  controls::Button Command2{*this, "Command2"};  ///< reset
  controls::Button Command3{*this, "Command3"};  ///< delete rows
  controls::Button Command4{*this, "Command4"};  ///< cancel
  controls::Button Command5{*this, "Command5"};  ///< save
  controls::Button Command6{*this, "Command6"};  ///< go to the location
  controls::Button Command7{*this, "Command7"};  ///< delete a collection
  controls::Button Command8{*this, "Command8"};  ///< more, less

 private:
  void setTexts();
  void bind();
  void Form_Load();
  void Command1_Click();
  void Command2_Click();
  void Command3_Click();
  void Command4_Click();
  void Command5_Click();
  void Command6_Click();
  void Command7_Click();
  void Command8_Click();
  void Combo1_Click();
  void ListView1_DblClick();
  void ListView1_ColumnClick(int number);

  void showItems();
  void showCount();
  void showFiles();
  void showMore(bool more);
  void take(const CollectionFiles::Loaded& loaded, const std::string& name);
  std::string chosenFile() const;
  /// The item of the row in focus that is still there; `gone` is told when it is not.
  std::optional<core::Item> chosenItem(const char* gone);
  /// Runs a call that Cancel ends, under the hourglass. False: it was ended.
  template <class Call>
  bool runLong(const Call& call);

  panels::Desk& desk_;
  PasteCollection& collection_;
  CollectionFiles files_;
  core::StoppableCall work_{desk_.program.loop};
};

}  // namespace varnholt::basket
