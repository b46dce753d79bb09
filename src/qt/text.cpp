#include "qt/text.hpp"

#include "platform/paths.hpp"
#include "platform/text_character.hpp"

#include <QStringDecoder>
#include <QTextBoundaryFinder>
#include <QTextDocument>

#include <algorithm>

namespace varnholt::qt {

namespace paths = platform::paths;

namespace {

constexpr char16_t FirstByteMark = 0xDC80, LastByteMark = 0xDCFF;
QString withByteMarks(std::string_view text) {
  QString out;
  while (!text.empty()) {
    const auto [code, length] = platform::firstCharacter(text);
    out += code < platform::NotUtf8 ? QString::fromUtf8(text.data(), static_cast<qsizetype>(length))
                                    : QString(QChar(char16_t(0xDC00 + code - platform::NotUtf8)));
    text.remove_prefix(length);
  }
  return out;
}

bool isByteMark(const QString& text, qsizetype at) {
  const char16_t unit = text[at].unicode();
  return unit >= FirstByteMark && unit <= LastByteMark && (at == 0 || !text[at - 1].isHighSurrogate());
}

// Invisible: a line may end here, and may not.
constexpr QChar Break(0x200B), Glue(0x2060);

// `text` with a mark at each boundary of that kind inside of it.
QString marked(const QString& text, QTextBoundaryFinder::BoundaryType kind, QChar mark) {
  QString out;
  QTextBoundaryFinder finder(kind, text);
  qsizetype from = 0;
  while (finder.toNextBoundary() > 0 && finder.position() < text.size()) {
    out += QStringView(text).mid(from, finder.position() - from);
    out += mark;
    from = finder.position();
  }
  return out.append(QStringView(text).mid(from));
}

// Words that are wider than a line may end anywhere.
QString withLongWordsBroken(const QString& text, const QFontMetrics& metrics, int width) {
  QStringList words = text.split(QLatin1Char(' '));
  for (QString& word : words)
    if (metrics.horizontalAdvance(word) > width) word = marked(word, QTextBoundaryFinder::Grapheme, Break);
  return words.join(QLatin1Char(' '));
}

// A part of a path keeps together while a line holds it.
QString pathPart(QString part, const QFontMetrics& metrics, int width) {
  if (metrics.horizontalAdvance(part) > width) return withLongWordsBroken(part, metrics, width);
  part.replace(QLatin1Char(' '), QChar::Nbsp);
  return marked(part, QTextBoundaryFinder::Line, Glue);
}

// Where a path begins, by its drive; the end of the line: there is none.
qsizetype pathIn(const QString& line) {
  const QLatin1String drive(":\\");
  for (qsizetype colon = line.indexOf(drive); colon >= 0; colon = line.indexOf(drive, colon + 1)) {
    const int letter = colon > 0 ? line[colon - 1].unicode() | 0x20 : 0;
    if (letter >= 'a' && letter <= 'z') return colon - 1;
  }
  return line.size();
}

QString breakablePath(const QString& path, const QFontMetrics& metrics, int width) {
  constexpr qsizetype DriveLength = 3;
  const QString drive = path.first(DriveLength);
  QStringList parts = path.sliced(DriveLength).split(QLatin1Char('\\'));
  for (QString& part : parts)
    part = pathPart(part, metrics, width);
  return drive.first(2) + Glue + drive.last(1) + Glue + parts.join(QLatin1String("\\") + Break);
}

}  // namespace

QString toQt(std::string_view text) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  QString plain = decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
  return decoder.hasError() ? withByteMarks(text) : plain;
}

std::string fromQt(const QString& text) {
  std::string out;
  qsizetype from = 0;
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (!isByteMark(text, at)) continue;
    out += QStringView(text).mid(from, at - from).toUtf8().toStdString();
    out += static_cast<char>(text[at].unicode() - 0xDC00);
    from = at + 1;
  }
  return out + QStringView(text).mid(from).toUtf8().toStdString();
}

QString toShown(std::string_view text) {
  static const QChar StandIn = toQt(paths::BackslashStandIn).front(), Escape = toQt(paths::EscapeMark).front();
  QString shown = toQt(text);
  for (qsizetype at = shown.indexOf(StandIn); at >= 0; at = shown.indexOf(StandIn, at + 1))
    if (at == 0 || shown[at - 1] != Escape) shown[at] = QLatin1Char('\\');
  return shown;
}

// Characters of a text and of what is shown of it stand at the same places.
std::string typedText(std::string_view before, const QString& shown) {
  const QString old = toQt(before), oldShown = toShown(before);
  const qsizetype shorter = std::min(oldShown.size(), shown.size());
  qsizetype head = 0, tail = 0;
  while (head < shorter && oldShown[head] == shown[head])
    ++head;
  while (tail < shorter - head && oldShown[oldShown.size() - 1 - tail] == shown[shown.size() - 1 - tail])
    ++tail;
  return fromQt(old.first(head) + shown.sliced(head, shown.size() - head - tail) + old.last(tail));
}

QString linesToQt(std::string_view text) {
  QString lines = toShown(text);
  lines.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  lines.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  return lines;
}

QString breakable(const QString& text, const QFontMetrics& metrics, int width) {
  QStringList lines = text.split(QLatin1Char('\n'));
  for (QString& line : lines) {
    const qsizetype from = pathIn(line);
    const QString path = line.sliced(from);
    line = withLongWordsBroken(line.first(from), metrics, width);
    if (!path.isEmpty()) line += breakablePath(path, metrics, width);
  }
  return lines.join(QLatin1Char('\n'));
}

QString withoutMnemonic(const QString& caption) {
  QString plain;
  for (qsizetype at = 0; at < caption.size(); ++at) {
    if (caption[at] == QLatin1Char('&') && ++at == caption.size()) break;
    plain += caption[at];
  }
  return plain;
}

QString plainToolTip(std::string_view text) {
  const QString plain = linesToQt(text);
  return Qt::mightBeRichText(plain) ? plain.toHtmlEscaped() : plain;
}

}  // namespace varnholt::qt
