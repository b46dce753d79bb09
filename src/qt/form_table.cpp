#include "qt/form_table.hpp"

#include "qt/theme.hpp"
#include "qt/widgets/surface.hpp"

#include "form_rows.hpp"

#include <QLabel>
#include <QMainWindow>
#include <QSplitter>

#include <type_traits>

namespace varnholt::qt {
namespace {

template <class Ui>
constexpr Qt::WindowFlags flagsOf = {};
/// Without a frame, and known to window managers as what it is.
template <>
constexpr Qt::WindowFlags flagsOf<Ui::frmSplash> = Qt::SplashScreen | Qt::FramelessWindowHint;
/// Stands above the main window, whichever of the two is the active one.
template <>
constexpr Qt::WindowFlags flagsOf<Ui::Form9> = Qt::Tool;
template <>
constexpr Qt::WindowFlags flagsOf<Ui::Form22> = Qt::Tool;
/// The same, and it comes again where it stood.
template <>
constexpr Qt::WindowFlags flagsOf<Ui::Form47> = Qt::Tool;

/// A splitter puts each of its parts behind the one before, and assistive technology reads from the back. The handles
/// stay in front: they reach over the edges of the parts.
void orderParts(const QWidget& window) {
  for (const auto* splitter : window.findChildren<QSplitter*>()) {
    for (int part = 0; part < splitter->count(); ++part)
      splitter->widget(part)->raise();
    for (int part = 0; part < splitter->count(); ++part)
      splitter->handle(part)->raise();
  }
}

/// Letters of a size of their own were drawn beside those of the designed font, and grow with the one that is there.
void scaleLetters(const QWidget& window) {
  constexpr double PixelsAPoint = 96.0 / 72;
  for (auto* label : window.findChildren<QLabel*>()) {
    QFont font = label->font();
    if (!(font.resolveMask() & QFont::SizeResolved) || font.pointSizeF() <= 0) continue;
    font.setPixelSize(theme::scaled(static_cast<int>(font.pointSizeF() * PixelsAPoint)));
    label->setFont(font);
  }
}

/// Dialogs have the skin behind them.
template <class Ui, class Designed>
std::unique_ptr<QWidget> build() {
  auto top = std::make_unique<std::conditional_t<std::is_same_v<Designed, QDialog>, SkinDialog, Designed>>();
  Ui().setupUi(top.get());
  orderParts(*top);
  scaleLetters(*top);
  if (flagsOf<Ui>) top->setWindowFlags(flagsOf<Ui>);
  return top;
}

struct Row {
  const char* name;
  std::unique_ptr<QWidget> (*build)();
};

#define VARNHOLT_FORM(name, window) {#name, build<Ui::name, window>},
constexpr Row Forms[] = {VARNHOLT_FORMS};
#undef VARNHOLT_FORM

}  // namespace

std::unique_ptr<QWidget> buildForm(const std::string& name) {
  for (const Row& row : Forms)
    if (name == row.name) return row.build();
  return nullptr;
}

std::vector<std::string> formNames() {
  std::vector<std::string> names;
  for (const Row& row : Forms)
    names.emplace_back(row.name);
  return names;
}

}  // namespace varnholt::qt
