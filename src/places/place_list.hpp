#pragma once

#include "controls/list_view.hpp"
#include "panels/desk.hpp"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::places {

/// What the files of one kind are.
struct PlaceKind {
  std::string_view folder;     ///< below the program's folder
  std::string_view extension;  ///< as it is written: ".Url"
  const char* nameHeader;
  int icon;  ///< of a row
};

/// Icons of these lists, by their numbers.
namespace place_icon {
inline constexpr int Broken = 15, Good = 18, Favorite = 1, Note = 2, SortedDown = 12, SortedUp = 13;
}

/// The files of one kind as a list: their names, one of their dates, and a column without width by which dates are
/// sorted. Favorites, bookmarks and notes are lists of this one kind.
class PlaceList {
 public:
  PlaceList(panels::Desk& desk, controls::ListView& list, PlaceKind kind);

  /// With the closing backslash.
  std::string folder() const;
  /// The file of that name, which the user keyed without its extension.
  std::string fileOf(const std::string& name) const;
  std::string path(controls::ListItem row) const { return folder() + row.Text(); }
  /// Makes the folder if need be; false when it is not there afterwards.
  bool makeFolder() const;

  /// Columns as they first are; nothing is sorted.
  void resetColumns();
  /// The date column is called after the date that it shows.
  void showDateHeader();
  /// Reads the folder anew.
  void refresh();
  /// The row in focus, or nothing.
  std::optional<controls::ListItem> inHand() const { return list_.SelectedItem(); }
  /// Selects that row alone; false when there is none of that name.
  bool selectName(const std::string& name);

  /// Marks the selected rows as those to be deleted, and gives their files.
  std::vector<std::string> markSelected();
  /// Deletes files, read-only ones too; what stays is told. The list is read anew, and its first row selected.
  void deleteFiles(std::vector<std::string> files);
  void ColumnClick(int number);

  /// Called after each refresh.
  std::function<void()> refreshed;
  /// Another selection, by click or key. Marks of an earlier question have gone: it is what the buttons work on.
  std::function<void()> selected = [] {};
  /// The row in focus is to be opened.
  std::function<void(controls::ListItem row)> opened;
  /// Del: what is selected is to be deleted.
  std::function<void()> deleted;

 private:
  void bind();
  void clearMarks();
  void open();
  const platform::Date& dateOf(const platform::Entry& entry) const;

  panels::Desk& desk_;
  controls::ListView& list_;
  PlaceKind kind_;
};

}  // namespace varnholt::places
