#include "platform/posix/passing_names.hpp"

#include "platform/posix/dirents.hpp"
#include "platform/posix/held_note.hpp"
#include "platform/posix/identity.hpp"
#include "platform/posix/temp_file.hpp"
#include "platform/posix/unique_fd.hpp"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <optional>
#include <string_view>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

constexpr std::string_view NotePrefix = "Renaming";
constexpr std::string_view PassingMark = ".renaming";

std::string& notesFolder() {
  static std::string folder;
  return folder;
}

/// For a second the kernel answers to another spelling of a name that is gone, where the driver leaves case to it.
int renameIn(int folder, const std::string& from, const std::string& to) {
  constexpr std::chrono::milliseconds namesLive{1100};
  const int error = renameNoReplace(folder, from.c_str(), folder, to.c_str());
  if (error != EEXIST || mayList(folder, to)) return error;
  std::this_thread::sleep_for(namesLive);
  return renameNoReplace(folder, from.c_str(), folder, to.c_str());
}

bool isThere(int folder, const std::string& name) {
  struct stat facts {};
  return ::fstatat(folder, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0;
}

UniqueFd openFolder(const std::string& path) {
  return UniqueFd(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
}

// --- The note --------------------------------------------------------------------------------------------------------

// An empty field ends a passage.
std::string noteText(const std::string& folder, const std::vector<Passage>& passages) {
  std::string note;
  appendField(note, folder);
  for (const Passage& each : passages) {
    appendField(note, each.passing);
    appendField(note, each.wanted);
    for (const std::string& place : each.places)
      appendField(note, place);
    appendField(note, {});
  }
  return note;
}

struct Note {
  std::string folder;
  std::vector<Passage> passages;
};

// What is cut short was never acted upon.
Note readNote(std::string_view text) {
  Note note{takeField(text), {}};
  while (!text.empty()) {
    Passage passage{takeField(text), takeField(text), {}};
    for (std::string place = takeField(text); !place.empty(); place = takeField(text))
      passage.places.push_back(std::move(place));
    if (!passage.places.empty()) note.passages.push_back(std::move(passage));
  }
  return note;
}

// --- The passages ----------------------------------------------------------------------------------------------------

using Steps = std::vector<std::pair<std::string, std::string>>;

Steps stepsOf(const Passage& passage) {
  Steps steps{{passage.places.front(), passage.passing}};
  for (std::size_t at = 1; at < passage.places.size(); ++at)
    steps.emplace_back(passage.places[at], passage.places[at - 1]);
  steps.emplace_back(passage.passing, passage.wanted);
  return steps;
}

int runSteps(int folder, const Steps& steps) {
  for (std::size_t at = 0; at < steps.size(); ++at) {
    const int error = renameIn(folder, steps[at].first, steps[at].second);
    if (!error) continue;
    while (at-- > 0)
      (void)renameIn(folder, steps[at].second, steps[at].first);
    return error;
  }
  return 0;
}

/// Where links take the place of a rename, a kill between the two calls leaves the file under both names.
bool dropSecondName(int folder, const Passage& passage) {
  struct stat facts {
  }, other{};
  if (::fstatat(folder, passage.passing.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0) return false;
  std::vector<std::string> names = passage.places;
  names.push_back(passage.wanted);
  const bool second = std::ranges::any_of(names, [&](const std::string& name) {
    return ::fstatat(folder, name.c_str(), &other, AT_SYMLINK_NOFOLLOW) == 0 && sameInode(facts, other);
  });
  return second && ::unlinkat(folder, passage.passing.c_str(), 0) == 0;
}

/// Where only an empty file can hold a name until the rename replaces it, a kill in between leaves that file, and no
/// place is free then.
void dropHolder(int folder, const Passage& passage) {
  const char* passing = passage.passing.c_str();
  if (::renameat2(folder, passing, folder, passing, RENAME_NOREPLACE) == 0 || (errno != EINVAL && errno != ENOSYS))
    return;
  std::vector<std::string> names = passage.places, empty;
  names.push_back(passage.passing);
  struct stat facts {};
  for (const std::string& name : names) {
    if (::fstatat(folder, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0) return;
    if (S_ISREG(facts.st_mode) && facts.st_size == 0) empty.push_back(name);
  }
  // Of several empty files nobody knows which one it is.
  if (empty.size() == 1) (void)::unlinkat(folder, empty.front().c_str(), 0);
}

/// True when no file stands under the passing name any more. The place that is free tells how far the run came; when
/// there is more than one, somebody else has been at work, and only the file itself is looked after.
bool finish(int folder, const Passage& passage) {
  dropHolder(folder, passage);
  if (!isThere(folder, passage.passing) || dropSecondName(folder, passage)) return true;
  std::vector<std::size_t> free;
  for (std::size_t at = 0; at < passage.places.size(); ++at)
    if (!isThere(folder, passage.places[at])) free.push_back(at);
  if (free.size() == 1)
    for (std::size_t at = free.front() + 1; at < passage.places.size(); ++at)
      if (renameIn(folder, passage.places[at], passage.places[at - 1])) break;
  return !renameIn(folder, passage.passing, passage.wanted) ||
         !renameIn(folder, passage.passing, passage.places.front());
}

/// What stands in a damaged note may be anything.
bool isOurs(const Passage& passage) {
  const auto mark = passage.passing.rfind(PassingMark);
  return mark != std::string::npos &&
         isTemporaryName(std::string_view(passage.passing).substr(mark + PassingMark.size()));
}

void finishNote(std::string_view text, std::vector<Stranded>& stranded) {
  const Note note = readNote(text);
  const UniqueFd folder = openFolder(note.folder);
  for (const Passage& each : note.passages)
    if (isOurs(each) && (!folder || !finish(folder.get(), each)))
      stranded.push_back({note.folder + '/' + each.passing, each.wanted});
  if (folder) (void)::fsync(folder.get());
}

}  // namespace

void PassingNames::keepNotesIn(const std::string& folder) { notesFolder() = folder; }

std::string PassingNames::nameFor(const std::string& name) {
  constexpr std::size_t longest = 200;
  constexpr unsigned char followMask = 0xC0, follows = 0x80;  // a byte of UTF-8 that goes on a character
  std::size_t end = std::min(name.size(), longest);
  while (end > 0 && end < name.size() && (static_cast<unsigned char>(name[end]) & followMask) == follows)
    --end;
  return name.substr(0, end) + std::string(PassingMark) + temporaryName();
}

std::vector<int> PassingNames::run(int folder, const std::string& path, const std::vector<Passage>& passages) {
  HeldNote note;
  if (const int error = note.write(notesFolder(), NotePrefix, noteText(path, passages)))
    return std::vector<int>(passages.size(), error);
  std::vector<int> errors;
  errors.reserve(passages.size());
  for (const Passage& each : passages)
    errors.push_back(runSteps(folder, stepsOf(each)));
  // The note must not be gone from the disk before the passing names are.
  (void)::fsync(folder);
  return errors;
}

std::vector<Stranded> finishPassages(const std::string& notesFolder) {
  std::vector<Stranded> stranded;
  finishNotes(notesFolder, NotePrefix, [&](std::string_view text) {
    finishNote(text, stranded);
    return true;
  });
  return stranded;
}

}  // namespace varnholt::platform::posix
