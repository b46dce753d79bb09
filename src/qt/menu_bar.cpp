#include "qt/menu_bar.hpp"

#include "qt/icons.hpp"
#include "qt/text.hpp"
#include "qt/theme.hpp"

#include <QHBoxLayout>
#include <QMenu>

#include <algorithm>

namespace varnholt::qt {

MenuBar::MenuBar(Host& host, QMenuBar& bar, const std::vector<controls::Control*>& controls)
    : host_(host), bar_(bar), rightEnd_(*new QWidget(&bar)) {
  auto* row = new QHBoxLayout(&rightEnd_);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  bar_.installEventFilter(this);
  rebuild(controls);
}

void MenuBar::rebuild(const std::vector<controls::Control*>& controls) {
  bar_.clear();
  qDeleteAll(bar_.findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly));
  actions_.clear();
  for (const auto& [item, button] : rightButtons_)
    delete button;
  rightButtons_.clear();
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

// A line of text rather than a menu: it is read even while there is nothing to choose behind it.
void MenuBar::showAtRightEnd(const controls::MenuItem& item, QAction& action) {
  auto* button = new QToolButton(&rightEnd_);
  button->setObjectName(toQt(item.name()));
  button->setAutoRaise(true);
  button->setToolButtonStyle(Qt::ToolButtonTextOnly);
  button->setPopupMode(QToolButton::InstantPopup);
  button->setFocusPolicy(Qt::NoFocus);
  if (action.menu()) button->setMenu(action.menu());
  connect(button, &QToolButton::clicked, &action, &QAction::trigger);
  rightEnd_.layout()->addWidget(button);
  rightButtons_[&item] = button;
}

void MenuBar::showAccent(const controls::MenuItem& item, QToolButton& button) {
  const auto color = [&](QRgb plain) { return QColor::fromRgb(item.Accented ? theme::Accent : plain); };
  QPalette colors = button.palette();
  colors.setColor(QPalette::ButtonText, color(theme::Text));
  colors.setColor(QPalette::Disabled, QPalette::ButtonText, color(theme::DimText));
  button.setPalette(colors);
  QFont font = bar_.font();
  font.setBold(item.Accented);
  button.setFont(font);
}

// Right of the headings. A line that does not fit there is cut with an ellipsis and whole in its tool tip.
void MenuBar::placeRightEnd() {
  int room = bar_.width();
  for (QAction* heading : bar_.actions())
    if (heading->isVisible()) room = std::min(room, bar_.width() - bar_.actionGeometry(heading).right() - theme::Gap);
  for (const auto& [item, button] : rightButtons_) {
    const QString line = toQt(item->Caption.get()), tip = plainToolTip(item->ToolTipText.get());
    const int frame = 2 * theme::Gap;
    const QString fitting = button->fontMetrics().elidedText(line, Qt::ElideRight, room - frame);
    button->setText(fitting);
    button->setToolTip(fitting == line ? tip : plainToolTip(item->Caption.get()));
    showAccent(*item, *button);
    button->setEnabled(item->Enabled);
    button->setVisible(item->Visible);
  }
  const int width = std::min(rightEnd_.sizeHint().width(), room);
  rightEnd_.setGeometry(bar_.width() - width, 0, width, bar_.height());
}

bool MenuBar::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Show) placeRightEnd();
  return QObject::eventFilter(watched, event);
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
  placeRightEnd();
  if (action.menu()) return;
  action.setCheckable(item.Checked);
  action.setChecked(item.Checked);
}

}  // namespace varnholt::qt
