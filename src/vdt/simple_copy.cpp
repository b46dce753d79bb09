#include "vdt/simple_copy.hpp"

#include "platform/paths.hpp"

#include <vector>

namespace varnholt::vdt {

namespace paths = platform::paths;

void SimpleCopy::run() {
  panels::Panel* panel = desk_.form.activePanel();
  if (!panel || !mayChange(*panel)) return;
  controls::ListView& list = desk_.form.ListView3;
  const std::string folder = panel->path();
  const auto marked = markFiles();
  if (!marked.empty() &&
      desk_.program.dialogs.AskRetry(
          "Are you sure you want to Copy " + std::to_string(marked.size()) +
          " selected file(s) From VDT ?\r(Only NON Existing files on target are Copied !)\rTo: " + folder)) {
    desk_.pointer() = controls::pointer::Hourglass;
    desk_.dispatcher.busy = true;
    copyAll(marked, folder);
    desk_.listing.ViewUpdateAll(folder);
    desk_.dispatcher.commandDone();
  }
  list.selectNone();
  list.clearGhosted();
  list.clearColors();
  leftOut_.tell();
}

bool SimpleCopy::mayChange(const panels::Panel& panel) const {
  const auto drive = desk_.program.drive(panel.driveRoot().front());
  const bool ready = drive && drive->ready;
  if (ready && !drive->isCompactDisc()) return true;
  desk_.program.dialogs.alert(ready ? "Cannot Change Data On CD-Rom/DVD-Rom !\rFunction Exits !"
                                    : "Cannot Change Data, - Drive(s) Not Ready !\rFunction Exits !");
  return false;
}

// Their paths: what answers of drives do to the rows from here on changes nothing of what was asked.
std::vector<std::string> SimpleCopy::markFiles() {
  std::vector<std::string> marked;
  for (const std::uint32_t id : desk_.form.ListView3.selectedIds()) {
    if (list_.at(id).isFolder()) continue;
    desk_.form.ListView3.setForeColor(id, panels::mark_color::Copy);
    marked.push_back(list_.at(id).key());
  }
  return marked;
}

void SimpleCopy::copyAll(const std::vector<std::string>& sources, const std::string& folder) {
  std::size_t done = 0;
  for (const std::string& source : sources) {
    copyFile(source, folder);
    desk_.form.ProgressBar1.Value = 100.0 * static_cast<double>(++done) / static_cast<double>(sources.size());
  }
  writeOut(folder);
}

// A target that comes up behind the test stays, too.
void SimpleCopy::copyFile(const std::string& source, const std::string& folder) {
  using platform::ErrorCode;
  platform::Result<void> copied;
  desk_.program.loop.runBlocking([&] {
    auto& files = desk_.files();
    const std::string target = paths::join(folder, paths::fileName(source));
    if (files.fileExists(source) && !files.fileExists(target)) copied = files.copyFile(source, target, false);
  });
  if (copied) return;
  const ErrorCode code = copied.error().code;
  if (code != ErrorCode::AlreadyThere && code != ErrorCode::NotFound)
    leftOut_.add(platform::Error{code, source, copied.error().text});
}

void SimpleCopy::writeOut(const std::string& folder) {
  platform::Result<void> written;
  desk_.program.loop.runBlocking([&] {
    const auto volume = desk_.files().volume(folder);
    written = desk_.files().writeOut(folder, volume && volume->mayBePulledOut());
  });
  if (!written)
    leftOut_.add(
        platform::Error{written.error().code, folder, "not written out to the medium: " + written.error().text});
}

}  // namespace varnholt::vdt
