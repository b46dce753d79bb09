#include "fileops/desktop.hpp"

#include "core/item_text.hpp"
#include "platform/paths.hpp"

#include <atomic>

namespace varnholt::fileops {
namespace {

namespace paths = platform::paths;

// So many bytes may take long enough to be stopped.
constexpr std::uint64_t LongCopy = 16u << 20;

}  // namespace

std::optional<std::string> Desktop::folder() const {
  const std::string folder =
      desk_.program.registry.shellFolder("Desktop", desk_.program.platform.environment.desktopFolder());
  if (!folder.empty() && desk_.files().folderExists(folder)) return paths::withClosing(folder);
  desk_.program.dialogs.inform(".. \\Desktop Folder Do Not Exist !");
  return {};
}

void Desktop::CopyDesktop_Click() {
  if (!desk_.dispatcher.panelPreCheck()) return;
  panels::Panel& panel = *desk_.form.activePanel();
  desk_.selection.ViewClickCopy(panel);
  std::vector<std::string> files;
  for (const core::Item& item : desk_.form.filecollect.items())
    if (!item.isFolder) files.push_back(core::entryPath(item.path, panel.path()));
  files.empty() ? desk_.selection.nonselect() : copySelected(files);
  desk_.dispatcher.commandDone();
}

// What is done at once shows no dialog.
void Desktop::copySelected(const std::vector<std::string>& files) {
  const auto bytes = desk_.program.loop.ask([&] {
    std::uint64_t sum = 0;
    for (const std::string& file : files)
      sum += desk_.files().fileSize(file).valueOr(0);
    return sum;
  });
  if (bytes < LongCopy)
    return copy(files, [](const LongCall& call) { return call([](std::uint64_t) { return true; }); });
  const std::string count = std::to_string(files.size());
  Form3_.Caption = Form3_.words.caption;
  Form3_.showItem(files.size() == 1 ? std::string(paths::fileName(files.front())) : "MultiCopy Selected !");
  Form3_.summary.Text = "Copy " + count + " selected File(s) / Folder(s)";
  Form3_.Label4.Caption = "";
  Form3_.ProgressBar1.Max = static_cast<double>(bytes);
  copy(files, [this](const LongCall& call) { return runInDialog(call); });
}

platform::Result<void> Desktop::runInDialog(const LongCall& call) {
  platform::Result<void> result;
  std::atomic<std::uint64_t> done = 0;
  const auto progress = [&](std::uint64_t bytes) {
    done = bytes;
    return !Form3_.StopFlag;
  };
  Form3_.StopFlag = false;
  Form3_.showProgress("Processing...");
  Form3_.setRunning(true);
  Form3_.Show();
  desk_.program.loop.runBlocking([&] { result = call(progress); },
                                 {[&] { Form3_.ProgressBar1.Value = static_cast<double>(done); }, &Form3_.Command1});
  Form3_.Hide();
  Form3_.setRunning(false);
  Form3_.hideProgress();
  return result;
}

void Desktop::copy(const std::vector<std::string>& files, const Stoppable& run) {
  const auto desktop = folder();
  if (!desktop) return;
  std::vector<std::string> wanted;
  for (const std::string& file : files) {
    const std::string target = *desktop + std::string(paths::fileName(file));
    const bool mayBe = desk_.files().sameEntry(file, target) || !desk_.files().fileExists(target) || mayReplace(target);
    if (mayBe) wanted.push_back(file);
  }
  if (wanted.empty()) return;
  Form3_.Text3.Text = *desktop;
  desk_.pointer() = controls::pointer::Hourglass;
  const auto copied = run([&](const platform::Progress& progress) { return copyFiles(wanted, *desktop, progress); });
  desk_.pointer() = controls::pointer::Default;
  desk_.listing.ViewUpdateAll(*desktop);
  if (!copied && copied.error().code == platform::ErrorCode::Stopped)
    return desk_.program.dialogs.alert("Copy Process Aborted. !");
  desk_.program.dialogs.inform(copied ? "Copy to Desktop Done !" : "Copy Failed To Desktop !");
}

bool Desktop::mayReplace(const std::string& target) const {
  return desk_.program.dialogs.AskRetry("File:  " + std::string(paths::fileName(target)) +
                                        "\rAlready Exist !, OverWrite ?");
}

/// All that can be copied; the last failure, if there is one.
platform::Result<void> Desktop::copyFiles(const std::vector<std::string>& files, const std::string& desktop,
                                          const platform::Progress& progress) const {
  platform::Result<void> result;
  std::uint64_t before = 0;
  for (const std::string& file : files) {
    const std::string target = desktop + std::string(paths::fileName(file));
    if (desk_.files().sameEntry(file, target)) continue;
    const auto copied =
        desk_.files().copyFile(file, target, true, [&](std::uint64_t bytes) { return progress(before + bytes); });
    if (!copied) result = copied;
    if (!copied && copied.error().code == platform::ErrorCode::Stopped) break;
    before += desk_.files().fileSize(file).valueOr(0);
  }
  return result;
}

void Desktop::Copyfrom_desktop_Click() {
  panels::Panel* panel = desk_.form.activePanel();
  const auto desktop = folder();
  if (!panel || !desktop) return;
  if (desk_.navigation.goTo(*panel, *desktop)) desk_.listing.FocusView();
}

}  // namespace varnholt::fileops
