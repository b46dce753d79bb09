// Random bytes for the readers of our own files, by libFuzzer, until one of them crashes, hangs or breaks its word.
//   readers_fuzz --reader=bookmark|most-used|note|project [CORPUS...] [-max_total_time=SECONDS]

#include "core/rtf.hpp"
#include "core/text_file.hpp"
#include "panels/most_used.hpp"
#include "places/bookmarks.hpp"
#include "vdt/pointer.hpp"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>

using namespace varnholt;

namespace {

void expect(bool holds) {
  if (!holds) std::abort();
}

void readBookmark(std::string_view bytes) {
  const auto bookmark = places::bookmarkOf(bytes);
  expect(bookmark.path.size() + bookmark.folder.size() + bookmark.fileName.size() <= bytes.size());
  (void)bookmark.folderPath();
  (void)bookmark.filePath();
}

void readMostUsed(std::string_view bytes) {
  for (const auto& entry : panels::MostUsed::entriesOf(bytes).entries)
    expect(!entry.name.empty() && entry.folder.ends_with('\\') && entry.hits <= 999'999);
}

// What a note shows is written, and read again, as it was. What is no note shows its bytes, whatever they are.
void readNote(std::string_view bytes) {
  const auto note = core::readRtf(bytes);
  const auto again = core::readRtf(core::writeRtf(note.text));
  expect(again.isWhole && !again.holdsMore && (again.text == note.text || !note.isWhole));
}

void readProject(std::string_view bytes) {
  (void)core::endsWithinLine(bytes);
  for (const auto& line : core::splitEntries(bytes)) {
    expect(core::entryOf(core::lineOf(line)) == line);
    const auto pointer = vdt::pointerOf(line);
    if (!pointer) continue;
    expect(vdt::pointerOf(pointer->key()) == pointer);
    (void)vdt::folderBeforeMark(*pointer);
    (void)vdt::isShort(*pointer);
  }
}

const std::map<std::string_view, void (*)(std::string_view)> Readers = {
    {"bookmark", readBookmark}, {"most-used", readMostUsed}, {"note", readNote}, {"project", readProject}};
void (*reader)(std::string_view) = nullptr;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
  constexpr std::string_view Option = "--reader=";
  for (int at = 1; at < *count; ++at) {
    const std::string_view argument = (*arguments)[at];
    const auto found = argument.starts_with(Option) ? Readers.find(argument.substr(Option.size())) : Readers.end();
    if (found != Readers.end()) reader = found->second;
  }
  if (reader) return 0;
  std::fputs("Which reader? --reader=bookmark, most-used, note or project\n", stderr);
  std::exit(2);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  reader({reinterpret_cast<const char*>(bytes), size});
  return 0;
}
