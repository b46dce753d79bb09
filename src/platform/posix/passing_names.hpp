#pragma once

#include <string>
#include <vector>

namespace varnholt::platform::posix {

/// One file that stands under a passing name while others take its place, all in one folder.
struct Passage {
  std::string passing;              ///< the name for the time between
  std::string wanted;               ///< the name that the file gets in the end
  std::vector<std::string> places;  ///< its old name first; each file behind it moves on to the place in front of it
};

/// Carries passages out. What it is about to do is written down in the program's folder and is on the disk before the
/// first file gets a passing name, so that the next start can put right what a killed program left (finishPassages).
class PassingNames {
 public:
  /// The system path of the folder that the notes are kept in, for the whole process.
  static void keepNotesIn(const std::string& folder);

  /// All passages of one open folder, whose system path is for the notes. Gives 0 or an errno for each: after an errno
  /// every file of that passage has its old name. Without a note nothing is renamed.
  static std::vector<int> run(int folder, const std::string& path, const std::vector<Passage>& passages);
  /// A passing name: it tells what the file was, as it is the user's.
  static std::string nameFor(const std::string& name);
};

/// A file that a killed run left under a passing name and that could not be given a name of its own.
struct Stranded {
  std::string path;    ///< where it stands
  std::string wanted;  ///< what it should be called
};
/// Brings to their end what killed runs of this program left of their passages. Runs that are at work are left alone.
/// Gives what the user must be told.
std::vector<Stranded> finishPassages(const std::string& notesFolder);

}  // namespace varnholt::platform::posix
