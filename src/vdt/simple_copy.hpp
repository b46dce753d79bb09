#pragma once

#include "fileops/left_out_notice.hpp"
#include "panels/desk.hpp"
#include "vdt/pointer_list.hpp"

#include <string>

namespace varnholt::vdt {

/// The simplified copy: selected files of the list go into the active panel's folder, where nothing has their name yet.
class SimpleCopy {
 public:
  SimpleCopy(panels::Desk& desk, PointerList& list) : desk_(desk), list_(list), leftOut_(desk.program) {}

  void run();

 private:
  bool mayChange(const panels::Panel& panel) const;
  /// Marks the files that are to be copied, and gives their paths.
  std::vector<std::string> markFiles();
  void copyAll(const std::vector<std::string>& sources, const std::string& folder);
  void copyFile(const std::string& source, const std::string& folder);
  void writeOut(const std::string& folder);

  panels::Desk& desk_;
  PointerList& list_;
  fileops::LeftOutNotice leftOut_;
};

}  // namespace varnholt::vdt
