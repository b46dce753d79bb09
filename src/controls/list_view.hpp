#pragma once

#include "controls/form.hpp"
#include "controls/row_source.hpp"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace varnholt::controls {

class ListView;
class MenuItem;

/// One row of a list view, by identity: it stays the same row when the list is sorted, and ends with a clear.
class ListItem {
 public:
  ListItem(ListView& view, std::uint32_t id) : view_(&view), id_(id) {}
  std::string Text() const;
  std::string SubItems(int column) const;
  int SmallIcon() const;
  /// Only for rows that were added one by one.
  void setSmallIcon(int icon);
  bool Selected() const;
  void setSelected(bool on);
  /// The program's own mark, drawn as the cut look. It outlives a re-selection.
  bool Ghosted() const;
  void setGhosted(bool on);
  Color ForeColor() const;
  void setForeColor(Color color);
  /// Only for rows that were added one by one.
  void setText(std::string text);
  void setSubItem(int column, std::string text);
  /// Position in the list as it is sorted now, from 0.
  std::uint32_t row() const;
  std::uint32_t id() const { return id_; }
  void EnsureVisible();
  bool operator==(const ListItem&) const = default;

 private:
  ListView* view_;
  std::uint32_t id_;
};

struct ColumnHeader {
  std::string Text;
  Twips Width = 1440;
  int Icon = 0;  ///< number in the list's ImageList; 0: none
  bool alignRight = false;
  bool operator==(const ColumnHeader&) const = default;
};

enum class SortOrder { Ascending = 0, Descending = 1 };

/// A list in report form. Rows are added one by one, or all at once from a RowSource; both sort by the text of a
/// column when somebody first looks at a row, however often they were changed before.
class ListView : public Control {
 public:
  ListView(Form& form, std::string name);
  ~ListView() override;

  Property<bool> MultiSelect{*this, true};
  Property<bool> GridLines{*this, false};
  Property<bool> FullRowSelect{*this, true};
  /// Image tiled behind the rows, program path; empty: none.
  Property<std::string> Picture{*this};
  Property<int> PictureAlignment{*this, 0};
  Property<std::vector<ColumnHeader>> ColumnHeaders{*this};
  /// Icon names of the program's family by the numbers that rows and headers use.
  Property<std::map<int, std::string>> ImageList{*this};

  Event<ListItem> ItemClick;
  /// Keys or the right button have changed what is selected or which row is in focus, as the left button does with a
  /// Click. True: by adding to or taking from a selection; false: by moving to a row.
  Event<bool> KeySelect;
  Event<int> ColumnClick;  ///< number of the column, from 1

  /// What there is to say of a single row: its tool tip, and how assistive technology describes it. Empty: nothing.
  std::function<std::string(ListItem)> rowToolTip;
  /// Gives the program paths that a drag of the selected rows carries; empty function or list: no drag.
  std::function<std::vector<std::string>()> OLEStartDrag;
  /// The folder that files dropped onto the row itself are meant for, program path; empty function or text: none.
  std::function<std::string(ListItem)> OLEDropFolder;
  /// The entries that the menu key and the right button show; null: a separator. Empty function: no menu.
  std::function<std::vector<MenuItem*>()> PopupEntries;

  // --- Rows ------------------------------------------------------------------------------------------------------
  std::uint32_t count() const;
  /// The row at a position as sorted now.
  ListItem item(std::uint32_t row);
  std::uint32_t idAt(std::uint32_t row) const;
  std::uint32_t rowOf(std::uint32_t id) const;
  std::string cell(std::uint32_t row, int column) const;
  const RowSource& source() const { return *source_; }
  void clear();
  ListItem add(std::string text, int icon = 0);
  /// Replaces all rows.
  void setRows(std::shared_ptr<const RowSource> source);

  // --- Sorting ---------------------------------------------------------------------------------------------------
  bool Sorted() const { return sorted_; }
  int SortKey() const { return sortKey_; }
  controls::SortOrder SortOrder() const { return sortOrder_; }
  void setSorted(bool on);
  void setSortKey(int column);
  void setSortOrder(controls::SortOrder order);
  /// Sorts now if anything is unsorted. Looking at rows does it too.
  void ensureSorted() const;

