#pragma once

#include "controls/standard.hpp"
#include "panels/desk.hpp"
#include "search/found_history.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace varnholt::search {

/// "Quick Find Item.": goes to a row of the active panel while its name is typed. Stays open beside the panels.
class Form47 : public controls::Form {
 public:
  Form47(panels::Desk& desk, FoundHistory& history);

  controls::TextBox Text1{*this, "Text1"};
  controls::CheckBox Check1{*this, "Check1"}, Check3{*this, "Check3"};  ///< folders, files
  controls::CheckBox Check2{*this, "Check2"};                           ///< anywhere in the name
  controls::PictureBox Image1{*this, "Image1"};                         ///< found
  controls::Button Command1{*this, "Command1"};                         ///< open
  controls::Button Command3{*this, "Command3"};                         ///< the next one
  controls::Button Command2{*this, "Command2"};                         ///< cancel
  controls::StatusBar StatusBar1{*this, "StatusBar1", 3};
  controls::Timer Timer1{*this, "Timer1"};  ///< the typing rests

  bool FindContinue = false, FindHit = false;

  /// Opens the window to find folders or files.
  void open(bool folders);
  /// Puts the last hit into the history. While letters are typed this waits until they rest, so that each leaves none.
  void FoundStore();

 private:
  void setTexts();
  void bind();
  void Form_Load();
  void chooseKind(bool folders);
  void Text1_Change();
  void Command1_Click();
  void Command3_Click();
  void QuickFindStep(std::uint32_t start, const std::string& text, bool folders);
  void QuickFindHit(panels::Panel& panel, std::uint32_t row);
  /// The rows are others, or those of another panel.
  void startAnew();
  void showNothing();
  std::string typed() const;
  std::uint32_t nextRow(const panels::Panel& panel) const;

  panels::Desk& desk_;
  FoundHistory& history_;
  controls::Twips left_ = 0, top_ = 0;  ///< where the window stood last in this run
  // The last hit.
  std::shared_ptr<const panels::PanelRows> rows_;
  std::uint32_t id_ = 0;
  std::optional<core::Item> unrecorded_;
};

}  // namespace varnholt::search
