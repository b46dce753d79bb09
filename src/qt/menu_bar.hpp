#pragma once

#include "controls/menu.hpp"
#include "qt/adapters/adapter.hpp"

#include <QAction>
#include <QMenuBar>
#include <QPointer>
#include <QShortcut>
#include <QToolButton>

#include <map>
#include <vector>

namespace varnholt::qt {

/// The menu bar of a main window, made from the form's menu entries. It is rebuilt when entries come or go later.
/// `controls` are the form's, and are read again then.
class MenuBar : public QObject {
 public:
  MenuBar(Host& host, QMenuBar& bar, const std::vector<controls::Control*>& controls);

  /// Whether the form's entries are those that are drawn.
  bool isComplete() const;
  void rebuild();
  /// Draws these entries anew; what else is among the controls is passed over.
  void update(const std::vector<controls::Control*>& changed);
  /// Shows a menu of these entries, null for a separator, at a place on the screen.
  void popUp(const std::vector<controls::MenuItem*>& entries, const QPoint& at);
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void add(controls::MenuItem& item, QWidget& parent);
  void choose(controls::MenuItem& item);
  void openFirst();
  void draw(const controls::MenuItem& item);
  void showAtRightEnd(const controls::MenuItem& item, QAction& action);
  void placeRightEnd();
  void updateKeys(const controls::MenuItem& item, QAction& action);
  /// An entry that its form has removed is drawn until the next turn.
  bool isThere(const controls::MenuItem& item) const;
  /// What stands out is bold and in the colour of the active one.
  void showAccent(const controls::MenuItem& item, QToolButton& button);

  Host& host_;
  const std::vector<controls::Control*>& controls_;
  QMenuBar& bar_;
  std::map<const controls::MenuItem*, QAction*> actions_;
  std::map<const controls::MenuItem*, QShortcut*> shortcuts_;  ///< of entries that show keys of the panels
  /// Stands over the bar and is its sibling: below a menu bar assistive technology sees menus alone.
  QPointer<QWidget> rightEnd_;
  std::map<const controls::MenuItem*, QToolButton*> rightButtons_;
};

}  // namespace varnholt::qt
