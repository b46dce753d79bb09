#pragma once

#include "controls/menu.hpp"
#include "qt/adapters/adapter.hpp"

#include <QAction>
#include <QMenuBar>
#include <QPointer>
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
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void add(controls::MenuItem& item, QWidget& parent);
  void choose(controls::MenuItem& item);
  void showAtRightEnd(const controls::MenuItem& item, QAction& action);
  void placeRightEnd();
  /// What stands out is bold and in the colour of the active one.
  void showAccent(const controls::MenuItem& item, QToolButton& button);

  Host& host_;
  QMenuBar& bar_;
  std::map<const controls::MenuItem*, QAction*> actions_;
  QWidget& rightEnd_;  ///< child of the bar
  std::map<const controls::MenuItem*, QToolButton*> rightButtons_;
};

}  // namespace varnholt::qt
