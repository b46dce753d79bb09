#include "platform/posix/held_note.hpp"

#include "platform/posix/dirents.hpp"
#include "platform/posix/file_contents.hpp"
#include "platform/posix/posix_error.hpp"
#include "platform/posix/temp_file.hpp"

#include <algorithm>
#include <cerrno>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

constexpr std::uint64_t LongestNote = 64u << 20;

UniqueFd openFolder(const std::string& path) {
  return UniqueFd(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
}

std::vector<std::string> notesIn(int folder, std::string_view prefix) {
  std::vector<std::string> names;
  DirentBatch batch;
  while (batch.read(folder) > 0)
    batch.forEach([&](const char* name, unsigned char) {
      const std::string_view text(name);
      if (text.starts_with(prefix) && isTemporaryName(text.substr(prefix.size()))) names.emplace_back(name);
      return true;
    });
  return names;
}

}  // namespace

int HeldNote::write(const std::string& folder, std::string_view prefix, std::string_view text) {
  folder_ = openFolder(folder);
  if (!folder_) return errno;
  name_ = std::string(prefix) + temporaryName();
  note_ = UniqueFd(::openat(folder_.get(), name_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  if (!note_) return errno;
  // A start of another copy of the program may have found it empty and cleared it away.
  if (!holdTemporary(folder_.get(), name_.c_str(), note_.get())) return EAGAIN;
  const ssize_t written = ::pwrite(note_.get(), text.data(), text.size(), 0);
  if (written != static_cast<ssize_t>(text.size())) return written < 0 ? errno : ENOSPC;
  const int error = syncFile(note_.get());
  return error ? error : syncFile(folder_.get());
}

HeldNote::~HeldNote() {
  if (note_) ::unlinkat(folder_.get(), name_.c_str(), 0);
}

void finishNotes(const std::string& folder, std::string_view prefix,
                 const std::function<bool(std::string_view text)>& finish) {
  const UniqueFd notes = openFolder(folder);
  if (!notes) return;
  for (const std::string& name : notesIn(notes.get(), prefix)) {
    const UniqueFd held(::openat(notes.get(), name.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (!held || ::flock(held.get(), LOCK_EX | LOCK_NB) != 0) continue;
    if (!holdTemporary(notes.get(), name.c_str(), held.get())) continue;
    const auto text = readWholeFile("/proc/self/fd/" + std::to_string(held.get()), LongestNote);
    if (text && finish(*text)) ::unlinkat(notes.get(), name.c_str(), 0);
  }
}

void readNotes(const std::string& folder, std::string_view prefix,
               const std::function<void(std::string_view text)>& read) {
  const UniqueFd notes = openFolder(folder);
  if (!notes) return;
  for (const std::string& name : notesIn(notes.get(), prefix))
    if (const auto text = readWholeFile(folder + '/' + name, LongestNote)) read(*text);
}

void appendField(std::string& note, std::string_view field) { note.append(field).push_back('\0'); }

std::string takeField(std::string_view& note) {
  const auto end = std::min(note.find('\0'), note.size());
  std::string field(note.substr(0, end));
  note.remove_prefix(std::min(end + 1, note.size()));
  return field;
}

}  // namespace varnholt::platform::posix
