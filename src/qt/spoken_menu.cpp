#include "qt/spoken_menu.hpp"

#include "qt/text.hpp"

#include <QAccessible>
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

namespace varnholt::qt {
namespace {

/// An entry of a menu, or a heading of the menu bar.
class SpokenEntry : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  explicit SpokenEntry(QAction& action) : action_(&action) {}

  bool isValid() const override { return action_; }
  QObject* object() const override { return action_; }
  QWindow* window() const override {
    const QWidget* owner = this->owner();
    return owner ? owner->window()->windowHandle() : nullptr;
  }

  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(owner()); }
  int childCount() const override { return action_->menu() ? 1 : 0; }
  QAccessibleInterface* child(int index) const override {
    return index == 0 ? QAccessible::queryAccessibleInterface(action_->menu()) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return child && action_->menu() && child->object() == action_->menu() ? 0 : -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    auto* below = child(0);
    return below && below->rect().contains(x, y) ? below : nullptr;
  }

  QAccessible::Role role() const override {
    return action_->isSeparator() ? QAccessible::Separator : QAccessible::MenuItem;
  }
  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Name) return withoutMnemonic(action_->text());
    if (kind == QAccessible::Accelerator) {
      const QKeySequence key = action_->shortcut();
      return (key.isEmpty() ? QKeySequence::mnemonic(action_->text()) : key).toString(QKeySequence::NativeText);
    }
    // An entry without a tip has the beginning of its own caption as one.
    const bool hasTip =
        kind == QAccessible::Description && !withoutMnemonic(action_->text()).startsWith(action_->toolTip());
    return hasTip ? action_->toolTip() : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override {
    const QWidget* owner = this->owner();
    const auto* bar = qobject_cast<const QMenuBar*>(owner);
    const auto* menu = qobject_cast<const QMenu*>(owner);
    const QRect area = bar ? bar->actionGeometry(action_) : menu ? menu->actionGeometry(action_) : QRect();
    return owner ? area.translated(owner->mapToGlobal(QPoint())) : area;
  }
  QAccessible::State state() const override {
    const QWidget* owner = this->owner();
    const auto* bar = qobject_cast<const QMenuBar*>(owner);
    const auto* menu = qobject_cast<const QMenu*>(owner);
    QAccessible::State state;
    state.invisible = !owner || !owner->isVisible() || !action_->isVisible();
    state.focused = (bar ? bar->activeAction() : menu ? menu->activeAction() : nullptr) == action_;
    state.disabled = action_->isSeparator() || !action_->isEnabled();
    state.checkable = action_->isCheckable();
    state.checked = action_->isChecked();
    state.hasPopup = action_->menu() != nullptr;
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }
  QStringList actionNames() const override {
    if (action_->isSeparator()) return {};
    return {action_->menu() ? showMenuAction() : pressAction()};
  }
  void doAction(const QString& name) override {
    if (!action_->isEnabled() || !actionNames().contains(name)) return;
    QMenu* below = action_->menu();
    if (!below) return action_->trigger();
    if (below->isVisible()) return below->hide();
    if (auto* bar = qobject_cast<QMenuBar*>(owner())) bar->setActiveAction(action_);
    if (auto* menu = qobject_cast<QMenu*>(owner())) menu->setActiveAction(action_);
  }
  QStringList keyBindingsForAction(const QString& name) const override {
    if (name != pressAction() || action_->shortcut().isEmpty()) return {};
    return {text(QAccessible::Accelerator)};
  }

 private:
  // An entry may stand in a menu of the bar and in the one that a right click shows: the one that is seen.
  QWidget* owner() const {
    QWidget* found = nullptr;
    for (QObject* object : action_->associatedObjects()) {
      auto* widget = qobject_cast<QWidget*>(object);
      if (!qobject_cast<QMenu*>(widget) && !qobject_cast<QMenuBar*>(widget)) continue;
      if (!found || widget->isVisible()) found = widget;
    }
    return found;
  }

  QPointer<QAction> action_;
};

QAccessibleInterface* spoken(const QString& name, QObject* object) {
  auto* action = name == QLatin1String("QAction") ? qobject_cast<QAction*>(object) : nullptr;
  return action ? new SpokenEntry(*action) : nullptr;
}

}  // namespace

void speakMenuTips() { QAccessible::installFactory(spoken); }

}  // namespace varnholt::qt
