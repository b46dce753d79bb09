#include "qt/message_box.hpp"

#include "qt/icons.hpp"
#include "qt/text.hpp"

#include <QLabel>
#include <QMessageBox>
#include <QStyle>
#include <QWindow>

namespace varnholt::qt {
namespace {

using controls::MessageAnswer;
using controls::MessageButtons;
using controls::MessageIcon;

const char* iconOf(MessageIcon icon) {
  switch (icon) {
  case MessageIcon::None:
    return "";
  case MessageIcon::Information:
    return "info";
  case MessageIcon::Question:
    return "question";
  case MessageIcon::Exclamation:
    return "warning";
  case MessageIcon::Critical:
    return "error";
  }
  return "";
}

void addButtons(QMessageBox& drawn, const controls::MessageBox& box) {
  const bool warns = box.icon == MessageIcon::Critical || box.icon == MessageIcon::Exclamation;
  switch (box.buttons) {
  case MessageButtons::Ok:
    drawn.setStandardButtons(QMessageBox::Ok);
    return;
  case MessageButtons::OkCancel:
    drawn.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
    drawn.setDefaultButton(warns ? QMessageBox::Cancel : QMessageBox::Ok);
    drawn.setEscapeButton(QMessageBox::Cancel);
    return;
  case MessageButtons::YesNo:
    drawn.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    drawn.setDefaultButton(warns ? QMessageBox::No : QMessageBox::Yes);
    drawn.setEscapeButton(QMessageBox::No);
    return;
  }
}

MessageAnswer answerOf(int button, MessageButtons buttons) {
  switch (button) {
  case QMessageBox::Ok:
    return MessageAnswer::Ok;
  case QMessageBox::Yes:
    return MessageAnswer::Yes;
  case QMessageBox::No:
    return MessageAnswer::No;
  default:
    return buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Cancel;
  }
}

void tell(QMessageBox& drawn, const QString& text) {
  const QFontMetrics metrics = drawn.fontMetrics();
  drawn.setText(breakable(text, metrics, metrics.averageCharWidth() * UsualLine));
  if (auto* label = drawn.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) label->setAccessibleName(text);
}

void standOn(QMessageBox& drawn, const QWidget* caller) {
  drawn.winId();
  if (!caller) return;
  drawn.windowHandle()->setTransientParent(caller->window()->windowHandle());
  drawn.adjustSize();
  QRect place(QPoint(), drawn.sizeHint());
  place.moveCenter(caller->frameGeometry().center());
  drawn.move(place.topLeft());
}

}  // namespace

MessageAnswer showMessageBox(const controls::MessageBox& box, const QWidget* caller,
                             const std::function<void(QDialog&)>& opening) {
  // No child of the caller, which may go away while the box is open.
  QMessageBox drawn;
  drawn.setObjectName(QStringLiteral("MessageBox"));
  drawn.setTextFormat(Qt::PlainText);
  drawn.setWindowTitle(toQt(box.title));
  tell(drawn, linesToQt(box.text));
  const int side = drawn.style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
  if (const char* icon = iconOf(box.icon); *icon) drawn.setIconPixmap(iconNamed(icon).pixmap(side, side));
  addButtons(drawn, box);
  standOn(drawn, caller);
  if (opening) opening(drawn);
  return answerOf(drawn.exec(), box.buttons);
}

}  // namespace varnholt::qt
