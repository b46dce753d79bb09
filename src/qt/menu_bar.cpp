#include "qt/menu_bar.hpp"

#include "qt/icons.hpp"
#include "qt/spoken_menu.hpp"
#include "qt/text.hpp"
#include "qt/theme.hpp"

#include <QHBoxLayout>
#include <QMainWindow>
#include <QMenu>

#include <algorithm>
#include <array>

namespace varnholt::qt {
namespace {

QString letterOf(const QString& caption) { return QKeySequence::mnemonic(caption).toString(); }

/// The caption with a letter marked that is not taken: the first of a word, or any.
QString marked(const QString& caption, const QStringList& taken) {
  for (const bool inside : {false, true})
    for (qsizetype at = 0; at < caption.size(); ++at) {
      const bool begins = at == 0 || !caption[at - 1].isLetterOrNumber();
      if (!caption[at].isLetterOrNumber() || begins == inside) continue;
      QString with = caption;
      with.insert(at, QLatin1Char('&'));
      if (!taken.contains(letterOf(with))) return with;
    }
  return caption;
}

/// Entries whose caption marks no letter get one, so that every entry is reached by a key.
void markLetters(const QMenu& menu) {
  QStringList taken;
  for (const QAction* entry : menu.actions())
    if (entry->isVisible()) taken += letterOf(entry->text());
  for (QAction* entry : menu.actions()) {
    if (entry->isSeparator() || !entry->isVisible() || !letterOf(entry->text()).isEmpty()) continue;
    entry->setText(marked(entry->text(), taken));
    taken += letterOf(entry->text());
  }
}

}  // namespace

MenuBar::MenuBar(Host& host, QMenuBar& bar, const std::vector<controls::Control*>& controls)
    : host_(host), controls_(controls), bar_(bar), rightEnd_(new QWidget(bar.window())) {
  auto* row = new QHBoxLayout(rightEnd_);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  // Assistive technology reads in the order of the window's parts: what stands above comes first.
  if (const auto* window = qobject_cast<QMainWindow*>(bar.window())) {
    bar_.stackUnder(window->centralWidget());
    rightEnd_->stackUnder(window->centralWidget());
  }
  bar_.setAccessibleName(QStringLiteral("Menus"));
  bar_.installEventFilter(this);
  speakMenuTips();
  // The toolkit itself knows Alt alone.
  connect(new QShortcut(Qt::Key_F10, &bar_), &QShortcut::activated, this, [this] { openFirst(); });
  rebuild();
}

void MenuBar::openFirst() {
  const auto headings = bar_.actions();
  const auto first = std::ranges::find_if(headings, [](const QAction* each) { return each->isVisible(); });
  if (first != headings.end()) bar_.setActiveAction(*first);
}

bool MenuBar::isThere(const controls::MenuItem& item) const {
  return std::ranges::find(controls_, &item) != controls_.end();
}

bool MenuBar::isComplete() const {
  std::size_t entries = 0;
  for (const controls::Control* control : controls_) {
    if (control->kind() != controls::Kind::MenuItem) continue;
    if (!actions_.contains(static_cast<const controls::MenuItem*>(control))) return false;
    ++entries;
  }
  return entries == actions_.size();
}

void MenuBar::rebuild() {
  bar_.clear();
  qDeleteAll(bar_.findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly));
  actions_.clear();
  for (const auto& [item, button] : rightButtons_)
    delete button;
  rightButtons_.clear();
  for (const auto& [item, shortcut] : shortcuts_)
    delete shortcut;
  shortcuts_.clear();
  for (controls::Control* control : controls_) {
    if (control->kind() != controls::Kind::MenuItem) continue;
    auto& item = static_cast<controls::MenuItem&>(*control);
    if (!item.parent()) add(item, bar_);
  }
  placeRightEnd();
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
    connect(menu, &QMenu::aboutToShow, this, [menu] { markLetters(*menu); });
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
  draw(item);
}

// The toolkit has flipped the check mark by itself; the handler may have decided otherwise.
void MenuBar::choose(controls::MenuItem& item) {
  host_.fromUser([this, &item] {
    if (!isThere(item)) return;
    QPointer<MenuBar> alive(this);
    item.choose();
    if (alive) update({&item});
  });
}

// A line of text rather than a menu: it is read even while there is nothing to choose behind it.
void MenuBar::showAtRightEnd(const controls::MenuItem& item, QAction& action) {
  auto* button = new QToolButton(rightEnd_);
  button->setObjectName(toQt(item.name()));
  button->setAutoRaise(true);
  button->setToolButtonStyle(Qt::ToolButtonTextOnly);
  button->setPopupMode(QToolButton::InstantPopup);
  button->setFocusPolicy(Qt::NoFocus);
  if (action.menu()) button->setMenu(action.menu());
  connect(button, &QToolButton::clicked, &action, &QAction::trigger);
  rightEnd_->layout()->addWidget(button);
  rightButtons_[&item] = button;
}

