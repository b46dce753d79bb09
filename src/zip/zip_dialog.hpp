#pragma once

#include "controls/list_view.hpp"
#include "controls/standard.hpp"
#include "core/stoppable_call.hpp"
#include "fileops/left_out_notice.hpp"
#include "panels/desk.hpp"
#include "zip/mzip.hpp"

#include <atomic>
#include <string>
#include <vector>

namespace varnholt::zip {

/// "Zip File Options": what goes into an archive, where that is made, and how.
class Form41 : public controls::Form {
 public:
  explicit Form41(panels::Desk& desk);

  controls::TextBox Text1{*this, "Text1"};     ///< folder of the archive
  controls::TextBox Text2{*this, "Text2"};     ///< its name
  controls::CheckBox Check1{*this, "Check1"};  ///< recurse
  controls::CheckBox Check2{*this, "Check2"};  ///< store folder names
  controls::Label Label1{*this, "Label1"}, Label2{*this, "Label2"};
  controls::Label Label3{*this, "Label3"};  ///< what is going on
  controls::TextBox Text3{*this, "Text3"};  ///< how far it is, while several rows are packed
  controls::ListView ListView1{*this, "ListView1"};
  controls::ProgressBar ProgressBar1{*this, "ProgressBar1"};
  controls::Button Command1{*this, "Command1"};  ///< make the archive
  controls::Button Command2{*this, "Command2"};  ///< cancel
  controls::Button Command3{*this, "Command3"};  ///< take rows out
  controls::Button Command4{*this, "Command4"};  ///< stop
  controls::Button Command5{*this, "Command5"};  ///< another folder

  /// Shows what is to be packed, from that folder. False: no archive was made.
  bool open(const std::string& folder, const std::vector<core::Item>& items);

  mZip library;

 private:
  void setTexts();
  void bind();
  void Form_Load();
  void Command1_Click();
  void Command3_Click();
  void Command4_Click();
  void Command5_Click();
  void ListView1_DblClick();

  void showRows(const std::string& folder, const std::vector<core::Item>& items);
  void showTitle();
  void showCount();
  void setRunning(bool running);
  /// The name of the archive, when it is one and may be written.
  bool mayWrite(const std::string& folder, const std::string& name);
  /// The batches, one after the other. False: the rest is not in the archive.
  bool zipRows();
  bool zipBatch();
  /// So many rows are packed, of all.
  void showShare(double rows);
  /// About how often the library will ask during the batch in hand whether it goes on.
  std::uint64_t partsOfBatch() const;
  void noteFoldersLeft();
  void addRow(std::uint32_t row);
  void takeMessage(const std::string& line);
  void tellMessages();
  void ended(bool success);

  panels::Desk& desk_;
  cZip zip_;
  core::StoppableCall work_;
  double rowsDone_ = 0;                  ///< of the batches before the one in hand
  std::atomic<std::uint64_t> done_ = 0;  ///< parts of the batch in hand
  std::vector<std::string> messages_;
  bool running_ = false, stopped_ = false, failed_ = false, made_ = false;
};

}  // namespace varnholt::zip
