#pragma once

#include "controls/standard.hpp"
#include "core/program_files.hpp"
#include "core/shared_lines.hpp"
#include "core/stoppable_call.hpp"
#include "panels/desk.hpp"
#include "search/folder_word.hpp"
#include "search/match_dialog.hpp"

#include <string>

namespace varnholt::search {

/// "Quick Find Folder": looks for a folder by a word, on a drive or below the active panel's folder, and asks at each
/// one that it finds.
class Form36 : public controls::Form {
 public:
  Form36(panels::Desk& desk, search::Form37& Form37);

  controls::ComboBox Combo1{*this, "Combo1"};    ///< the search word, and those before it
  controls::ComboBox Drive1{*this, "Drive1"};    ///< the drive to scan
  controls::CheckBox Check1{*this, "Check1"};    ///< from the root of the drive
  controls::CheckBox Check2{*this, "Check2"};    ///< from the active panel's folder
  controls::CheckBox Check3{*this, "Check3"};    ///< the word may stand anywhere in the path
  controls::CheckBox Check4{*this, "Check4"};    ///< folders in folders too
  controls::TextBox Text1{*this, "Text1"};       ///< where the scan starts, or is
  controls::PictureBox Image1{*this, "Image1"};  ///< scanning
  controls::PictureBox Image2{*this, "Image2"};  ///< no match
  controls::Button Command4{*this, "Command4"};  ///< find
  controls::Button Command3{*this, "Command3"};  ///< stop
  controls::Button Command1{*this, "Command1"};  ///< forget all words
  controls::Button Command5{*this, "Command5"};  ///< forget the word in hand
  controls::Button Command2{*this, "Command2"};  ///< cancel

  bool ScanStop = false, ScanFound = false, ScanEnd = false;
  std::string ScanPath, ScanWord, AcceptedFolder;

  void SearchWordAdd(const std::string& word);
  void SearchHistoryLoad();
  platform::Result<void> SearchHistoryStore();

 private:
  void setTexts();
  void bind();
  void Form_Load();
  void Check1_Click(controls::CheckBox& chosen, controls::CheckBox& other);
  void Command1_Click();
  void Command4_Click();
  void Command5_Click();
  void fillDrives();
  void fillWords();
  void showStart();
  void setButtons();
  void setRunning(bool running);
  void scan(const std::string& start);
  /// The first folder of the walk behind `after` that matches; empty: there is none, or the scan was stopped.
  std::string nextMatch(const std::string& start, const std::string& after, const FolderWord& word);
  void FolderMatch(const std::string& path);
  bool GoToFound();

  panels::Desk& desk_;
  search::Form37& Form37_;
  core::StoppableCall work_{loop()};
  panels::History words_;
  core::SharedLines file_{core::program_file::FolderSearchHis};
};

}  // namespace varnholt::search