void MenuBar::showAccent(const controls::MenuItem& item, QToolButton& button) {
  const auto color = [&](QRgb plain) { return item.Accented ? theme::accent() : QColor::fromRgb(plain); };
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
    if (!isThere(*item)) continue;
    const QString line = toQt(item->Caption.get()), tip = plainToolTip(item->ToolTipText.get());
    const int frame = 2 * theme::Gap;
    showAccent(*item, *button);
    const QString fitting = button->fontMetrics().elidedText(line, Qt::ElideRight, room - frame);
    button->setText(fitting);
    button->setAccessibleName(line);
    button->setToolTip(fitting == line ? tip : plainToolTip(item->Caption.get()));
    button->setEnabled(item->Enabled);
    button->setVisible(item->Visible);
  }
  const int width = std::min(rightEnd_->sizeHint().width(), room);
  rightEnd_->setGeometry(
      QRect(bar_.mapTo(bar_.window(), QPoint(bar_.width() - width, 0)), QSize(width, bar_.height())));
}

bool MenuBar::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (type == QEvent::Resize || type == QEvent::Show || type == QEvent::PaletteChange) placeRightEnd();
  return QObject::eventFilter(watched, event);
}

// Keys of the panels are shown as the steps of one sequence that never acts here: a text that has the keyboard would
// lose them to the menu. The entry's own shortcut stands among them, and acts by itself.
void MenuBar::updateKeys(const controls::MenuItem& item, QAction& action) {
  const QKeySequence own = QKeySequence::fromString(toQt(item.Shortcut.get()), QKeySequence::PortableText);
  if (item.PanelKeys->empty()) return action.setShortcut(own);
  std::array<QKeyCombination, 4> steps;
  steps.fill(QKeyCombination::fromCombined(0));
  auto step = steps.begin();
  for (const std::string& key : item.PanelKeys.get())
    *step++ = QKeySequence::fromString(toQt(key), QKeySequence::PortableText)[0];
  if (!own.isEmpty()) *step = own[0];
  action.setShortcutContext(Qt::WidgetShortcut);
  action.setShortcut(QKeySequence(steps[0], steps[1], steps[2], steps[3]));
  if (own.isEmpty()) return;
  QShortcut*& shortcut = shortcuts_[&item];
  if (!shortcut) shortcut = new QShortcut(own, &bar_, &action, &QAction::trigger);
  shortcut->setEnabled(item.Enabled && item.Visible);
}

void MenuBar::popUp(const std::vector<controls::MenuItem*>& entries, const QPoint& at) {
  auto* menu = new QMenu(&bar_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setAccessibleName(QStringLiteral("Commands"));
  menu->setToolTipsVisible(true);
  for (const controls::MenuItem* entry : entries) {
    const auto action = actions_.find(entry);
    if (!entry) {
      menu->addSeparator();
    } else if (action != actions_.end()) {
      action->second->setShortcutVisibleInContextMenu(true);
      menu->addAction(action->second);
    }
  }
  markLetters(*menu);
  menu->popup(at);
}

// The headings and the line beside them share the bar's width, so that one place is found for all that has changed.
void MenuBar::update(const std::vector<controls::Control*>& changed) {
  bool onTheBar = false;
  for (const controls::Control* control : changed) {
    if (control->kind() != controls::Kind::MenuItem) continue;
    const auto& item = static_cast<const controls::MenuItem&>(*control);
    draw(item);
    onTheBar = onTheBar || !item.parent();
  }
  if (onTheBar) placeRightEnd();
}

void MenuBar::draw(const controls::MenuItem& item) {
  const auto found = actions_.find(&item);
  if (found == actions_.end()) return;
  QAction& action = *found->second;
  const QString caption = toQt(item.Caption.get());
  action.setSeparator(caption == QLatin1String("-"));
  if (!action.isSeparator()) action.setText(caption);
  action.setToolTip(plainToolTip(item.ToolTipText.get()));
  action.setEnabled(item.Enabled);
  action.setVisible(item.Visible);
  updateKeys(item, action);
  action.setIcon(iconNamed(item.Icon.get()));
  if (action.menu()) return action.menu()->setAccessibleName(withoutMnemonic(caption));
  action.setCheckable(item.Checked);
  action.setChecked(item.Checked);
}

}  // namespace varnholt::qt
