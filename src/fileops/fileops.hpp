#pragma once

#include "fileops/copy.hpp"
#include "fileops/delete.hpp"
#include "fileops/desktop.hpp"
#include "fileops/edit_file.hpp"
#include "fileops/move.hpp"
#include "fileops/new_folder.hpp"
#include "panels/room.hpp"

#include <string>
#include <vector>

namespace varnholt::fileops {

/// Copy, move and delete with their dialogs.
class FileOps : public panels::Room {
 public:
  explicit FileOps(panels::Desk& desk);
  FileOps(const FileOps&) = delete;
  FileOps& operator=(const FileOps&) = delete;

  /// Whether the room that a selection needs is tested before it is copied or moved.
  void ValCopyMove_Click();
  /// Files of another program, dropped on a panel. True: taken.
  bool dropFiles(panels::Panel& panel, const std::vector<std::string>& files, bool move);
  void addCommands(panels::CommandTable& table) override;
  std::vector<controls::Form*> dialogs() override { return {&Form2, &Form3, &Form4, &Form5, &Form7, &Form10, &Form32}; }

 private:
  panels::Desk& desk_;

 public:
  fileops::Form2 Form2;
  fileops::Form3 Form3;
  fileops::Form4 Form4;
  fileops::Form5 Form5;
  fileops::Form7 Form7;
  fileops::Form10 Form10;
  fileops::Form32 Form32;
  fileops::Space Space;
  OverwritePolicy policy;
  fileops::Copy Copy;
  fileops::Move Move;
  fileops::Delete Delete;
  fileops::EditFile editor;
  fileops::Desktop desktop;
};

}  // namespace varnholt::fileops
