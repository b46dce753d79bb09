#include "controls/rich_text.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/text.hpp"

#include <QTextBlock>
#include <QTextEdit>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace varnholt::qt {
namespace {

using controls::FormatChange;
using controls::RichText;
using controls::TextFormat;

QColor toQt(controls::Color color) {
  return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                static_cast<int>((color >> 16) & 0xFF));
}

controls::Color fromQt(const QColor& color) {
  return static_cast<controls::Color>(color.red() | (color.green() << 8) | (color.blue() << 16));
}

void give(QTextCharFormat& drawn, const FormatChange& change) {
  if (change.bold) drawn.setFontWeight(*change.bold ? QFont::Bold : QFont::Normal);
  if (change.italic) drawn.setFontItalic(*change.italic);
  if (change.underline) drawn.setFontUnderline(*change.underline);
  if (change.size) drawn.setFontPointSize(*change.size / 2.0);
  if (change.color.value_or(controls::NoColor) != controls::NoColor) drawn.setForeground(toQt(*change.color));
}

QTextCharFormat drawnAs(const TextFormat& format) {
  QTextCharFormat drawn;
  give(drawn, {format.bold, format.italic, format.underline, format.size, format.color});
  return drawn;
}

TextFormat formatOf(const QTextCharFormat& drawn) {
  TextFormat format;
  format.bold = drawn.fontWeight() > QFont::Medium;
  format.italic = drawn.fontItalic();
  format.underline = drawn.fontUnderline();
  if (drawn.fontPointSize() > 0) format.size = static_cast<int>(std::lround(drawn.fontPointSize() * 2));
  if (drawn.foreground().style() != Qt::NoBrush) format.color = fromQt(drawn.foreground().color());
  return format;
}

/// Shows and edits formatted text. Pasted text comes without formats, and nothing is ever fetched.
class RichTextBoxAdapter : public Joined<controls::RichTextBox, QTextEdit> {
 public:
  RichTextBoxAdapter(Host& host, controls::RichTextBox& control, QTextEdit& widget) : Joined(host, control, widget) {
    drawn.setAcceptRichText(false);
    // Window and control end in any order, and neither tells the other.
    self.drawnDocument = [this, here = std::weak_ptr(here_)] { return here.expired() ? RichText() : document(); };
    self.formatDrawn = [this, here = std::weak_ptr(here_)](const FormatChange& change) {
      if (!here.expired()) format(change);
    };
    connect(&drawn, &QTextEdit::textChanged, this, [this] {
      if (updating()) return;
      this->host().fromUser([this] { self.changedFromUser(); });
    });
    connect(&drawn, &QTextEdit::currentCharFormatChanged, this, [this](const QTextCharFormat& format) {
      if (updating()) return;
      this->host().fromUser([this, now = formatOf(format)] { self.selectFromUser(now); });
    });
  }

 protected:
  // A tab is written; with a modifier it leaves the text.
  bool keyDown(controls::KeyEvent& key, const QKeyEvent& event) override {
    if (Joined::keyDown(key, event)) return true;
    const bool back = event.key() == Qt::Key_Backtab;
    if (!back && (event.key() != Qt::Key_Tab || !(event.modifiers() & Qt::ControlModifier))) return false;
    QWidget* next = &drawn;
    do {
      next = back ? next->previousInFocusChain() : next->nextInFocusChain();
    } while (next != &drawn && (!(next->focusPolicy() & Qt::TabFocus) || !next->isVisible() || !next->isEnabled()));
    next->setFocus(back ? Qt::BacktabFocusReason : Qt::TabFocusReason);
    return true;
  }

  void updateOwn() override {
    drawn.setReadOnly(self.Locked);
    if (version_ == self.version()) return;
    version_ = self.version();
    show(self.Document());
  }

 private:
  // Filled before it is shown: a document that is shown lays out anew at each insertion, seconds for a few megabytes.
  void show(const RichText& text) {
    auto* document = new QTextDocument(&drawn);
    document->setDefaultFont(drawn.font());
    document->setUndoRedoEnabled(false);
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    for (std::size_t at = 0; at < text.paragraphs.size(); ++at) {
      if (at > 0) cursor.insertBlock();
      const auto& runs = text.paragraphs[at];
      // What is typed in front of the first letter looks like it, and not like the window's labels.
      cursor.setBlockCharFormat(drawnAs(runs.empty() ? TextFormat{} : runs.front().format));
      for (const controls::TextRun& run : runs)
        cursor.insertText(qt::toQt(run.text), drawnAs(run.format));
    }
    cursor.endEditBlock();
    document->setUndoRedoEnabled(true);
    drawn.setDocument(document);
    delete std::exchange(filled_, document);
    if (document->isEmpty()) drawn.setCurrentCharFormat(drawnAs({}));
  }

  RichText document() const {
    RichText text;
    for (QTextBlock block = drawn.document()->begin(); block.isValid(); block = block.next()) {
      if (!text.paragraphs.empty()) text.endParagraph();
      text.append({}, {});
      for (auto at = block.begin(); !at.atEnd(); ++at)
        text.append(qt::fromQt(at.fragment().text()), formatOf(at.fragment().charFormat()));
    }
    return text;
  }

  void format(const FormatChange& change) {
    QTextCharFormat look;
    give(look, change);
    drawn.mergeCurrentCharFormat(look);
    if (change.color && *change.color == controls::NoColor) clearColor();
  }

  // Merging cannot take a colour away: each stretch of the selection gets its look without it.
  void clearColor() {
    const QTextCursor selection = drawn.textCursor();
    QTextCharFormat look = drawn.currentCharFormat();
    look.clearForeground();
    QTextCursor at(drawn.document());
    at.beginEditBlock();
    for (QTextBlock block = drawn.document()->findBlock(selection.selectionStart());
         block.isValid() && block.position() < selection.selectionEnd(); block = block.next()) {
      std::vector<std::pair<int, int>> stretches;
      for (auto part = block.begin(); !part.atEnd(); ++part)
        stretches.emplace_back(
            std::max(part.fragment().position(), selection.selectionStart()),
            std::min(part.fragment().position() + part.fragment().length(), selection.selectionEnd()));
      for (const auto& [from, to] : stretches) {
        if (from >= to) continue;
        at.setPosition(from + 1);  // the look of a place is that of the character before it
        QTextCharFormat part = at.charFormat();
        part.clearForeground();
        at.setPosition(from);
        at.setPosition(to, QTextCursor::KeepAnchor);
        at.setCharFormat(part);
      }
    }
    at.endEditBlock();
    if (!selection.hasSelection()) drawn.setCurrentCharFormat(look);
  }

  unsigned version_ = 0;
  QTextDocument* filled_ = nullptr;  ///< the widget's, but for the first, which is the toolkit's own
  std::shared_ptr<char> here_ = std::make_shared<char>();
};

}  // namespace

std::unique_ptr<Adapter> joinRichTextBox(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<RichTextBoxAdapter>(host, control, widget);
}

}  // namespace varnholt::qt
