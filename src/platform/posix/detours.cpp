#include "platform/posix/detours.hpp"

#include "platform/posix/held_note.hpp"
#include "platform/posix/posix_error.hpp"

#include <fcntl.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

constexpr std::string_view NotePrefix = "OnTheWay";
constexpr std::string Detour::*Fields[] = {&Detour::waits, &Detour::origin, &Detour::target};

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

void PosixDetours::finish(const std::function<bool(const Detour&)>& bringBack) {
  finishNotes(notes_, NotePrefix, [&](std::string_view text) {
    bool allGone = true;
    while (!text.empty()) {
      Detour detour;
      std::string paths[std::size(Fields)];
      for (std::string& path : paths)
        path = takeField(text);
      // What is cut short was never acted upon.
      if (paths[std::size(Fields) - 1].empty()) break;
      if (::faccessat(AT_FDCWD, paths[0].c_str(), F_OK, AT_SYMLINK_NOFOLLOW) != 0) continue;
      for (std::size_t at = 0; at < std::size(Fields); ++at)
        detour.*Fields[at] = map_.toProgram(paths[at]).valueOr({});
      allGone = bringBack(detour) && allGone;
    }
    return allGone;
  });
}

}  // namespace varnholt::platform::posix
