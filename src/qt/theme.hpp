#pragma once

#include "controls/control.hpp"

#include <QColor>
#include <QPalette>
#include <QProxyStyle>

/// The one visual language of all windows: a dark surface, dark lists, one accent colour, in the tint of the skin.
namespace varnholt::qt::theme {

/// Between a window's edge and what is in it, and between controls, in pixels.
inline constexpr int Margin = 12, Gap = 8;

inline constexpr QRgb Text = 0xFFE0E0E0;
inline constexpr QRgb DimText = 0xFFA9B1BC;  ///< the panel that is not active; still 4.5:1 on every list
inline constexpr QRgb DisabledText = 0xFF8A929E;
/// Rows that carry the program's own mark (Ghosted).
inline constexpr QRgb Ghost = 0xFFF0A33A;

/// What a skin changes. All other colours of surfaces and lists follow these three.
struct Tint {
  QColor accent{0x5B, 0x9B, 0xD5};
  QColor surface{0x2A, 0x2F, 0x37};  ///< what controls stand on
  QColor ground{0x11, 0x16, 0x1F};   ///< rows of a list without a picture or colour of its own
  bool operator==(const Tint&) const = default;
};

/// Takes the tint for everything that is drawn from here on; true: it is another than before.
bool wear(const Tint& tint);

QColor accent();
QColor surface();
QColor field();         ///< text boxes and trees
QColor listBase();      ///< rows of a list without a picture
QColor headerBase();    ///< column headers
QColor selection();     ///< background of a selected row
QColor dimSelection();  ///< the same in the panel that is not active
QColor outline();
QColor fieldOutline();  ///< of fields and boxes, 3:1 on a surface
QColor tickMark();
QColor gridLine();

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
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override;
  QIcon standardIcon(StandardPixmap name, const QStyleOption* option, const QWidget* widget) const override;
};

/// Style and palette of the application.
void apply();
/// The palette alone, after another tint was taken.
void applyPalette();

}  // namespace varnholt::qt::theme
