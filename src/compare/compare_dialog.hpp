#pragma once

#include "compare/differences.hpp"
#include "controls/list_view.hpp"
#include "controls/standard.hpp"
#include "core/stoppable_call.hpp"
#include "panels/desk.hpp"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace varnholt::compare {

/// A row of a transfer list: what is to be carried over, and why it could not be, when it was tried.
struct Transfer : Difference {
  std::string failure{};
};

/// "Compare - Sync. Folders": which files of two folders are to be carried over, by chosen tests; and does so.
class Form30 : public controls::Form {
 public:
  explicit Form30(panels::Desk& desk);

  controls::ComboBox ImageCombo1{*this, "ImageCombo1"},
      ImageCombo2{*this, "ImageCombo2"};                                  ///< left folder, right folder
  controls::Label Label1{*this, "Label1"}, Label2{*this, "Label2"};       ///< above these
  controls::Button Command1{*this, "Command1"};                           ///< apply the folders to the panels
  controls::CheckBox Check1{*this, "Check1"};                             ///< left to right
  controls::CheckBox Check2{*this, "Check2"};                             ///< right to left
  controls::CheckBox Check3{*this, "Check3"};                             ///< both ways
  controls::PictureBox Image2{*this, "Image2"}, Image3{*this, "Image3"};  ///< the arrows to the right and to the left
  controls::CheckBox Check4{*this, "Check4"}, Check5{*this, "Check5"}, Check6{*this, "Check6"};  ///< exist, size, date
  controls::CheckBox Check10{*this, "Check10"};                                                  ///< version
  controls::CheckBox Check7{*this, "Check7"};                                                    ///< compare only
  controls::CheckBox Check8{*this, "Check8"};                                                    ///< and sync
  controls::CheckBox Check9{*this, "Check9"};        ///< system and hidden files
  controls::ListView ListView1{*this, "ListView1"};  ///< to the right panel
  controls::ListView ListView2{*this, "ListView2"};  ///< to the left panel
  controls::TextBox Text1{*this, "Text1"};           ///< details of a row
  controls::ProgressBar ProgressBar1{*this, "ProgressBar1"};
  controls::StatusBar StatusBar1{*this, "StatusBar1", 3};
  controls::Button Command4{*this, "Command4"};    ///< the lists, shown or not
  controls::Button Command11{*this, "Command11"};  ///< execute
  controls::Button Command2{*this, "Command2"};    ///< cancel; stops a run

  /// As it opens: small, both ways, nothing in the lists.
  void prepare();
  void ClearResults();
  void blankStatus();
  /// The file system of each panel's drive over its box.
  void FolderLabels();
  void setReport(bool on);
  bool report() const { return report_; }
  Tests tests() const;

  /// One of the two transfer lists: its files go from this panel's folder to the other's.
  struct Direction {
    controls::ListView& list;
    panels::Panel &source, &target;
    int statusPanel;
    const char* title;  ///< of its count in the status bar
  };
  Direction direction(panels::Side source);
  /// The rows as the list has them now, in its order.
  std::vector<Transfer> rows(const controls::ListView& list) const;
  void show(const controls::ListView& list, std::vector<Transfer> rows);

  core::StoppableCall work{loop()};

 private:
  class Rows;
  void setTexts();
  void bind();
  void bindList(panels::Side source);
  void Form_Load();
  void setBoth(bool both);
  void showArrows();
  void Check1_Click(controls::CheckBox& self, controls::CheckBox& other);
  void Check3_Click();
  void ListView_Click(const Direction& direction);
  void ListView_DblClick(const Direction& direction);
  void ListView_ColumnClick(controls::ListView& list, int number);
  /// Rows come in the order of their panel until a header is clicked.
  static void setOrder(controls::ListView& list, bool descends);

  panels::Desk& desk_;
  bool report_ = false;
};

}  // namespace varnholt::compare
