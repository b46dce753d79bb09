#pragma once

#include "core/text_file.hpp"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::core {

struct Program;

/// Files of ours that hold what the user has put there. One that could not be read to its end gets another name before
/// it is written again, and the user is told: what could not be read is still there.
class KeptFiles {
 public:
  explicit KeptFiles(const Program& program) : program_(program) {}

  std::string read(const std::string& path);
  /// Without empty lines.
  std::vector<std::string> readLines(const std::string& path);
  /// A reader has found that the file it was given is cut off within an entry, or cannot be understood.
  void foundCutOff(const std::string& path) { unread_.insert(path); }
  bool wasReadWhole(const std::string& path) const { return !unread_.contains(path); }

  /// Replaces the file in one step. Fails, and changes nothing, where it had to be set aside and cannot be.
  platform::Result<void> write(const std::string& path, std::string_view bytes);
  platform::Result<void> writeLines(const std::string& path, const std::vector<std::string>& lines);
  /// Sets a file that was not read to its end aside now, and tells it. Fails as write does.
  platform::Result<void> setAside(const std::string& path);

 private:
  const Program& program_;
  std::set<std::string> unread_;
};

/// Gives a file the first free name NAME.damaged-N, and returns the whole path.
platform::Result<std::string> moveAside(platform::FileSystem& files, const std::string& path);

}  // namespace varnholt::core
