#pragma once

#include "panels/desk.hpp"
#include "rename/item.hpp"
#include "rename/rename_dialog.hpp"

#include <optional>
#include <string>
#include <vector>

namespace varnholt::rename {

/// The mask on all selected items at once. Folders keep their names.
class MaskedRename {
 public:
  MaskedRename(panels::Desk& desk, Form14& dialog);

  /// The dialog opens anew: what an earlier preview showed is gone.
  void forget();
  /// Fills the preview, and marks the names that could not be given. Items that are gone get no row.
  void preview(const std::vector<Item>& items);
  /// Asks, and renames what can be renamed; nothing is replaced. False: the user said no, or a field was refused.
  bool execute(const std::vector<Item>& items);
  /// Tells once which items the last run left as they were, if there were any.
  void tellKept();
  /// The path behind a row of the preview.
  std::string previewPath(controls::ListItem row) const;

 private:
  /// Files of one folder, and the place of each in the list that they were taken from.
  struct Renamings {
    std::string folder;
    std::vector<platform::NewName> names;
    std::vector<std::size_t> places;
  };
  /// A file that keeps its name.
  struct Kept {
    std::size_t place;
    std::string name, reason;
  };
  bool fillPreview(const std::vector<Item>& items, std::vector<Renamings>& renamings, std::vector<Kept>& kept);
  void markPreview(const std::vector<Kept>& kept);
  void renameAll(const std::vector<Item>& items);
  /// The new name of one item, by its attributes: none for what is gone.
  void nameItem(const Item& item, std::size_t place, const std::optional<platform::Attributes>& attributes,
                std::vector<Renamings>& renamings);
  /// Puts what the mask made of an item's name among the renamings, or among the kept ones when nothing is left of it.
  void take(const Item& item, std::size_t place, std::vector<Renamings>& renamings, std::vector<Kept>& kept) const;
  template <class RunBatch>
  void run(const std::vector<Renamings>& renamings, std::vector<Kept>& kept, const RunBatch& batch) const;

  panels::Desk& desk_;
  Form14& dialog_;
  std::vector<std::string> paths_;    ///< of the rows
  std::vector<std::string> reasons_;  ///< of the rows whose new name could not be given; else empty
  std::vector<Kept> kept_;            ///< of the last run
};

}  // namespace varnholt::rename
