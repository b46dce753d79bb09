#include "controls/tree_view.hpp"

#include "qt/adapters/adapter.hpp"
#include "qt/icons.hpp"
#include "qt/text.hpp"

#include <QScrollBar>
#include <QSignalBlocker>
#include <QTreeWidget>

#include <map>
#include <optional>
#include <utility>

namespace varnholt::qt {
namespace {

class TreeViewAdapter : public Joined<controls::TreeView, QTreeWidget> {
 public:
  TreeViewAdapter(Host& host, controls::TreeView& control, QTreeWidget& widget) : Joined(host, control, widget) {
    drawn.setHeaderHidden(true);
    drawn.setUniformRowHeights(true);
    drawn.setExpandsOnDoubleClick(false);
    // By rows the toolkit takes a node's place below its parent for its place in the whole tree.
    drawn.setSelectionBehavior(QAbstractItemView::SelectItems);
    connect(&drawn, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) { expand(item, true); });
    connect(&drawn, &QTreeWidget::itemCollapsed, this, [this](QTreeWidgetItem* item) { expand(item, false); });
    // A press on another node has been told when the current node changed; the click tells a press on the same one.
    // A tree that gets the keyboard makes its first node the current one by itself, without selecting it.
    connect(&drawn, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
      if (!item || !item->isSelected()) return;
      if (!pressed_) return moved(item);
      clicked(told_ = item);
    });
    connect(&drawn, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
      if (std::exchange(told_, nullptr) != item) clicked(item);
    });
    // Told behind the change: mouse and keys select a node, and then it is the current one, too.
    connect(&drawn, &QTreeWidget::itemSelectionChanged, this, &TreeViewAdapter::chooseMarked, Qt::QueuedConnection);
  }

 protected:
  bool clicksByMouse() const override { return false; }

  bool mousePress(const QMouseEvent& event) override {
    told_ = nullptr;
    pressed_ = true;
    return Joined::mousePress(event);
  }

  bool mouseRelease(const QMouseEvent& event) override {
    pressed_ = false;
    return Joined::mouseRelease(event);
  }

  void updateOwn() override {
    const int scrolled = drawn.verticalScrollBar()->value();
    const bool rebuilt = !drawnVersion_ || *drawnVersion_ != self.version();
    if (rebuilt) rebuild();
    for (const auto& [node, item] : items_)
      if (item->isExpanded() != node->Expanded) item->setExpanded(node->Expanded);
    const auto selected = items_.find(self.selected());
    QTreeWidgetItem* wanted = selected == items_.end() ? nullptr : selected->second;
    if (drawn.currentItem() != wanted) drawn.setCurrentItem(wanted);
    if (rebuilt) {
      drawn.doItemsLayout();  // the scroll bar has no range before
      drawn.verticalScrollBar()->setValue(scrolled);
    }
    if (std::exchange(shownNode_, self.selected()) != self.selected() && wanted) drawn.scrollToItem(wanted);
  }

 private:
  void rebuild() {
    drawnVersion_ = self.version();
    items_.clear();
    told_ = nullptr;
    drawn.clear();
    for (const auto& root : self.roots())
      addNode(*root, drawn.invisibleRootItem());
  }

  void addNode(controls::TreeNode& node, QTreeWidgetItem* parent) {
    auto* item = new QTreeWidgetItem(parent, {toShown(node.Text)});
    item->setIcon(0, iconNamed(node.Icon));
    item->setData(0, Qt::UserRole, QVariant::fromValue(static_cast<void*>(&node)));
    items_[&node] = item;
    for (const auto& child : node.children)
      addNode(*child, item);
  }

  // Does `act` with the node of the item, unless the tree has changed since it was drawn: the node may be gone.
  template <class Act>
  void withNode(const QTreeWidgetItem* item, Act act) {
    if (updating() || !item || drawnVersion_ != self.version()) return;
    auto* node = static_cast<controls::TreeNode*>(item->data(0, Qt::UserRole).value<void*>());
    host().fromUser([this, node, act, version = self.version()] {
      if (version == self.version()) act(*node);
    });
  }

  void expand(const QTreeWidgetItem* item, bool expanded) {
    withNode(item, [this, expanded](controls::TreeNode& node) { self.expandFromUser(node, expanded); });
  }

  void clicked(const QTreeWidgetItem* item) {
    withNode(item, [this](controls::TreeNode& node) { self.clickFromUser(node); });
  }

  /// Assistive technology selects a node where a user clicks it.
  void chooseMarked() {
    const QList<QTreeWidgetItem*> marked = drawn.selectedItems();
    if (abandoned() || marked.isEmpty() || marked.front() == drawn.currentItem()) return;
    {
      const QSignalBlocker quiet(drawn);
      drawn.setCurrentItem(marked.front());
    }
    clicked(marked.front());
  }

  void moved(const QTreeWidgetItem* item) {
    withNode(item, [this](controls::TreeNode& node) { self.moveFromUser(node); });
  }

  std::map<controls::TreeNode*, QTreeWidgetItem*> items_;
  std::optional<unsigned> drawnVersion_;
  QTreeWidgetItem* told_ = nullptr;
  bool pressed_ = false;                           ///< a mouse button is down on the tree
  const controls::TreeNode* shownNode_ = nullptr;  ///< selected when last drawn; may be gone
};

}  // namespace

std::unique_ptr<Adapter> joinTreeView(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<TreeViewAdapter>(host, control, widget);
}

}  // namespace varnholt::qt
