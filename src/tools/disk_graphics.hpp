#pragma once

#include "controls/list_view.hpp"
#include "panels/desk.hpp"
#include "panels/icons.hpp"

#include <atomic>
#include <memory>
#include <string>
#include <vector>

namespace varnholt::tools {

/// An item of the chart: its path, and how large it is with all below it.
struct UsageItem {
  core::Item item;   ///< with its full path
  std::string text;  ///< as its row reads
  std::uint64_t bytes = 0;
};

/// "Disk Usage In Graphics  !": the sizes of the selected items as a chart and as a list. It stays open beside the
/// panels and follows what is selected there.
class Form45 : public controls::Form {
 public:
  Form45(panels::Desk& desk, const panels::Icons& icons);

  controls::TextBox Text1{*this, "Text1"};       ///< the folder
  controls::Button Command1{*this, "Command1"};  ///< bars
  controls::Button Command3{*this, "Command3"};  ///< pie
  controls::Chart MSChart1{*this, "MSChart1"};
  controls::Label Label3{*this, "Label3"}, Label4{*this, "Label4"};  ///< the largest, the smallest
  controls::ListView ListView1{*this, "ListView1"};
  controls::PictureBox Picture1{*this, "Picture1"};  ///< icon of the type of the item in hand
  controls::ProgressBar ProgressBar1{*this, "ProgressBar1"};
  controls::Button Command4{*this, "Command4"};  ///< go to
  controls::Button Command2{*this, "Command2"};
  controls::StatusBar StatusBar1{*this, "StatusBar1", 2};
  controls::Timer Timer1{*this, "Timer1"};  ///< moves the bar while sizes are asked for

  void DiskGraH_Click();
  /// Computes the chart anew from what is selected now; nothing while the window is closed.
  void ShartCal();

 private:
  /// A sizing that runs beside the window. The call that asks shares it, and may outlive what wanted it.
  struct Sizing {
    std::vector<std::string> paths;
    std::vector<std::uint64_t> sizes;
    std::atomic<std::uint64_t> done = 0;
    std::atomic<bool> givenUp = false;
  };
  class Rows;

  void setTexts();
  void bind();
  void Form_Load();
  void Form_Unload();
  void compute();
  void giveUp();
  void clearResults();
  void showResults();
  void setChart(controls::Chart::Type type);
  void showHolder(controls::Label& label, const UsageItem& holder);
  void selectRow(std::uint32_t id);
  void selectHolder(const controls::Label& label);
  void ListView1_Click();
  void ListView1_DblClick();
  void ListView1_ColumnClick(int number);
  void Command4_Click();
  std::string sizeText(std::uint64_t bytes) const;
  /// The row in hand; null when there is none.
  const UsageItem* itemInHand();

  panels::Desk& desk_;
  const panels::Icons& icons_;
  std::string folder_;                             ///< of the items
  std::shared_ptr<std::vector<UsageItem>> items_;  ///< the chart's points, in their order
  std::shared_ptr<Sizing> sizing_;
  bool leadingPanel_ = false;  ///< the panel goes to an item of ours
};

}  // namespace varnholt::tools
