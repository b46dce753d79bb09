#pragma once

#include "core/program.hpp"
#include "panels/form1.hpp"
#include "panels/navigation.hpp"

namespace varnholt::places {

/// What the saved places work with.
struct Context {
  panels::Form1& form;
  core::Program& program;
  panels::Navigation& navigation;

  bool folderExists(const std::string& folder) const {
    bool there = false;
    program.loop.runBlocking([&] { there = !folder.empty() && program.files().folderExists(folder); });
    return there;
  }
};

/// A folder for each panel.
struct FolderPair {
  std::string left, right;
};

/// Takes both panels to the pair. False: a folder is missing, which the user has been told, and both panels stay.
bool goToPair(const Context& context, const FolderPair& pair);

}  // namespace varnholt::places
