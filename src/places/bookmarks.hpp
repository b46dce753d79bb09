#pragma once

#include "fileops/name_dialog.hpp"
#include "places/places_form.hpp"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace varnholt::places {

/// What a `.Bmk` file holds: a folder, and the row of a folder or the name of a file in it.
struct Bookmark {
  std::string path;      ///< of the panel, with its closing backslash
  std::string folder;    ///< the row's text; empty: none
  std::string fileName;  ///< empty: none

  /// The full path of the sub-folder or file that is named; empty when none is.
  std::string folderPath() const;
  std::string filePath() const;
};

/// Sections may come in any order, and be missing.
Bookmark bookmarkOf(std::string_view bytes);

/// "Book-Marks": the places that the user has marked. They are gone to, renamed and deleted here.
class Form33 : public PlacesForm {
 public:
  Form33(panels::Desk& desk, rename::Rename& rename);

  void viewbmrefresh() { places.refresh(); }
  /// Goes to the place. The user is told what is missing, and why.
  std::function<bool(const std::string& file)> follow;
  /// The dialog has gone, and the place is reached.
  std::function<void()> arrived;

 private:
  void open(controls::ListItem row) override;
  void ListView1_Click();
  /// The icons of all rows, as their drives answer.
  void testRows();

  unsigned filled_ = 0;  ///< how often the list was filled
};

/// The commands of bookmarks.
class Bookmarks {
 public:
  Bookmarks(panels::Desk& desk, fileops::Form32& nameDialog, rename::Rename& rename);

  void addtobook_Click();
  void OpenBook_Click();
  /// The active panel goes to the place of a bookmark. False: it could not, or not as far as the item.
  bool follow(const std::string& file);
  /// Has the active panel's commands follow the row that was found.
  void arrive();

 private:
  void addBookmark(const panels::Panel& panel);
  bool BookmarkPath(const std::string& folder);
  std::optional<controls::ListItem> findRow(const panels::Panel& panel, const std::string& text, bool isFolder) const;
  void select(const std::optional<controls::ListItem>& row);

  panels::Desk& desk_;
  fileops::Form32& Form32_;

 public:
  places::Form33 Form33;
};

}  // namespace varnholt::places
