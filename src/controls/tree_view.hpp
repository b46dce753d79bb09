#pragma once

#include "controls/form.hpp"

#include <memory>
#include <string>
#include <vector>

namespace varnholt::controls {

/// One node of a tree. Lives until its tree is cleared or the node is removed.
class TreeNode {
 public:
  std::string Text;
  std::string Key;
  std::string Icon;  ///< icon of the program's family, by name
  bool Expanded = false;
  TreeNode* parent = nullptr;
  std::vector<std::unique_ptr<TreeNode>> children;

  /// Texts from the root down to this node, joined by the tree's separator.
  std::string fullPath(const std::string& separator = "\\") const;
};

/// A tree of texts. Change nodes through the tree, so that it is redrawn.
class TreeView : public Control {
 public:
  TreeView(Form& form, std::string name) : Control(form, std::move(name), Kind::TreeView) {}

  std::vector<std::unique_ptr<TreeNode>>& roots() { return roots_; }
  const std::vector<std::unique_ptr<TreeNode>>& roots() const { return roots_; }
  TreeNode& add(TreeNode* parent, std::string text, std::string key = {}, std::string icon = {});
  void clear();
  void removeChildren(TreeNode& node);
  void setExpanded(TreeNode& node, bool expanded);
  void select(TreeNode* node);
  TreeNode* selected() const { return selected_; }
  /// Counts structural changes, for the drawing side.
  unsigned version() const { return version_; }

  Event<TreeNode&> NodeClick;
  Event<TreeNode&> NodeMove;  ///< keys have come to the node
  Event<TreeNode&> Expand;
  Event<TreeNode&> Collapse;

  /// The user opens or closes a node: fires Expand or Collapse after the state has changed.
  void expandFromUser(TreeNode& node, bool expanded);
  /// The user clicks a node.
  void clickFromUser(TreeNode& node);
  /// The user comes to a node by the keyboard.
  void moveFromUser(TreeNode& node);

 private:
  std::vector<std::unique_ptr<TreeNode>> roots_;
  TreeNode* selected_ = nullptr;
  unsigned version_ = 0;
};

}  // namespace varnholt::controls
