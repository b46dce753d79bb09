#pragma once

#include <QSplitter>

namespace varnholt::qt {

/// A splitter whose parts share its room as the dynamic property "share" of each says, whenever one comes or goes. In
/// between the user may move the handle; the proportions are kept when the window changes its size.
class SharedSplitter : public QSplitter {
  Q_OBJECT
 public:
  explicit SharedSplitter(QWidget* parent = nullptr);

 protected:
  void childEvent(QChildEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void share();
};

}  // namespace varnholt::qt
