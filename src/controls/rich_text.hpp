#pragma once

#include "controls/control.hpp"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace varnholt::controls {

/// How a stretch of text looks.
struct TextFormat {
  bool bold = false, italic = false, underline = false;
  int size = DefaultSize;  ///< half points
  Color color = NoColor;   ///< NoColor: the box's own

  static constexpr int DefaultSize = 24;
  bool operator==(const TextFormat&) const = default;
};

/// Text of one look: UTF-8, without line ends.
struct TextRun {
  std::string text;
  TextFormat format;
  bool operator==(const TextRun&) const = default;
};

/// Formatted text.
struct RichText {
  using Paragraph = std::vector<TextRun>;
  std::vector<Paragraph> paragraphs;

  /// Adds to the last paragraph, to its last run where the look is the same.
  void append(std::string_view text, const TextFormat& format);
  void endParagraph() { paragraphs.emplace_back(); }
  /// The text alone, a line feed between paragraphs.
  std::string plain() const;
  static RichText of(std::string_view text);
  bool operator==(const RichText&) const = default;
};

/// What is to become of the look of the selected text.
struct FormatChange {
  std::optional<bool> bold{}, italic{}, underline{};
  std::optional<int> size{};
  std::optional<Color> color{};
};

/// Formatted text that the user writes. What he has written is fetched from the drawing side when somebody asks.
class RichTextBox : public Control {
 public:
  RichTextBox(Form& form, std::string name) : Control(form, std::move(name), Kind::RichTextBox) {}

  Property<bool> Locked{*this, false};
  Event<> Change;     ///< the user has changed the text or its look
  Event<> SelChange;  ///< another place or selection, or another look of it: SelFormat

  const RichText& Document() const;
  void setDocument(RichText document);
  /// The look at the cursor, or where the selection begins.
  const TextFormat& SelFormat() const { return selFormat_; }
  /// Changes the look of the selected text, or of what is written next.
  void format(const FormatChange& change);

  // --- For the drawing side ----------------------------------------------------------------------------------------
  std::function<RichText()> drawnDocument;
  std::function<void(const FormatChange&)> formatDrawn;
  /// Counts documents that were set.
  unsigned version() const { return version_; }
  void changedFromUser();
  void selectFromUser(const TextFormat& format);
  /// The user has made this of the text.
  void typeFromUser(RichText document);

 private:
  mutable RichText document_;
  mutable bool isStale_ = false;  ///< the drawing side has a newer one
  TextFormat selFormat_;
  unsigned version_ = 0;
};

}  // namespace varnholt::controls
