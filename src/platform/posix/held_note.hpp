#pragma once

#include "platform/posix/unique_fd.hpp"

#include <functional>
#include <string>
#include <string_view>

namespace varnholt::platform::posix {

/// A note on the disk of what a process is about to do to files of the user's, held by it as long as it is at work.
class HeldNote {
 public:
  HeldNote() = default;
  HeldNote(const HeldNote&) = delete;
  HeldNote& operator=(const HeldNote&) = delete;
  /// The note goes, unless it is kept.
  ~HeldNote();

  /// Makes the note in a folder, under a name of its own behind the prefix. Gives 0 when it is on the disk, or errno.
  int write(const std::string& folder, std::string_view prefix, std::string_view text);
  /// It stays, for finishNotes().
  void keep() { note_.reset(); }

 private:
  UniqueFd folder_, note_;
  std::string name_;
};

/// Hands over the text of each note in the folder whose process is at work no more, and removes it on true.
void finishNotes(const std::string& folder, std::string_view prefix,
                 const std::function<bool(std::string_view text)>& finish);

/// Hands over the texts of all notes in the folder.
void readNotes(const std::string& folder, std::string_view prefix,
               const std::function<void(std::string_view text)>& read);

/// Fields of a note. They may hold any byte but the zero, so that one ends each.
void appendField(std::string& note, std::string_view field);
std::string takeField(std::string_view& note);

}  // namespace varnholt::platform::posix
