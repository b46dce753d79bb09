#pragma once

#include "fileops/context.hpp"
#include "rename/item.hpp"
#include "rename/rename_dialog.hpp"

#include <string>
#include <vector>

namespace varnholt::rename {

/// The mask on all selected items at once. Folders keep their names.
class MaskedRename {
 public:
  MaskedRename(const fileops::Context& context, Form14& dialog) : context_(context), dialog_(dialog) {}

  /// Fills the preview. Items that are gone get no row.
  void preview(const std::vector<Item>& items);
  /// Asks, and renames what can be renamed; nothing is replaced. False: the user said no, or a field was refused.
  bool execute(const std::vector<Item>& items);
  /// The path behind a row of the preview.
  std::string previewPath(controls::ListItem row) const;

 private:
  /// Files of one folder.
  struct Renamings {
    std::string folder;
    std::vector<platform::NewName> names;
  };
  bool fillPreview(const std::vector<Item>& items);
  std::vector<Renamings> newNames(const std::vector<Item>& items);

  fileops::Context context_;
  Form14& dialog_;
  std::vector<std::string> paths_;  ///< of the rows
};

}  // namespace varnholt::rename