  // --- Marks -----------------------------------------------------------------------------------------------------
  bool isSelected(std::uint32_t id) const { return marks_[id] & SelectedMark; }
  bool isGhosted(std::uint32_t id) const { return marks_[id] & GhostedMark; }
  Color foreColor(std::uint32_t id) const { return colors_.empty() ? NoColor : colors_[id]; }
  void setSelected(std::uint32_t id, bool on);
  void setGhosted(std::uint32_t id, bool on);
  void setForeColor(std::uint32_t id, Color color);
  void selectNone();
  void clearGhosted();
  /// Ghosts the selected rows; the others lose the mark unless they are to keep it.
  void ghostSelected(bool othersKeep);
  void clearColors();
  std::uint32_t selectedCount() const { return selectedCount_; }
  /// Selected rows' ids in list order.
  std::vector<std::uint32_t> selectedIds() const;

  // --- The row in focus ------------------------------------------------------------------------------------------
  std::optional<ListItem> SelectedItem();
  std::optional<std::uint32_t> focusedRow() const;
  /// Makes a row the focused one; selects nothing.
  void focusRow(std::uint32_t row);
  /// Makes a row the only selected one, in focus and on the screen.
  void chooseRow(std::uint32_t row);
  void ensureVisible(std::uint32_t row);

  // --- What the user does ----------------------------------------------------------------------------------------
  /// Mouse button down on a row (none: the empty part below). Selects by the modifiers, except that a press on a
  /// selected row, plain or with Ctrl, waits for the release, so that a drag takes the whole selection.
  void pressFromUser(std::optional<std::uint32_t> row, const MouseEvent& mouse);
  void releaseFromUser(const MouseEvent& mouse);
  /// Selects the row in focus, or takes it from the selection, and steps to the next one. A row that is all there is of
  /// the selection was only come to, and stays selected.
  void markFromUser();
  void doubleClickFromUser(std::optional<std::uint32_t> row);
  /// A drag has begun with the press: the release selects nothing.
  void dragFromUser() { onRelease_ = OnRelease::Nothing; }
  void headerFromUser(int column) { ColumnClick(column); }
  void widthFromUser(int column, Twips width);
  /// A key goes down: KeyDown first, then moving, ranges and toggling as lists do. `page` is the number of rows that
  /// fit on the screen.
  void keyFromUser(KeyEvent& event, std::uint32_t page);
  void keyUpFromUser(KeyEvent& event) { KeyUp(event); }
  /// Typed letters: goes to the next row that begins with them. `text` grows while the user types on.
  void seekFromUser(const std::string& text);

  // --- For the drawing side --------------------------------------------------------------------------------------
  /// Counts changes of the rows or their order; marks alone do not count.
  unsigned rowsVersion() const { return rowsVersion_; }
  /// The row to scroll to, once.
  std::optional<std::uint32_t> takeVisibleRequest() { return std::exchange(visibleRequest_, {}); }

 private:
  friend class ListItem;
  class OwnRows;
  static constexpr std::uint8_t SelectedMark = 1, GhostedMark = 2;

  void rowsChanged();
  void unsorted();
  void selectOnly(std::uint32_t row);
  void selectRange(std::uint32_t from, std::uint32_t to, bool keepOthers);
  void moveFocusTo(std::uint32_t row, const Modifiers& modifiers);
  void toggleFocused(const Modifiers& modifiers);
  std::optional<std::uint32_t> keyTarget(int code, std::uint32_t page) const;
  void rowClicked(std::uint32_t row) { ItemClick(item(row)); }

  std::shared_ptr<const RowSource> source_;
  std::shared_ptr<OwnRows> own_;  ///< the source, while rows are added one by one
  std::vector<std::uint8_t> marks_;
  std::vector<Color> colors_;  ///< empty until a row is coloured
  mutable std::vector<std::uint32_t> order_, position_;
  mutable bool needsSort_ = false;
  bool sorted_ = true;
  int sortKey_ = 0;
  controls::SortOrder sortOrder_ = controls::SortOrder::Ascending;
  std::uint32_t selectedCount_ = 0;
  std::optional<std::uint32_t> focusedId_, anchorId_;
  std::optional<std::uint32_t> visibleRequest_;
  /// What a press on a selected row does when it turns out to be no drag of all that is selected.
  enum class OnRelease { Nothing, SelectOnly, Unselect } onRelease_ = OnRelease::Nothing;
  std::optional<std::uint32_t> pressedId_;
  unsigned rowsVersion_ = 0;
};

}  // namespace varnholt::controls
