#pragma once

#include "core/item_text.hpp"

#include <string>
#include <string_view>

namespace varnholt::rename {

/// What gets a new name.
struct Item {
  std::string folder;  ///< with closing backslash
  std::string name;
  bool isFolder = false;

  std::string path() const { return folder + name; }
};

/// An item as the selection has it, with the folder that its bare name lies in.
Item SplitFolderItem(const core::Item& item, std::string_view folder);

}  // namespace varnholt::rename
