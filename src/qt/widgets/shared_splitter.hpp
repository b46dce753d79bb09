#pragma once

#include <QSplitter>

namespace varnholt::qt {

/// A splitter whose parts share its room as the dynamic property "share" of each says, whenever one comes or goes or
/// the window changes its size. A list gets what its columns need, as far as that leaves room for the other part. Where
/// the user has moved the handle, these proportions are kept until a part comes or goes.
class SharedSplitter : public QSplitter {
  Q_OBJECT
 public:
  explicit SharedSplitter(QWidget* parent = nullptr);

 protected:
  void childEvent(QChildEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void share();

  bool moved_ = false;
};

}  // namespace varnholt::qt
