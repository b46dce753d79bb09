#include "controls/rich_text.hpp"

#include <string_view>

namespace varnholt::controls {

void RichText::append(std::string_view text, const TextFormat& format) {
  if (paragraphs.empty()) paragraphs.emplace_back();
  if (text.empty()) return;
  Paragraph& last = paragraphs.back();
  if (last.empty() || !(last.back().format == format)) last.push_back({{}, format});
  last.back().text += text;
}

std::string RichText::plain() const {
  std::string text;
  for (std::size_t at = 0; at < paragraphs.size(); ++at) {
    if (at > 0) text += '\n';
    for (const TextRun& run : paragraphs[at])
      text += run.text;
  }
  return text;
}

RichText RichText::of(std::string_view text) {
  RichText made;
  while (true) {
    const auto end = text.find('\n');
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    made.append(line, {});
    if (end == std::string_view::npos) return made;
    made.endParagraph();
    text.remove_prefix(end + 1);
  }
}

const RichText& RichTextBox::Document() const {
  if (isStale_ && drawnDocument) document_ = drawnDocument();
  isStale_ = false;
  return document_;
}

void RichTextBox::setDocument(RichText document) {
  document_ = std::move(document);
  isStale_ = false;
  ++version_;
  markChanged();
}

void RichTextBox::format(const FormatChange& change) {
  if (!Locked && Enabled && formatDrawn) formatDrawn(change);
}

void RichTextBox::changedFromUser() {
  isStale_ = true;
  Change();
}

void RichTextBox::selectFromUser(const TextFormat& format) {
  selFormat_ = format;
  SelChange();
}

void RichTextBox::typeFromUser(RichText document) {
  if (Locked || !Enabled) return;
  setDocument(std::move(document));
  Change();
}

}  // namespace varnholt::controls
