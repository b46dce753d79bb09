#pragma once

#include "core/program.hpp"
#include "core/program_files.hpp"
#include "core/shared_lines.hpp"

#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::panels {

/// A list of texts with newest last, as the history files keep it: no text twice (letter case does not count), and
/// the oldest goes when it is full.
class History {
 public:
  static constexpr std::size_t Unlimited = std::numeric_limits<std::size_t>::max();
  explicit History(std::size_t limit = Unlimited) : limit_(limit) {}
  /// Adds a text at the end; false when it was there already.
  bool add(const std::string& text);
  /// The same, but a text that was there already becomes the newest.
  void renew(const std::string& text);
  void assign(std::vector<std::string> entries);
  void clear() { entries_.clear(); }
  std::size_t limit() const { return limit_; }
  const std::vector<std::string>& entries() const { return entries_; }
  bool contains(const std::string& text) const;
  /// Takes a text out, in whatever letter case.
  void remove(const std::string& text);

 private:
  std::size_t limit_;
  std::vector<std::string> entries_;
};

/// The histories that live all run long and are kept in files beside the program.
struct Histories {
  History folders{50};                        ///< `DirHis.Dat`, behind `ImageCombo1`
  History files{50};                          ///< `FileHis.Dat`
  History compareLeft{11}, compareRight{11};  ///< `CompHis_L.Dat`, `CompHis_R.Dat`
  std::vector<std::string> lastFolders;       ///< `GetFolders.Dat`: the last folder of each drive

  /// Notes the folder as the last one of its drive.
  void noteLastFolder(const std::string& folder);
  /// The last folder of a drive ("C:"); empty when it has none.
  std::string lastFolder(std::string_view drive) const;

  /// Reads the files that are there.
  void load(const core::Program& program);
  /// Takes folders that are gone out of the folder history, as the drives answer; one that does not keeps its folders.
  /// `changed` is called after each that took some out.
  void forgetVanished(const core::Program& program, std::function<void()> changed);
  /// Writes the three files that are saved at exit; how each went.
  std::vector<platform::Result<void>> store(const core::Program& program);
  /// Write `CompHis_L.Dat` and `CompHis_R.Dat`, unless there is nothing to write.
  void ComphisL_save(const core::Program& program);
  void ComphisR_save(const core::Program& program);
  /// Writes `DirHis.Dat` alone.
  platform::Result<void> storeFolders(const core::Program& program);

 private:
  core::SharedLines foldersFile_{core::program_file::DirHis}, filesFile_{core::program_file::FileHis},
      lastFoldersFile_{core::program_file::GetFolders}, compareLeftFile_{core::program_file::CompHis_L},
      compareRightFile_{core::program_file::CompHis_R};
};

}  // namespace varnholt::panels
