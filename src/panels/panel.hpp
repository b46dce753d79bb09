#pragma once

#include "controls/list_view.hpp"
#include "controls/standard.hpp"
#include "core/item_text.hpp"
#include "panels/folder_stack.hpp"
#include "panels/panel_rows.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace varnholt::panels {

enum class Side { Left, Right };
inline Side other(Side side) { return side == Side::Left ? Side::Right : Side::Left; }

/// The controls of one side of the main window.
struct PanelControls {
  controls::ListView& list;
  controls::TextBox& Text;
  controls::ComboBox& Drive;
  controls::Button &Back, &Forward, &ParentWithHistory, &ParentWithoutHistory, &Root;
};

/// One of the two folder panels. Left and right are the same thing with other controls.
class Panel {
 public:
  Panel(Side side, PanelControls controls) : side(side), controls(controls), list(controls.list) {}

  const Side side;
  const PanelControls controls;
  controls::ListView& list;

  /// The folder being listed, with closing backslash (`Panel1Path`, `Panel2Path`).
  const std::string& path() const { return path_; }
  /// Takes over a folder in either form. The path line is a matter of showPath().
  void setPath(std::string_view folder);
  /// Shows the folder in the path line (`Text1`, `Text2`), without closing backslash unless it is a root.
  void showPath();
  /// `Drive1Root`, `Drive2Root`: "C:\".
  std::string driveRoot() const;

  /// The rows of the last listing; null while the list is empty of one.
  std::shared_ptr<const PanelRows> rows;
  void show(std::shared_ptr<const PanelRows> newRows);
  /// The rows are those of the panel's folder, and not of the one before.
  bool isListed() const { return listed_ == path_; }
  /// The last listing has files that the chosen view (programs, or the user's filter) leaves out.
  bool hidesFiles = false;
  std::string unreadable;  ///< why the last listing could not be made; empty: it was
  void clearItems();

  bool isFolder(controls::ListItem item) const { return rows && rows->isFolder(item.id()); }
  /// The item's name as it is on the disk.
  std::string fileName(controls::ListItem item) const;
  /// The item's full path.
  std::string itemPath(controls::ListItem item) const;
  /// The item as it travels.
  core::Item item(controls::ListItem row) const;
  /// Row text, point, extension: for comparing only, since a name without an extension gets a point too.
  std::string compareText(controls::ListItem item) const;
  /// The first row in list order of that compare text.
  std::optional<controls::ListItem> findByCompareText(const std::string& text) const;
  /// The row of the item of exactly that name.
  std::optional<std::uint32_t> rowOfName(std::string_view name) const;
  /// The keyboard goes on from that row, which is seen; nothing is selected by it.
  void goOnFrom(std::uint32_t row);
  /// The same from the row of that item, if there is one.
  void goOnFrom(std::string_view name);

  FolderStack backStack{50};     ///< `fstack_push`, `fstack_pop`
  FolderStack forwardStack{50};  ///< `pushlok`, `poplok`
  FolderStack parentTrail{101};  ///< `Foldercol_push`, `Foldercol_pop`

  /// What is wrong with the panel, empty when nothing is: rows belong to the list, marks are counted right, keys agree
  /// with what is shown. For tests.
  std::string inconsistency() const;

 private:
  std::string path_, listed_;
};

}  // namespace varnholt::panels
