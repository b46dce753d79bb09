#include "qt/theme.hpp"

#include "qt/icons.hpp"

#include <QApplication>
#include <QFontInfo>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace varnholt::qt::theme {
namespace {

constexpr double ReadableContrast = 4.5, SelectionContrast = 5, OutlineContrast = 3;
// A large area of an accent that is livelier than this would outshine the texts.
constexpr double CalmSaturation = 0.6;
// Size of the font for which the forms were drawn, in pixels: the toolkit's own default.
constexpr double DesignedPixelSize = 12;
constexpr int SmallestButton = 84, TipPadding = 4, BoxIconGap = 4;

// Relative luminance by WCAG 2.1.
double luminance(const QColor& color) {
  const auto channel = [](double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * channel(color.redF()) + 0.7152 * channel(color.greenF()) + 0.0722 * channel(color.blueF());
}

QColor blend(const QColor& from, const QColor& to, double share) {
  const auto mixed = [share](float a, float b) { return static_cast<float>(a + (b - a) * share); };
  return QColor::fromRgbF(mixed(from.redF(), to.redF()), mixed(from.greenF(), to.greenF()),
                          mixed(from.blueF(), to.blueF()));
}

// The colours were chosen on this one; what stands on another surface is as much lighter or darker there.
const Tint Designed;
Tint worn;

// `color`, which was chosen beside `from`, beside `to`: the difference in lightness stays, the hue is the other's.
QColor moved(QRgb color, const QColor& from, const QColor& to) {
  const QColor designed = QColor::fromRgb(color);
  if (from == to) return designed;
  const float saturation = designed.hslSaturationF() * to.hslSaturationF() / from.hslSaturationF();
  const float lightness = designed.lightnessF() + to.lightnessF() - from.lightnessF();
  const QColor there =
      QColor::fromHslF(std::max(0.0F, to.hslHueF()), std::min(1.0F, saturation), std::clamp(lightness, 0.0F, 1.0F));
  return QColor::fromRgb(there.rgb());
}

QColor onSurface(QRgb color) { return moved(color, Designed.surface, worn.surface); }
QColor onGround(QRgb color) { return moved(color, Designed.ground, worn.ground); }

// The accent as a background of white text.
QColor behindWhite(double share, float lightness) {
  QColor color = QColor::fromHslF(
      std::max(0.0F, worn.accent.hslHueF()),
      static_cast<float>(std::min<double>(worn.accent.hslSaturationF(), CalmSaturation) * share), lightness);
  while (contrast(color, Qt::white) < SelectionContrast)
    color = color.darker(105);
  return QColor::fromRgb(color.rgb());
}

}  // namespace

bool wear(const Tint& tint) {
  if (worn == tint) return false;
  worn = tint;
  return true;
}

QColor accent() { return worn.accent; }
QColor surface() { return worn.surface; }
QColor listBase() { return worn.ground; }
QColor field() { return onSurface(0xFF1B1F26); }
QColor headerBase() { return onSurface(0xFF232933); }
QColor outline() { return onSurface(0xFF4A525E); }
QColor fieldOutline() {
  QColor color = onSurface(0xFF6B7482);
  while (contrast(color, surface()) < OutlineContrast)
    color = color.lighter(103);
  return color;
}
QColor gridLine() { return onGround(0xFF2A313B); }
QColor selection() { return behindWhite(0.9, 0.39F); }
QColor dimSelection() { return behindWhite(0.32, 0.28F); }
QColor tickMark() { return worn.accent.lighter(125); }

QPalette palette() {
  QPalette colors;
  const auto all = [&](QPalette::ColorRole role, const QColor& color) { colors.setColor(role, color); };
  all(QPalette::Window, surface());
  all(QPalette::WindowText, QColor::fromRgb(Text));
  all(QPalette::Base, field());
  all(QPalette::AlternateBase, onSurface(0xFF20252D));
  all(QPalette::Text, QColor::fromRgb(Text));
  all(QPalette::Button, onSurface(0xFF39404A));
  all(QPalette::ButtonText, QColor::fromRgb(0xFFE8EAED));
  all(QPalette::BrightText, QColor::fromRgb(0xFFFFFFFF));
  all(QPalette::Light, onSurface(0xFF4A525E));
  all(QPalette::Midlight, onSurface(0xFF414853));
  all(QPalette::Mid, onSurface(0xFF21252B));
  all(QPalette::Dark, onSurface(0xFF171A1F));
  all(QPalette::Shadow, onSurface(0xFF0C0E11));
  all(QPalette::Highlight, selection());
  all(QPalette::HighlightedText, QColor::fromRgb(0xFFFFFFFF));
  all(QPalette::Link, QColor::fromRgb(0xFF7DB7E8));
  all(QPalette::LinkVisited, QColor::fromRgb(0xFFB7A5E0));
  all(QPalette::ToolTipBase, onSurface(0xFF3A414C));
  all(QPalette::ToolTipText, QColor::fromRgb(0xFFF0F0F0));
  all(QPalette::PlaceholderText, QColor::fromRgb(0xFF9AA3AE));
  QColor disabled = QColor::fromRgb(DisabledText);
  while (contrast(disabled, colors.color(QPalette::Button)) < OutlineContrast)
    disabled = disabled.lighter(103);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
    colors.setColor(QPalette::Disabled, role, disabled);
  colors.setColor(QPalette::Disabled, QPalette::Highlight, outline());
  // A field that takes nothing is no hollow to type into.
  colors.setColor(QPalette::Disabled, QPalette::Base, surface());
  return colors;
}

QColor colorOf(controls::Color color) {
  return QColor(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                static_cast<int>(color >> 16 & 0xFF));
}

double contrast(const QColor& a, const QColor& b) {
  const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

QColor readable(QColor text, const QColor& background) {
  const QColor toward = contrast(Qt::white, background) >= contrast(Qt::black, background) ? Qt::white : Qt::black;
  const QColor wanted = text;
  for (double share = 0.05; contrast(text, background) < ReadableContrast && share <= 1.0; share += 0.05)
    text = blend(wanted, toward, share);
  return text;
}

// In pixels: a desktop may ask for larger letters by its resolution as well as by the size of its font.
double fontScale() { return std::max(1.0, QFontInfo(QApplication::font()).pixelSize() / DesignedPixelSize); }

int scaled(int pixels) { return static_cast<int>(std::lround(pixels * fontScale())); }

Style::Style() : QProxyStyle(QStringLiteral("Fusion")) {}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
  case PM_LayoutLeftMargin:
  case PM_LayoutTopMargin:
  case PM_LayoutRightMargin:
  case PM_LayoutBottomMargin:
    return Margin;
  case PM_LayoutHorizontalSpacing:
  case PM_LayoutVerticalSpacing:
  case PM_SplitterWidth:
    return Gap;
  case PM_IndicatorWidth:
  case PM_IndicatorHeight:
    return scaled(14);
  case PM_SmallIconSize:
  case PM_ListViewIconSize:
  case PM_ButtonIconSize:
    return scaled(16);
  case PM_ToolBarIconSize:
    return scaled(20);
  case PM_ToolTipLabelFrameWidth:
    return TipPadding;
  case PM_MessageBoxIconSize:
  case PM_LargeIconSize:
    return scaled(32);
  default:
    return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

namespace {

// Boxes and fields are outlined: on a dark surface a darker area alone is hard to see. With the keyboard the line is
// thicker, for many accents are as light as the usual one.
void drawOutlined(QPainter& painter, const QRect& area, const QStyleOption& option, const QBrush& inside) {
  const bool focused = option.state.testFlag(QStyle::State_HasFocus);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  const double width = focused ? 2 : 1, middle = width / 2;
  painter.setPen(QPen(!enabled ? outline() : focused ? accent() : fieldOutline(), width));
  painter.setBrush(inside);
  painter.drawRoundedRect(QRectF(area).adjusted(middle, middle, -middle, -middle), 2, 2);
}

// The style's own is a shade that is hard to see on dark. It shows as soon as a key has moved the keyboard.
void drawFocus(QPainter& painter, const QStyleOption& option) {
  if (!option.state.testFlag(QStyle::State_KeyboardFocusChange)) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(accent());
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
  painter.restore();
}

// The button that Enter presses looks like the default one: that with the keyboard, before the one of the form.
QStyleOptionButton pressedByEnter(const QStyleOptionButton& button, const QWidget* widget) {
  QStyleOptionButton shown = button;
  const auto* focused = widget ? qobject_cast<const QPushButton*>(widget->window()->focusWidget()) : nullptr;
  if (focused) shown.features.setFlag(QStyleOptionButton::DefaultButton, focused == widget);
  return shown;
}

void drawTip(QPainter& painter, const QStyleOption& option) {
  painter.save();
  painter.setPen(fieldOutline());
  painter.setBrush(option.palette.toolTipBase());
  painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
  painter.restore();
}

void drawTick(QPainter& painter, const QRectF& box, bool enabled) {
  const auto at = [&](double x, double y) {
    return QPointF(box.left() + box.width() * x, box.top() + box.height() * y);
  };
  painter.setPen(QPen(enabled ? tickMark() : QColor::fromRgb(DisabledText), box.width() / 7));
  painter.drawPolyline(QPolygonF{at(0.22, 0.52), at(0.42, 0.72), at(0.78, 0.28)});
}

}  // namespace

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  if (element == PE_FrameFocusRect) return drawFocus(*painter, *option);
  if (element == PE_PanelTipLabel) return drawTip(*painter, *option);
  // Texts and trees that are only read have no other sign that they have the keyboard.
  if (element == PE_Frame && option->state.testFlag(State_HasFocus)) {
    painter->save();
    painter->setPen(accent());
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
    return;
  }
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (element == PE_PanelButtonCommand && button) {
    const QStyleOptionButton shown = pressedByEnter(*button, widget);
    QProxyStyle::drawPrimitive(element, &shown, painter, widget);
    if (shown.state.testFlag(State_HasFocus)) drawFocus(*painter, shown);
    return;
  }
  const bool box = element == PE_IndicatorCheckBox, field = element == PE_FrameLineEdit;
  if (!box && !field) return QProxyStyle::drawPrimitive(element, option, painter, widget);
  painter->save();
  drawOutlined(*painter, option->rect, *option, box ? option->palette.base() : QBrush(Qt::NoBrush));
  if (box && option->state.testFlag(State_On)) drawTick(*painter, option->rect, option->state.testFlag(State_Enabled));
  painter->restore();
}

namespace {

// A bar with round ends, along its longer side. The toolkit would hand out the lines of one large path to other threads
// and wait for them, longer than it takes to draw it.
void drawBar(QPainter& painter, const QRect& area, const QColor& color) {
  const int width = std::min(area.width(), area.height());
  const QPoint toLastEnd(area.width() - width, area.height() - width);
  const QRect end(area.topLeft(), QSize(width, width));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawEllipse(end);
  painter.drawEllipse(end.translated(toLastEnd));
  const int round = width / 2;
  painter.fillRect(
      area.width() > area.height() ? area.adjusted(round, 0, -round, 0) : area.adjusted(0, round, 0, -round), color);
}

// An arrow at an end of a scroll bar, dim where there is nothing more.
void drawArrow(const QStyle& style, QStyle::PrimitiveElement arrow, const QStyleOption& bar, const QRect& button,
               bool more, QPainter& painter, const QWidget* widget) {
  QStyleOption option = bar;
  const int side = std::min(button.width(), button.height()) / 2;
  option.rect = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, {side, side}, button);
  if (!more) option.palette.setCurrentColorGroup(QPalette::Disabled);
  style.drawPrimitive(arrow, &option, &painter, widget);
}

}  // namespace

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control != CC_ScrollBar || !bar) return QProxyStyle::drawComplexControl(control, option, painter, widget);
  const auto part = [&](SubControl which) { return subControlRect(control, bar, which, widget); };
  painter->save();
  painter->fillRect(bar->rect, bar->palette.mid());
  const bool upright = bar->orientation == Qt::Vertical;
  drawArrow(*this, upright ? PE_IndicatorArrowUp : PE_IndicatorArrowLeft, *bar, part(SC_ScrollBarSubLine),
            bar->sliderValue > bar->minimum, *painter, widget);
  drawArrow(*this, upright ? PE_IndicatorArrowDown : PE_IndicatorArrowRight, *bar, part(SC_ScrollBarAddLine),
            bar->sliderValue < bar->maximum, *painter, widget);
  if (bar->minimum < bar->maximum) {
    const bool touched = bar->activeSubControls.testFlag(SC_ScrollBarSlider);
    const QColor color = !bar->state.testFlag(State_Enabled)            ? outline()
                         : touched && bar->state.testFlag(State_Sunken) ? accent()
                                                                        : fieldOutline();
    drawBar(*painter, part(SC_ScrollBarSlider).adjusted(3, 3, -3, -3),
            touched && bar->state.testFlag(State_MouseOver) ? color.lighter(125) : color);
  }
  painter->restore();
}

