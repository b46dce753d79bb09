#pragma once

#include "controls/list_view.hpp"
#include "controls/standard.hpp"
#include "core/program_files.hpp"
#include "core/shared_lines.hpp"
#include "panels/desk.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace varnholt::search {

/// The text, or "... " and so many of its last letters when it is longer.
std::string endOf(const std::string& text, std::size_t letters);

/// What the quick find has found: `GetQF.Dat`.
class FoundHistory {
 public:
  /// Records an item, unless it stands there already.
  void FoundStore(const core::Item& item);
  void clear() { items_.clear(); }
  /// Newest first.
  std::vector<core::Item> items() const;
  void load(const core::Program& program);
  platform::Result<void> store(const core::Program& program);

 private:
  panels::History items_{1000};  ///< as the lines of the file
  core::SharedLines file_{core::program_file::GetQF};
};

/// "Found History": what was found, to go there again.
class Form48 : public controls::Form {
 public:
  Form48(panels::Desk& desk, FoundHistory& history);

  controls::PictureBox Image1{*this, "Image1"};
  controls::ListView ListView1{*this, "ListView1"};
  controls::StatusBar StatusBar1{*this, "StatusBar1", 1};
  controls::Button Command2{*this, "Command2"};  ///< go to
  controls::Button Command1{*this, "Command1"};  ///< empty the history
  controls::Button Command3{*this, "Command3"};  ///< cancel

 private:
  void setTexts();
  void bind();
  void Form_Load();
  void ListView1_Click();
  void Command1_Click();
  void Command2_Click();

  panels::Desk& desk_;
  FoundHistory& history_;
  std::vector<core::Item> items_;  ///< of the rows
};

}  // namespace varnholt::search
