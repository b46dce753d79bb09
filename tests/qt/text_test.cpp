#include "qt/input.hpp"
#include "qt/text.hpp"
#include "qt/theme.hpp"
#include "support/testing.hpp"

#include <QComboBox>
#include <QTextLayout>

namespace varnholt::qt {
namespace {

TEST(Text, NamesSurviveBeingShownAndEditedAndTextsAreShownAsTheyRead) {
  for (const std::string& name :
       {std::string("plain.txt"), std::string("Größe – 測試 😀.txt"), std::string("caf\xE9.txt"),
        std::string("\xFF\xFE"), std::string("\xC3"), std::string("a\xE2\x82z"), std::string()})
    EXPECT_EQ(fromQt(toQt(name)), name);
  EXPECT_TRUE(toQt("Größe \xFF").startsWith(QStringLiteral("Größe "))) << "beside broken characters";
  EXPECT_EQ(linesToQt("a\rb\r\nc"), QStringLiteral("a\nb\nc"));
  for (const auto& [text, shown] : {std::pair{"&Cancel", "Cancel"}, {"Move &As", "Move As"}, {"A && B", "A & B"}})
    EXPECT_EQ(withoutMnemonic(QLatin1String(text)), QLatin1String(shown));
  EXPECT_FALSE(plainToolTip("<b>report</b>.txt").contains(QStringLiteral("<b>")));
  EXPECT_EQ(plainToolTip("Move Selected Items (Ctrl+X)"), QStringLiteral("Move Selected Items (Ctrl+X)"));
}

TEST(Text, ABackslashInANameIsDrawnAsOne) {
  EXPECT_EQ(toShown("a\xEF\x81\x9C"
                    "b.txt"),
            QStringLiteral("a\\b.txt"));
  EXPECT_EQ(toShown("\xEF\x80\x9B\xEF\x81\x9C"), QStringLiteral("\uF01B\uF05C")) << "that sign itself";
  const std::string inside = "\xEF\x81\x9C", name = "a" + inside + "b.txt";
  for (const auto& [shown, text] : {std::pair{QStringLiteral("a\\b.txt"), name},
                                    {QStringLiteral("xa\\b.txt"), "x" + name},
                                    {QStringLiteral("a\\b2.txt"), "a" + inside + "b2.txt"},
                                    {QStringLiteral("a\\\\b.txt"), "a" + inside + "\\b.txt"},
                                    {QStringLiteral("\\"), "\\"},
                                    {QString(), ""}})
    EXPECT_EQ(typedText(name, shown), text) << qPrintable(shown);
}

TEST(Input, KeysHaveTheNumbersThatHandlersKnow) {
  const auto codeOf = [](int key, Qt::KeyboardModifiers modifiers) {
    return keyOf(QKeyEvent(QEvent::KeyPress, key, modifiers)).code;
  };
  const std::pair<int, int> plain[] = {{Qt::Key_Return, 13}, {Qt::Key_Escape, 27}, {Qt::Key_Control, 17},
                                       {Qt::Key_Left, 37},   {Qt::Key_Q, 81},      {Qt::Key_F2, 113},
                                       {Qt::Key_F12, 123},   {Qt::Key_Plus, 107},  {Qt::Key_Slash, 0}};
  for (const auto& [key, code] : plain)
    EXPECT_EQ(codeOf(key, {}), code) << key;
  for (const auto& [key, code] : {std::pair<int, int>{Qt::Key_Enter, 13}, {Qt::Key_5, 101}, {Qt::Key_Plus, 107}})
    EXPECT_EQ(codeOf(key, Qt::KeypadModifier), code) << key;
}

/// The lines in which a label of that width, in characters, shows a text.
QStringList linesOf(const std::string& text, int characters) {
  const QFont font(QStringLiteral("monospace"));
  const int width = QFontMetrics(font).horizontalAdvance(QLatin1Char('n')) * characters + 1;
  QTextLayout layout(breakable(toQt(text), QFontMetrics(font), width), font);
  QStringList lines;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    QString shown = layout.text().mid(line.textStart(), line.textLength());
    EXPECT_LE(line.naturalTextWidth(), width) << qPrintable(shown);
    for (const QChar mark : {QChar(0x200B), QChar(0x2060)})
      shown.remove(mark);
    lines += shown.replace(QChar::Nbsp, QLatin1Char(' ')).trimmed();
  }
  layout.endLayout();
  return lines;
}

TEST(Texts, PathsBreakBehindBackslashesNeverBehindADriveAndInsideAPartOnlyWhenALineIsTooShort) {
  const std::tuple<const char*, int, QStringList> rows[] = {
      {"Settings moved to T:\\settings.db.damaged-1", 24, {"Settings moved to", "T:\\settings.db.damaged-1"}},
      {"C:\\My photos\\Coast, week 2\\a.jpg", 20, {"C:\\My photos\\", "Coast, week 2\\a.jpg"}},
      {"C:\\nnnnnnnnnnnnnnnnnn\\b", 10, {"C:\\nnnnnnn", "nnnnnnnnnn", "n\\b"}},
      {"Name: nnnnnnnnnnnnnnn ?", 10, {"Name: nnnn", "nnnnnnnnnn", "n ?"}},
      {"two words", 10, {"two words"}}};
  for (const auto& [text, width, lines] : rows)
    EXPECT_EQ(linesOf(text, width), lines) << text << ": " << qPrintable(linesOf(text, width).join(QLatin1Char('|')));
}

TEST(Theme, ABoxShowsTheEndOfAPathForWhichItHasNoRoom) {
  QComboBox box;
  const QString folder = QStringLiteral("C:\\Pictures of the coast, second week\\");
  box.addItems({folder + QStringLiteral("morning"), folder + QStringLiteral("evening")});
  box.resize(120, 24);
  const QImage first = box.grab().toImage();
  box.setCurrentIndex(1);
  EXPECT_NE(box.grab().toImage(), first);
}

TEST(Theme, MarksOfRowsAreLightenedUntilTheyCanBeRead) {
  const controls::Color marks[] = {0x00FF00, 0x00FFFF, 0x0000FF, 0xFFFF00, 0x0080FF};  // blue-green-red
  for (const controls::Color mark : marks)
    for (const QColor& surface : {theme::listBase(), theme::selection()})
      EXPECT_GE(theme::contrast(theme::readable(theme::colorOf(mark), surface), surface), 4.5);
  EXPECT_EQ(theme::colorOf(0x0000FF), QColor(255, 0, 0));
  EXPECT_EQ(theme::readable(QColor(0, 255, 0), theme::listBase()), QColor(0, 255, 0));
}

}  // namespace
}  // namespace varnholt::qt
