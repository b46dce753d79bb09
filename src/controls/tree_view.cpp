#include "controls/tree_view.hpp"

namespace varnholt::controls {

std::string TreeNode::fullPath(const std::string& separator) const {
  if (!parent) return Text;
  std::string above = parent->fullPath(separator);
  return above.ends_with(separator) ? above + Text : above + separator + Text;
}

TreeNode& TreeView::add(TreeNode* parent, std::string text, std::string key, std::string icon) {
  auto& siblings = parent ? parent->children : roots_;
  auto node = std::make_unique<TreeNode>();
  node->Text = std::move(text);
  node->Key = std::move(key);
  node->Icon = std::move(icon);
  node->parent = parent;
  siblings.push_back(std::move(node));
  ++version_;
  markChanged();
  return *siblings.back();
}

void TreeView::clear() {
  roots_.clear();
  selected_ = nullptr;
  ++version_;
  markChanged();
}

void TreeView::removeChildren(TreeNode& node) {
  for (TreeNode* at = selected_; at; at = at->parent)
    if (at->parent == &node) selected_ = &node;
  node.children.clear();
  ++version_;
  markChanged();
}

void TreeView::setExpanded(TreeNode& node, bool expanded) {
  if (node.Expanded == expanded) return;
  node.Expanded = expanded;
  markChanged();
}

void TreeView::select(TreeNode* node) {
  if (selected_ == node) return;
  selected_ = node;
  markChanged();
}

void TreeView::expandFromUser(TreeNode& node, bool expanded) {
  setExpanded(node, expanded);
  expanded ? Expand(node) : Collapse(node);
}

void TreeView::clickFromUser(TreeNode& node) {
  select(&node);
  NodeClick(node);
}

void TreeView::moveFromUser(TreeNode& node) {
  select(&node);
  NodeMove(node);
}

}  // namespace varnholt::controls
