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

/// The menu bar of a main window, made from the form's menu entries. Entries that come later rebuild it.
class MenuBar : public QObject {
 public:
  MenuBar(Host& host, QMenuBar& bar, const std::vector<controls::Control*>& controls);

  /// Whether the entry is drawn already.
  bool has(const controls::MenuItem& item) const { return actions_.contains(&item); }
  void rebuild(const std::vector<controls::Control*>& controls);
  void update(const controls::MenuItem& item);
  /// Shows a menu of these entries, null for a separator, at a place on the screen.
  void popUp(const std::vector<controls::MenuItem*>& entries, const QPoint& at);
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void add(controls::MenuItem& item, QWidget& parent);
  void choose(controls::MenuItem& item);
  void showAtRightEnd(const controls::MenuItem& item, QAction& action);
  void placeRightEnd();
  void updateKeys(const controls::MenuItem& item, QAction& action);

  Host& host_;
  QMenuBar& bar_;
  std::map<const controls::MenuItem*, QAction*> actions_;
  std::map<const controls::MenuItem*, QShortcut*> shortcuts_;  ///< of entries that show keys of the panels
  QWidget& rightEnd_;                                          ///< child of the bar
  std::map<const controls::MenuItem*, QToolButton*> rightButtons_;
};

}  // namespace varnholt::qt
