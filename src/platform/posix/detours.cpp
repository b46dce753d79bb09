#include "platform/posix/detours.hpp"

#include "platform/posix/held_note.hpp"
#include "platform/posix/posix_error.hpp"

#include <array>
#include <optional>

#include <fcntl.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

constexpr std::string_view NotePrefix = "OnTheWay";
constexpr std::string Detour::*Fields[] = {&Detour::waits, &Detour::origin, &Detour::target};

using Paths = std::array<std::string, std::size(Fields)>;

/// The paths of the next detour of a note. What is cut short was never acted upon.
std::optional<Paths> takeDetour(std::string_view& text) {
  Paths paths;
  for (std::string& path : paths)
    path = takeField(text);
  return paths.back().empty() ? std::nullopt : std::optional(paths);
}

class PosixNote final : public Detours::Note {
 public:
  void keep() override { held.keep(); }
  HeldNote held;
};

}  // namespace

Result<std::unique_ptr<Detours::Note>> PosixDetours::note(const std::vector<Detour>& detours) {
  std::string text;
  for (const Detour& detour : detours)
    for (const auto field : Fields) {
      const auto path = map_.toSystem(detour.*field);
      if (!path) return path.error();
      appendField(text, *path);
    }
  auto note = std::make_unique<PosixNote>();
  if (const int error = note->held.write(notes_, NotePrefix, text))
    return systemError(error, map_.toProgram(notes_).valueOr(notes_));
  return std::unique_ptr<Note>(std::move(note));
}

std::vector<std::string> PosixDetours::waiting() {
  std::vector<std::string> places;
  readNotes(notes_, NotePrefix, [&](std::string_view text) {
    while (const auto paths = takeDetour(text))
      places.push_back(map_.toProgram(paths->front()).valueOr({}));
  });
  return places;
}

void PosixDetours::finish(const std::function<bool(const Detour&)>& bringBack) {
  finishNotes(notes_, NotePrefix, [&](std::string_view text) {
    bool allGone = true;
    while (const auto paths = takeDetour(text)) {
      if (::faccessat(AT_FDCWD, paths->front().c_str(), F_OK, AT_SYMLINK_NOFOLLOW) != 0) continue;
      Detour detour;
      for (std::size_t at = 0; at < std::size(Fields); ++at)
        detour.*Fields[at] = map_.toProgram((*paths)[at]).valueOr({});
      allGone = bringBack(detour) && allGone;
    }
    return allGone;
  });
}

}  // namespace varnholt::platform::posix
