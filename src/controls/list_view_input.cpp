// What mouse and keyboard do to the rows of a list, as users of report lists expect it.
#include "controls/list_view.hpp"

#include "platform/text_order.hpp"

#include <algorithm>
#include <utility>

namespace varnholt::controls {
namespace {

// A letter is one byte or more: those that go on with a UTF-8 character have the bits 10 in front.
bool isOneLetter(const std::string& text) {
  return std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; }) == 1;
}

}  // namespace

void ListView::selectOnly(std::uint32_t row) {
  selectNone();
  setSelected(idAt(row), true);
}

void ListView::selectRange(std::uint32_t from, std::uint32_t to, bool keepOthers) {
  if (!keepOthers) selectNone();
  const auto [first, last] = std::minmax(from, to);
  for (std::uint32_t row = first; row <= last; ++row)
    setSelected(idAt(row), true);
}

void ListView::pressFromUser(std::optional<std::uint32_t> row, const MouseEvent& mouse) {
  SetFocus();
  MouseDown(mouse);
  onRelease_ = OnRelease::Nothing;
  pressedId_.reset();
  if (!row || *row >= count()) {
    if (!mouse.modifiers.ctrl && !mouse.modifiers.shift) selectNone();
    return;
  }
  const std::uint32_t id = idAt(*row);
  pressedId_ = id;
  const bool plain = !MultiSelect || (!mouse.modifiers.ctrl && !mouse.modifiers.shift);
  if (plain && isSelected(id)) {
    if (mouse.button == MouseButton::Left) onRelease_ = OnRelease::SelectOnly;
    focusRow(*row);
    return;
  }
  if (!plain && mouse.modifiers.shift) {
    if (!anchorId_) anchorId_ = id;
    selectRange(rowOf(*anchorId_), *row, mouse.modifiers.ctrl);
    focusedId_ = id;
    return;
  }
  if (plain) {
    selectOnly(*row);
  } else if (isSelected(id) && mouse.button == MouseButton::Left) {
    onRelease_ = OnRelease::Unselect;
  } else {
    setSelected(id, !isSelected(id));
  }
  focusRow(*row);
}

void ListView::releaseFromUser(const MouseEvent& mouse) {
  const auto pending = std::exchange(onRelease_, OnRelease::Nothing);
  if (pressedId_ && pending == OnRelease::SelectOnly) selectOnly(rowOf(*pressedId_));
  if (pressedId_ && pending == OnRelease::Unselect) setSelected(*pressedId_, false);
  if (pressedId_) rowClicked(rowOf(*pressedId_));
  mouse.button == MouseButton::Left ? Click() : KeySelect(false);
  MouseUp(mouse);
}

void ListView::doubleClickFromUser(std::optional<std::uint32_t> row) {
  if (row) DblClick();
}

void ListView::widthFromUser(int column, Twips width) {
  auto headers = ColumnHeaders.get();
  if (column < 0 || column >= static_cast<int>(headers.size())) return;
  headers[static_cast<std::size_t>(column)].Width = width;
  ColumnHeaders.takeFromUser(std::move(headers));
}

std::optional<std::uint32_t> ListView::keyTarget(int code, std::uint32_t page) const {
  if (count() == 0) return {};
  const std::uint32_t last = count() - 1;
  const auto now = focusedRow();
  const std::uint32_t step = std::max<std::uint32_t>(page, 2) - 1;
  switch (code) {
  case key::Home:
    return 0;
  case key::End:
    return last;
  case key::Up:
    return now ? (*now > 0 ? *now - 1 : 0) : 0;
  case key::Down:
    return now ? std::min(*now + 1, last) : 0;
  case key::PageUp:
    return now && *now > step ? *now - step : 0;
  case key::PageDown:
    return now ? std::min(*now + step, last) : std::min(step, last);
  }
  return {};
}

void ListView::moveFocusTo(std::uint32_t row, const Modifiers& modifiers) {
  const std::uint32_t id = idAt(row);
  if (MultiSelect && modifiers.shift) {
    if (!anchorId_) anchorId_ = id;
    selectRange(rowOf(*anchorId_), row, modifiers.ctrl);
    focusedId_ = id;
    markChanged();
  } else if (MultiSelect && modifiers.ctrl) {
    focusRow(row);
  } else {
    selectOnly(row);
    focusRow(row);
  }
  ensureVisible(row);
  rowClicked(row);
  KeySelect(MultiSelect && (modifiers.shift || modifiers.ctrl));
}

void ListView::toggleFocused(const Modifiers& modifiers) {
  const std::uint32_t id = *focusedId_;
  setSelected(id, MultiSelect && modifiers.ctrl ? !isSelected(id) : true);
  anchorId_ = id;
  rowClicked(rowOf(id));
  KeySelect(true);
}

void ListView::markFromUser() {
  if (!MultiSelect || count() == 0) return;
  const std::uint32_t row = focusedRow().value_or(0), next = std::min(row + 1, count() - 1);
  const std::uint32_t id = idAt(row);
  setSelected(id, !isSelected(id) || selectedCount() == 1);
  focusRow(next);
  ensureVisible(next);
  rowClicked(next);
  KeySelect(true);
}

void ListView::keyFromUser(KeyEvent& event, std::uint32_t page) {
  KeyDown(event);
  if (event.handled) return;
  if (const auto target = keyTarget(event.code, page)) {
    event.handled = true;
    moveFocusTo(*target, event.modifiers);
    return;
  }
  if (event.code == key::Insert) {
    event.handled = true;
    markFromUser();
  } else if (event.code == key::Space && focusedId_) {
    event.handled = true;
    toggleFocused(event.modifiers);
  } else if (event.code == 'A' && event.modifiers.ctrl && !event.modifiers.alt && MultiSelect && count() > 0) {
    event.handled = true;
    selectRange(0, count() - 1, true);
    rowClicked(focusedRow().value_or(0));
    KeySelect(true);
  }
}

void ListView::seekFromUser(const std::string& text) {
  if (count() == 0 || text.empty()) return;
  std::string wanted;
  platform::appendBaseOrderKey(text, wanted);
  // One letter goes on from the next row, so that pressing it again walks through its names; a growing text stays.
  const std::uint32_t rows = count();
  const std::uint32_t from = focusedRow().value_or(rows - 1) + (isOneLetter(text) ? 1 : 0);
  std::string candidate;
  for (std::uint32_t step = 0; step < rows; ++step) {
    const std::uint32_t row = (from + step) % rows;
    candidate.clear();
    platform::appendBaseOrderKey(source_->seekText(idAt(row)), candidate);
    if (!candidate.starts_with(wanted)) continue;
    moveFocusTo(row, {});
    return;
  }
}

}  // namespace varnholt::controls
