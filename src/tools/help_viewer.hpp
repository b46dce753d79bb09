#pragma once

#include "controls/list_view.hpp"
#include "controls/rich_text.hpp"
#include "controls/standard.hpp"
#include "panels/desk.hpp"
#include "tools/help_topics.hpp"

#include <string>
#include <vector>

namespace varnholt::tools {

/// The help: topics that are told in the file Help.txt, one for each window and more, and the commands as the menus
/// have them.
class frmHelp : public controls::Form {
 public:
  explicit frmHelp(panels::Desk& desk);

  controls::Label lblSearch{*this, "lblSearch"};
  controls::TextBox txtSearch{*this, "txtSearch"};  ///< words that the topics hold
  controls::ListView lstTopics{*this, "lstTopics"};
  controls::RichTextBox rtbText{*this, "rtbText"};
  controls::Label lblFound{*this, "lblFound"};
  controls::Button cmdClose{*this, "cmdClose"};

  /// The help of the main window.
  void Help_file_Click() { showFor(desk_.form.name()); }
  /// Opens at the topic of a window, or at the first one; where the help is open already it turns there.
  void showFor(const std::string& form);

 private:
  void Form_KeyDown(controls::KeyEvent& event);
  void txtSearch_KeyDown(controls::KeyEvent& event);
  void readTopics();
  /// What was shipped with this version, else the copy in the program's folder.
  std::vector<HelpTopic> writtenTopics() const;
  void search();
  void step(int by);
  void choose(std::uint32_t row);
  void showChosen();

  panels::Desk& desk_;
  std::vector<HelpTopic> topics_;
  HelpSearch search_{topics_};
  std::vector<std::size_t> found_;  ///< topics by the row that they were listed in
};

}  // namespace varnholt::tools