// A path for which a box has no room is cut in the middle: its end tells most.
void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
  const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
  if (element != CE_ComboBoxLabel || !box) return QProxyStyle::drawControl(element, option, painter, widget);
  QStyleOptionComboBox shown = *box;
  const int icon = box->currentIcon.isNull() ? 0 : box->iconSize.width() + BoxIconGap;
  const int room = subControlRect(CC_ComboBox, box, SC_ComboBoxEditField, widget).width() - icon - 2;
  shown.currentText = box->fontMetrics.elidedText(box->currentText, Qt::ElideMiddle, room);
  QProxyStyle::drawControl(element, &shown, painter, widget);
}

// Push buttons are large enough to hit, and their captions do not touch the edge.
QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                              const QWidget* widget) const {
  const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
  if (type != CT_PushButton) return size;
  return {std::max(SmallestButton, contents.width() + scaled(4 * Gap)), size.height()};
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const {
  // The application's own text is plain everywhere; nothing moves by itself.
  if (hint == SH_Widget_Animation_Duration || hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  if (hint == SH_MessageBox_TextInteractionFlags) return Qt::NoTextInteraction;
  return QProxyStyle::styleHint(hint, option, widget, data);
}

// Each menu bar asks for the style's own at once; the first such picture makes the toolkit load all its readers of
// pictures.
QIcon Style::standardIcon(StandardPixmap name, const QStyleOption* option, const QWidget* widget) const {
  if (name == SP_ToolBarHorizontalExtensionButton) return iconNamed("more");
  return QProxyStyle::standardIcon(name, option, widget);
}

void apply() {
  QApplication::setStyle(new Style);
  applyPalette();
}

void applyPalette() {
  QApplication::setPalette(palette());
  QToolTip::setPalette(palette());
}

}  // namespace varnholt::qt::theme
