#pragma once

#include "platform/result.hpp"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace varnholt::platform {

/// A file of the user's that passes through a work folder of the program. Paths in program form.
struct Detour {
  std::string waits;   ///< where it stands meanwhile
  std::string origin;  ///< where it came from
  std::string target;  ///< where it is bound for
};

/// Writes down which files are on a detour before they move, so that none is forgotten when the program is killed.
class Detours {
 public:
  /// What is written down of one operation. It goes with the object.
  class Note {
   public:
    virtual ~Note() = default;
    /// Some file could be brought neither on nor back: what is written stays, and finish() finds it.
    virtual void keep() = 0;
  };

  virtual ~Detours() = default;
  /// The note is on the disk when it comes back; without one no file may move.
  virtual Result<std::unique_ptr<Note>> note(const std::vector<Detour>& detours) = 0;
  /// Where files stand that are on a detour now, of this or another copy of the program, or of one that was killed.
  virtual std::vector<std::string> waiting() = 0;
  /// Hands over every file that a copy of the program which runs no more has left on its detour. True: it stands there
  /// no more. Notes whose files are all gone go, too.
  virtual void finish(const std::function<bool(const Detour&)>& bringBack) = 0;
};

}  // namespace varnholt::platform
