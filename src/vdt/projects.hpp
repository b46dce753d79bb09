#pragma once

#include "core/kept_files.hpp"
#include "core/program.hpp"
#include "vdt/pointer_list.hpp"
#include "vdt/targets.hpp"

#include <string>
#include <vector>

namespace varnholt::vdt {

/// Named sets of pointers, a `.Pro` file each in `\VDT_Projects` of the program's folder. One is current: it fills the
/// list, and the list is written back to it.
class Projects {
 public:
  Projects(core::Program& program, PointerList& list, Targets& targets)
      : program_(program), list_(list), targets_(targets), kept_(program) {}

  std::string folder() const;
  std::string path(const std::string& name) const;
  /// Makes the folder when it is missing.
  void makeFolder();
  /// Names with ".Pro", as the folder lists them.
  std::vector<std::string> names() const;

  /// The file name of the current project.
  const std::string& current();
  void setCurrent(std::string name) { program_.init.VDTViewState = std::move(name); }

  /// Writes the list to the current project.
  platform::Result<void> VdtProjectSave();
  /// The same at the program's end, but for a list that is as it was read or written: what another running copy of the
  /// program has stored since stays.
  platform::Result<void> saveChanges();
  /// That it could not, in words for the user.
  std::string notSaved(const platform::Error& error);
  /// Fills the list from the current project.
  void VdtProjectLoad();
  /// Begins with the empty list, where the current project has no file.
  void beginEmpty() { noteStored(); }

 private:
  struct Stored {
    std::string name;
    std::vector<std::string> lines;
    bool operator==(const Stored&) const = default;
  };
  /// The current project as its file is written from the list.
  Stored inList();
  void noteStored() { stored_ = inList(); }

  core::Program& program_;
  PointerList& list_;
  Targets& targets_;
  core::KeptFiles kept_;
  Stored stored_;  ///< what was read or written last
};

}  // namespace varnholt::vdt
