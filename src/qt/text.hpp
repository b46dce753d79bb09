#pragma once

#include <QFontMetrics>
#include <QString>

#include <string>
#include <string_view>

/// Texts on their way between controls (UTF-8, or raw bytes of a name on disk) and widgets (UTF-16).
namespace varnholt::qt {

/// A byte that is no UTF-8 becomes a lone low surrogate (U+DC80 to U+DCFF), drawn as an unknown character, and comes
/// back as that byte from `fromQt`: a path with such a name survives being shown and edited.
QString toQt(std::string_view text);
std::string fromQt(const QString& text);

/// For texts that are only shown: the stand-in of a backslash inside a name is the backslash that the disk has.
QString toShown(std::string_view text);
/// The text that a field holds when the user has made `shown` of it: as it was before around what he has typed.
std::string typedText(std::string_view before, const QString& shown);

/// `toShown` with carriage returns as line breaks.
QString linesToQt(std::string_view text);

/// A text that is told, so that lines of `width` pixels hold all of it: paths break behind their backslashes, never
/// behind a drive, and inside a part only where that is wider than a line. The marks that this takes are invisible;
/// what assistive technology reads is the text itself.
QString breakable(const QString& text, const QFontMetrics& metrics, int width);
/// Characters of the lines that a text is usually broken in.
inline constexpr int UsualLine = 64;

/// A caption without the "&" of its mnemonic.
QString withoutMnemonic(const QString& caption);

/// A tool tip that is never taken for mark-up, whatever a file name in it looks like.
QString plainToolTip(std::string_view text);

}  // namespace varnholt::qt
