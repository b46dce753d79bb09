#pragma once

#include "controls/message_loop.hpp"
#include "controls/standard.hpp"
#include "controls/tree_view.hpp"
#include "core/program.hpp"

#include <optional>
#include <string>

namespace varnholt::panels {

/// "Browse For Folder On Ready Drives..": a tree of all ready drives, from which copy, move and zip take a target.
class Form35 : public controls::Form {
 public:
  explicit Form35(core::Program& program);

  controls::TreeView TreeView1{*this, "TreeView1"};
  controls::TextBox Text1{*this, "Text1"};
  controls::CheckBox Check1{*this, "Check1"}, Check2{*this, "Check2"};
  controls::Button Command1{*this, "Command1"}, Command3{*this, "Command3"};
  controls::StatusBar StatusBar1{*this, "StatusBar1", 1};

  /// Asks for a folder on behalf of a function ("Copy Item(s)"). Nothing when the user cancels, or when the dialog is
  /// open already. The two boxes are read from Check1 (back to the first folder on cancel) and Check2 (after execute)
  /// when it returns. A function that moves no panel has no name here, and its user no boxes.
  std::optional<std::string> browse(const std::string& function);

 private:
  void Form_Load();
  void TreeView1_NodeClick(controls::TreeNode& node);
  void TreeView1_NodeMove(controls::TreeNode& node);
  void TreeView1_KeyDown(controls::KeyEvent& event);
  void TreeView1_Expand(controls::TreeNode& node);
  /// Reads the folders of a node that was not read before, and opens it.
  void scan(controls::TreeNode& node);
  void Command1_Click();
  void showCaption();
  /// True when the node was scanned before: its children are there.
  static bool TreeNodetest(const controls::TreeNode& node);
  std::string folderOf(const controls::TreeNode& node) const;

  core::Program& program_;
  std::string function_;
  std::optional<std::string> taken_;
  bool scanning_ = false;  ///< a click is at work and gives turns: nothing else may run in the dialog
};

}  // namespace varnholt::panels
