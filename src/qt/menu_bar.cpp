#include "qt/menu_bar.hpp"

#include "qt/icons.hpp"
#include "qt/text.hpp"

#include <QMenu>

namespace varnholt::qt {

MenuBar::MenuBar(Host& host, QMenuBar& bar, const std::vector<controls::Control*>& controls) : host_(host), bar_(bar) {
  rebuild(controls);
}

void MenuBar::rebuild(const std::vector<controls::Control*>& controls) {
  bar_.clear();
  qDeleteAll(bar_.findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly));
  actions_.clear();
  for (controls::Control* control : controls) {
    if (control->kind() != controls::Kind::MenuItem) continue;
    auto& item = static_cast<controls::MenuItem&>(*control);
    if (!item.parent()) add(item, bar_);
  }
}

// An entry with entries below it is a menu; its action is the menu's own.
void MenuBar::add(controls::MenuItem& item, QWidget& parent) {
  QAction* action = nullptr;
  if (item.children().empty()) {
    action = new QAction(&parent);
    connect(action, &QAction::triggered, this, [this, &item] { choose(item); });
  } else {
    auto* menu = new QMenu(&parent);
    menu->setObjectName(toQt(item.name()));
    menu->setToolTipsVisible(true);
    action = menu->menuAction();
    for (controls::MenuItem* child : item.children())
      add(*child, *menu);
  }
  action->setObjectName(toQt(item.name()));
  actions_[&item] = action;
  if (item.RightAligned) {
    showAtRightEnd(item, *action);
  } else {
    parent.addAction(action);
  }
  update(item);
}

// The toolkit has flipped the check mark by itself; the handler may have decided otherwise.
void MenuBar::choose(controls::MenuItem& item) {
  host_.fromUser([this, &item] {
    QPointer<MenuBar> alive(this);
    item.choose();
    if (alive) update(item);
  });
}

void MenuBar::showAtRightEnd(controls::MenuItem& item, QAction& action) {
  if (!rightEnd_) {
    rightEnd_ = new QToolButton(&bar_);
    rightEnd_->setAutoRaise(true);
    rightEnd_->setToolButtonStyle(Qt::ToolButtonTextOnly);
    rightEnd_->setPopupMode(QToolButton::InstantPopup);
    rightEnd_->setFocusPolicy(Qt::NoFocus);
    bar_.setCornerWidget(rightEnd_, Qt::TopRightCorner);
  }
  rightEnd_->setObjectName(toQt(item.name()));
  rightEnd_->setDefaultAction(&action);
}

void MenuBar::update(const controls::MenuItem& item) {
  const auto found = actions_.find(&item);
  if (found == actions_.end()) return;
  QAction& action = *found->second;
  const QString caption = toQt(item.Caption.get());
  action.setSeparator(caption == QLatin1String("-"));
  if (!action.isSeparator()) action.setText(caption);
  action.setToolTip(plainToolTip(item.ToolTipText.get()));
  action.setEnabled(item.Enabled);
  action.setVisible(item.Visible);
  action.setShortcut(QKeySequence::fromString(toQt(item.Shortcut.get()), QKeySequence::PortableText));
  action.setIcon(iconNamed(item.Icon.get()));
  if (action.menu()) return;
  action.setCheckable(item.Checked);
  action.setChecked(item.Checked);
}

}  // namespace varnholt::qt
