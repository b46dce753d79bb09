#pragma once

#include "controls/standard.hpp"
#include "controls/tree_view.hpp"
#include "panels/desk.hpp"
#include "panels/room.hpp"

#include <array>
#include <string>
#include <unordered_map>
#include <vector>

namespace varnholt::appearance {

/// "Commands": the main commands as buttons, the folders of the active panel's drive as a tree, and a preview, in a
/// small window beside the main one.
class Form22 : public controls::Form {
 public:
  explicit Form22(panels::Desk& desk);

  controls::Button Command1{*this, "Command1"};    ///< copy
  controls::Button Command2{*this, "Command2"};    ///< move
  controls::Button Command3{*this, "Command3"};    ///< delete
  controls::Button Command4{*this, "Command4"};    ///< rename
  controls::Button Command5{*this, "Command5"};    ///< properties
  controls::Button Command6{*this, "Command6"};    ///< edit
  controls::Button Command7{*this, "Command7"};    ///< open
  controls::Button Command8{*this, "Command8"};    ///< refresh
  controls::Button Command9{*this, "Command9"};    ///< select all
  controls::Button Command10{*this, "Command10"};  ///< parent folder
  controls::Button Command11{*this, "Command11"};  ///< find an item
  controls::Button Command12{*this, "Command12"};  ///< tree on, off
  controls::Button Image1{*this, "Image1"};        ///< close
  controls::TextBox Text1{*this, "Text1"};         ///< the selected folder
  controls::TreeView TreeView1{*this, "TreeView1"};
  controls::PictureBox Image2{*this, "Image2"};  ///< the item in focus

  std::string F22Path;  ///< the folder that the tree shows

  /// Brings the window up to the active panel, if it is open.
  void F22commandfunction();
  /// The node of that full path; null when the tree has none yet.
  controls::TreeNode* TreeNodetest(const std::string& fullPath) const;

 private:
  struct CommandButton {
    controls::Button* button;
    const char *handler, *caption, *toolTip, *icon;
  };
  void makeButtons();
  void bind();
  void Form_Load();
  void UnderScoreRemove();
  void run(const std::string& handler);
  std::string parentHandler() const;
  bool isNonFolder() const;
  /// The tree of the active panel's drive, open down to its folder.
  void showFolder(const panels::Panel& panel);
  void fill(controls::TreeNode& node);
  std::string folderOf(const controls::TreeNode& node) const;
  void showPicture(const panels::Panel& panel);
  void nodeInHand(const controls::TreeNode& node);
  void TreeView1_NodeClick(controls::TreeNode& node);
  void TreeView1_DblClick();
  void Image2_DblClick();
  /// The item in hand stays the only selected one of the active panel.
  void selectOne();

  panels::Desk& desk_;
  std::vector<CommandButton> buttons_;
  std::string drive_;                                           ///< root of the drive in the tree
  std::string previewed_;                                       ///< the file in the preview; empty: no file is in hand
  std::unordered_map<std::string, controls::TreeNode*> nodes_;  ///< by full path
};

/// The window of commands, and what opens it.
class CommandTree : public panels::Room {
 public:
  explicit CommandTree(panels::Desk& desk);
  CommandTree(const CommandTree&) = delete;
  CommandTree& operator=(const CommandTree&) = delete;

  void addCommands(panels::CommandTable& table) override;
  std::vector<controls::Form*> dialogs() override { return {&Form22}; }
  void Commands_Click();

  appearance::Form22 Form22;
};

}  // namespace varnholt::appearance
