#include "controls/standard.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/icons.hpp"
#include "qt/text.hpp"

#include <QAbstractItemView>
#include <QComboBox>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QPointer>

namespace varnholt::qt {
namespace {

class ComboBoxAdapter : public Joined<controls::ComboBox, QComboBox> {
 public:
  ComboBoxAdapter(Host& host, controls::ComboBox& control, QComboBox& widget) : Joined(host, control, widget) {
    drawn.setInsertPolicy(QComboBox::NoInsert);
    connect(&drawn, &QComboBox::activated, this,
            [this](int index) { this->host().fromUser([this, index] { self.chooseFromUser(index); }); });
    watchList();
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    // The box makes its list when somebody first asks for it; what comes here is not whole yet.
    if (watched == &drawn && event->type() == QEvent::ChildAdded)
      QMetaObject::invokeMethod(this, &ComboBoxAdapter::watchList, Qt::QueuedConnection);
    // A wheel that scrolls the window past a list must not choose another drive.
    if (event->type() == QEvent::Wheel && !drawn.hasFocus()) {
      event->ignore();
      return true;
    }
    // The edit field lies above the box.
    if (watched != &drawn && event->type() != QEvent::MouseButtonDblClick) return false;
    return Joined::eventFilter(watched, event);
  }

 protected:
  bool clicksByMouse() const override { return false; }

  void updateOwn() override {
    setEditable(self.Editable);
    if (QLineEdit* const field = drawn.lineEdit()) {  // which assistive technology shows as a control of its own
      if (field->accessibleName() != accessibleName()) field->setAccessibleName(accessibleName());
      field->setToolTip(drawn.toolTip());
    }
    if (self.Items.get() != items_) showItems();
    showChoice();
    markChoice();
  }

 private:
  void showChoice() {
    const QString text = toShown(self.Text.get());
    // Setting what stands there already would move the cursor of a user who types.
    if (drawn.isEditable() && text == drawn.currentText()) return;
    if (drawn.currentIndex() != self.ListIndex) drawn.setCurrentIndex(self.ListIndex);
    if (!drawn.isEditable()) return;
    drawn.setEditText(text);
    // What a user types takes the place of what the program has put there.
    drawn.lineEdit()->selectAll();
  }

  void watchList() {
    auto* const list = drawn.findChild<QAbstractItemView*>();
    if (!list || list == list_) return;
    list_ = list;
    list->setTextElideMode(Qt::ElideMiddle);
    // Told behind the change: what mouse and keys pass in an open list is marked first, and then its current item.
    connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ComboBoxAdapter::chooseMarked,
            Qt::QueuedConnection);
    markChoice();
  }

  /// The list of a closed box marks what is chosen. It has no current item, which would be called the one with the
  /// keyboard.
  void markChoice() {
    if (!list_ || list_->isVisible()) return;
    list_->selectionModel()->clearCurrentIndex();
    list_->selectionModel()->select(drawn.model()->index(drawn.currentIndex(), 0), QItemSelectionModel::ClearAndSelect);
  }

  /// Assistive technology marks an item where a user clicks it: the one thing that leaves the current item behind.
  void chooseMarked() {
    const QModelIndexList marked = list_->selectionModel()->selectedIndexes();
    if (abandoned() || marked.isEmpty() || marked.front() == list_->currentIndex()) return;
    if (marked.front().row() == drawn.currentIndex()) return;
    drawn.hidePopup();
    drawn.setCurrentIndex(marked.front().row());
    Q_EMIT drawn.activated(drawn.currentIndex());
    if (!abandoned()) update();
  }

  void setEditable(bool editable) {
    if (drawn.isEditable() == editable) return;
    drawn.setEditable(editable);
    if (!editable) return;
    drawn.setCompleter(nullptr);
    drawn.lineEdit()->installEventFilter(this);
    connect(drawn.lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) { type(text); });
    // Assistive technology sets the text, which is no edit; a text that comes with a choice is told as that choice.
    connect(drawn.lineEdit(), &QLineEdit::textChanged, this, [this](const QString& text) {
      const bool chosen = drawn.currentIndex() >= 0 && drawn.itemText(drawn.currentIndex()) == text;
      if (!updating() && !chosen && text != toShown(self.Text.get())) type(text);
    });
  }

  void type(const QString& text) {
    host().fromUser([this, text] { self.typeFromUser(typedText(self.Text.get(), text)); });
  }

  void showItems() {
    items_ = self.Items.get();
    drawn.clear();
    for (const auto& [text, icon] : items_)
      drawn.addItem(iconNamed(icon), toShown(text));
  }

  std::vector<controls::ComboBox::Item> items_;
  QPointer<QAbstractItemView> list_;
};

}  // namespace

std::unique_ptr<Adapter> joinComboBox(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<ComboBoxAdapter>(host, control, widget);
}

}  // namespace varnholt::qt
