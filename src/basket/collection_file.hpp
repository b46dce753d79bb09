#pragma once

#include "basket/paste_collection.hpp"
#include "controls/standard.hpp"
#include "core/program.hpp"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace varnholt::basket {

/// The collection files in `\Collections` of the program's folder: a path a line, a folder with "|Fold|" before it.
class CollectionFiles {
 public:
  explicit CollectionFiles(core::Program& program) : program_(program) {}

  /// Names with ".Col", as the folder lists them.
  std::vector<std::string> names() const;
  /// Full path of the file of that name.
  std::string path(const std::string& name) const;
  /// Replaces the file in one step.
  platform::Result<void> save(const std::string& name, const std::deque<core::Item>& items) const;

  /// Saves under the name in the box, and tells how it went; a name that is refused stays in the box. Where there is
  /// such a file, `mayReplace` is asked the question. False: nothing was written.
  bool saveAs(controls::TextBox& name, const std::deque<core::Item>& items,
              const std::function<bool(const std::string& question)>& mayReplace) const;

  struct Loaded {
    std::vector<core::Item> items;  ///< as the disk spells them
    std::size_t skipped = 0;        ///< lines that name nothing that is there
  };
  /// What the lines name, in whatever letter case. Asks the disk once a line, and ends early when `goesOn` says so;
  /// made for a long call.
  static Loaded itemsOf(const platform::FileSystem& files, const std::string& bytes,
                        const std::function<bool()>& goesOn);

 private:
  core::Program& program_;
};

}  // namespace varnholt::basket
