#pragma once

#include "core/kept_files.hpp"
#include "core/program.hpp"
#include "places/folder_pair.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace varnholt::places {

/// The static presets as they are kept: the names in `Preset.Ini`, all else in the settings store, a section a name.
/// Names are in upper case throughout.
class PresetStore {
 public:
  explicit PresetStore(core::Program& program) : program_(program), kept_(program) {}

  /// Names in the order in which they were made. A file that is missing is made empty.
  std::vector<std::string> names();
  std::string text(const std::string& name) const;
  FolderPair folders(const std::string& name) const;
  /// True for a name whose section holds something else.
  static bool isReserved(std::string_view name);
  /// As the settings store tells sections apart: upper case alone keeps some letters distinct that are one there.
  static bool sameName(std::string_view a, std::string_view b);

  /// False: the preset could not be written, which the user has been told, and none has come.
  bool add(const std::string& name, const std::string& text, const FolderPair& folders);
  bool remove(const std::string& name);
  bool removeAll();

 private:
  std::string path() const;
  /// The user is told when it is not.
  bool isStored(const platform::Result<void>& written);
  bool write(const std::vector<std::string>& names);
  void removeSection(const std::string& name);

  core::Program& program_;
  core::KeptFiles kept_;
};

}  // namespace varnholt::places
