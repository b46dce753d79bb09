#pragma once

#include "controls/message_loop.hpp"
#include "controls/standard.hpp"
#include "controls/tree_view.hpp"
#include "core/program.hpp"
#include "panels/form1.hpp"

#include <functional>
#include <string>

namespace varnholt::panels {

/// "TreeView, One-Way Command Source.": a tree beside each panel, from which the panel is told where to go.
class Form9 : public controls::Form {
 public:
  explicit Form9(controls::MessageLoop& loop);

  controls::TextBox Text1{*this, "Text1"}, Text2{*this, "Text2"};
  controls::TreeView TreeView1{*this, "TreeView1"}, TreeView2{*this, "TreeView2"};
  controls::StatusBar StatusBar1{*this, "StatusBar1", 2};
  controls::ProgressBar ProgressBar1{*this, "ProgressBar1"};
};

/// The panels of the tree window's status bar, by number.
namespace tree_status {
inline constexpr int ActiveView = 1, Item = 2;
}

/// Fills the trees and carries their commands over to the panels.
class TreeWindow {
 public:
  TreeWindow(Form9& Form9, Form1& form, core::Program& program);

  /// Before the first show: each tree has one node, its panel's folder.
  void Form_Load();
  /// Shows the window at its stored position, or hides it.
  void Treeon_Click();
  /// Builds both trees anew, open down to the folders that the panels show.
  void redraw();
  /// The active panel's current item in the status line. The trees stay as they are.
  void TreedisplayItem();
  void NodeClick(Panel& panel, controls::TreeNode& node);
  void DblClick(Panel& panel);
  /// A node is opened: its level is read.
  void Expand(Panel& panel, controls::TreeNode& node);
  void Collapse(Panel& panel, controls::TreeNode& node);

  /// The panel goes to a folder; false when it does not exist.
  std::function<bool(Panel&, const std::string&)> goTo;
  /// Reads the stored position of the window.
  std::function<void()> restorePosition;

 private:
  controls::TreeView& tree(const Panel& panel) {
    return panel.side == Side::Left ? Form9_.TreeView1 : Form9_.TreeView2;
  }
  controls::TextBox& text(const Panel& panel) { return panel.side == Side::Left ? Form9_.Text1 : Form9_.Text2; }
  void build(Panel& panel);
  void buildLevel(Panel& panel, controls::TreeNode& node);
  std::string folderOf(const controls::TreeNode& node) const;

  Form9& Form9_;
  Form1& form_;
  core::Program& program_;
};

/// A tree node whose level was not read yet has one child of this key, so that it can be opened.
inline constexpr std::string_view UnreadLevel = "unread";

/// Puts the folders below `folder` under the node, each with an unread level of its own. A tree does not go through
/// links, which may lead round in a circle: the node of one has no level below it.
/// `each` is told how many of how many are done. False: the folder cannot be read.
bool addFolders(core::Program& program, controls::TreeView& tree, controls::TreeNode& node, const std::string& folder,
                const std::function<void(std::size_t, std::size_t)>& each = {});
/// True when the node's level was not read yet.
bool isUnread(const controls::TreeNode& node);

}  // namespace varnholt::panels
