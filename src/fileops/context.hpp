#pragma once

#include "core/program.hpp"
#include "panels/browse_dialog.hpp"
#include "panels/dispatcher.hpp"
#include "panels/form1.hpp"
#include "panels/listing.hpp"
#include "panels/navigation.hpp"
#include "panels/selection.hpp"
#include "panels/tree_window.hpp"

namespace varnholt::fileops {

/// What the file operations work with.
struct Context {
  panels::Form1& form;
  core::Program& program;
  panels::Dispatcher& dispatcher;
  panels::Listing& listing;
  panels::Navigation& navigation;
  panels::Selection& selection;
  panels::TreeWindow& trees;
  panels::Form35& browser;

  platform::FileSystem& files() const { return program.files(); }
  int& pointer() const { return program.loop.screen().MousePointer; }
  /// Bytes in a folder, large ones counted while the windows go on painting; a link to one is no more than a link.
  std::uint64_t folderBytes(const std::string& folder) const;
  /// What it holds, as seen from a long call; nothing when it cannot be read.
  platform::TreeSize treeSize(const std::string& folder, const platform::Progress& progress = {}) const;
  /// The target of the item in hand, should it have this name.
  std::string target(std::string_view name) const { return form.TargetPath + std::string(name); }
};

}  // namespace varnholt::fileops
