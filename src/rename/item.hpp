#pragma once

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
Item SplitFolderItem(std::string_view text, std::string_view folder);

}  // namespace varnholt::rename
