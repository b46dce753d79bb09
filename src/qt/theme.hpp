#pragma once

#include "controls/control.hpp"

#include <QColor>
#include <QPalette>
#include <QProxyStyle>

/// The one visual language of all windows: a dark surface, dark lists, one accent colour.
namespace varnholt::qt::theme {

/// Between a window's edge and what is in it, and between controls, in pixels.
inline constexpr int Margin = 12, Gap = 8;

inline constexpr QRgb Surface = 0xFF2A2F37;     ///< what controls stand on
inline constexpr QRgb Field = 0xFF1B1F26;       ///< text boxes and trees
inline constexpr QRgb ListBase = 0xFF11161F;    ///< rows of a list without a picture
inline constexpr QRgb HeaderBase = 0xFF232933;  ///< column headers
inline constexpr QRgb Text = 0xFFE0E0E0;
inline constexpr QRgb DimText = 0xFFA9B1BC;  ///< the panel that is not active; still 4.5:1 on every list
inline constexpr QRgb DisabledText = 0xFF8A929E;
inline constexpr QRgb Accent = 0xFF5B9BD5;
inline constexpr QRgb Selection = 0xFF2F6399;     ///< background of a selected row
inline constexpr QRgb DimSelection = 0xFF3B4656;  ///< the same in the panel that is not active
inline constexpr QRgb Outline = 0xFF4A525E;
inline constexpr QRgb FieldOutline = 0xFF6B7482;  ///< of fields and boxes, 3:1 on a surface
inline constexpr QRgb TickMark = 0xFF8CC2F2;
inline constexpr QRgb GridLine = 0xFF2A313B;
/// Rows that carry the program's own mark (Ghosted).
inline constexpr QRgb Ghost = 0xFFF0A33A;

QPalette palette();

/// A control's blue-green-red number as a colour.
QColor colorOf(controls::Color color);

/// Contrast of two colours by WCAG 2.1: 1 (none) to 21.
double contrast(const QColor& a, const QColor& b);
/// `text` lightened or darkened until it can be read on `background` (4.5:1).
QColor readable(QColor text, const QColor& background);

/// How much larger the application's font is than the one that the forms were drawn for; at least 1.
double fontScale();
/// A length that was drawn for that font, in pixels, for the font of now.
int scaled(int pixels);

/// Fusion with the margins, gaps and icon sizes of this look.
class Style : public QProxyStyle {
 public:
  Style();
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override;
};

/// Style and palette of the application.
void apply();

}  // namespace varnholt::qt::theme
