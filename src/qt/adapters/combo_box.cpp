#include "controls/standard.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/icons.hpp"
#include "qt/text.hpp"

#include <QComboBox>
#include <QLineEdit>

namespace varnholt::qt {
namespace {

class ComboBoxAdapter : public Joined<controls::ComboBox, QComboBox> {
 public:
  ComboBoxAdapter(Host& host, controls::ComboBox& control, QComboBox& widget) : Joined(host, control, widget) {
    drawn.setInsertPolicy(QComboBox::NoInsert);
    connect(&drawn, &QComboBox::activated, this,
            [this](int index) { this->host().fromUser([this, index] { self.chooseFromUser(index); }); });
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
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
    if (self.Items.get() != items_) showItems();
    const QString text = toShown(self.Text.get());
    // Setting what stands there already would move the cursor of a user who types.
    if (drawn.isEditable() && text == drawn.currentText()) return;
    if (drawn.currentIndex() != self.ListIndex) drawn.setCurrentIndex(self.ListIndex);
    if (!drawn.isEditable()) return;
    drawn.setEditText(text);
    // What a user types takes the place of what the program has put there.
    drawn.lineEdit()->selectAll();
  }

 private:
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
};

}  // namespace

std::unique_ptr<Adapter> joinComboBox(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<ComboBoxAdapter>(host, control, widget);
}

}  // namespace varnholt::qt
