#include "cleanup/clean.hpp"

#include "core/item_text.hpp"
#include "core/program_files.hpp"
#include "platform/paths.hpp"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace varnholt::cleanup {
namespace {

namespace paths = platform::paths;

constexpr std::size_t NamedFiles = 5;

}  // namespace

Clean::Clean(panels::Desk& desk, fileops::Desktop& desktop, const panels::Icons& icons, Form16& dialog, Form23& choice,
             Scan& scan)
    : desk_(desk),
      desktop_(desktop),
      icons_(icons),
      Form16_(dialog),
      Form23_(choice),
      scan_(scan),
      collections_(desk.program) {
  Form16_.Command3.Click = [this] { Command3_Click(); };
  Form16_.Command6.Click = [this] { Command6_Click(); };
  Form16_.Command8.Click = [this] { Command8_Click(); };
  Form16_.Command9.Click = [this] { Command9_Click(); };
  Form16_.ListView1.ItemClick = [this](controls::ListItem) { ListView1_Click(); };
  Form16_.ListView1.KeySelect = [this](bool) { ListView1_Click(); };
  Form16_.ListView1.DblClick = [this] { ListView1_DblClick(); };
  Form16_.ListView1.KeyDown = [this](controls::KeyEvent& event) {
    if (event.code != controls::key::Enter) return;
    event.handled = true;
    ListView1_DblClick();
  };
  Form23_.Command1.Click = [this] {
    Cleanselected();
    Form23_.UnloadForm();
  };
  Form23_.Command2.Click = [this] {
    Cleanall();
    Form23_.UnloadForm();
  };
}

// --- The selection -------------------------------------------------------------------------------------------------

void Clean::ListView1_Click() {
  const HitRows* rows = Form16_.hitRows();
  auto& list = Form16_.ListView1;
  list.clearColors();
  list.clearGhosted();
  desk_.form.filecollect.reset();
  const auto focused = list.SelectedItem();
  if (!rows || !focused) return;
  const std::string path = rows->file(focused->id()).path;
  desk_.form.CurrentItem = path;
  Form16_.Caption = "CleanUp-Search - " + path;
  for (const std::uint32_t id : list.selectedIds()) {
    list.setGhosted(id, true);
    desk_.form.filecollect.push({rows->file(id).path, false});
    PaintRow(id, panels::mark_color::Selection);
  }
  showPreview(path);
}

void Clean::putInHand(std::uint32_t row) {
  auto& list = Form16_.ListView1;
  if (Form16_.hitRows() && list.count() > 0) {
    list.focusRow(std::min(row, list.count() - 1));
    list.SelectedItem()->setSelected(true);
  }
  ListView1_Click();
}

void Clean::PaintRow(std::uint32_t id, controls::Color color) { Form16_.ListView1.setForeColor(id, color); }

void Clean::showPreview(const std::string& path) {
  Form16_.Image2.Picture = path;
  icons_.Iconshow(Form16_.Picture1, path);
}

std::optional<std::string> Clean::fileInHand(const char* gone) {
  const HitRows* rows = Form16_.hitRows();
  const auto row = Form16_.ListView1.SelectedItem();
  if (!rows || !row) return {};
  const std::string path = rows->file(row->id()).path;
  if (desk_.files().fileExists(path)) return path;
  desk_.program.dialogs.inform(gone);
  return {};
}

void Clean::ListView1_DblClick() {
  const auto path = fileInHand("\rFile/Folder Path NOT Valid !");
  if (!path) return;
  desk_.mostUsed.Muf(*path);
  desk_.opener.OpenItemPath(*path);
}

void Clean::Command6_Click() {
  const auto path = fileInHand("\rFile Path NOT Valid !");
  if (!path || !desk_.navigation.GoToDirection(*path)) return;
  Form16_.Hide();
  desk_.listing.FocusView();
}

void Clean::Command9_Click() {
  if (const auto path = fileInHand("\rFile Path NOT Valid !"))
    desktop_.copy({*path}, [this](const fileops::LongCall& call) {
      Form16_.letStop(true);
      const auto result = Form16_.work.runTelling(Form16_.Command7, call);
      Form16_.letStop(false);
      return result;
    });
  Form16_.ListView1.SetFocus();
}

void Clean::Command8_Click() {
  const HitRows* rows = Form16_.hitRows();
  if (!rows ||
      !desk_.files().folderExists(core::program_file::path(desk_.program.platform, core::program_file::Collections)))
    return;
  std::vector<std::string> shown;
  for (std::uint32_t row = 0; row < Form16_.ListView1.count(); ++row)
    shown.push_back(rows->line(Form16_.ListView1.idAt(row)));
  const auto found = desk_.files().resolveAll(shown);
  std::deque<core::Item> lines;
  for (std::uint32_t row = 0; row < shown.size(); ++row) {
    const std::string& path = rows->file(Form16_.ListView1.idAt(row)).path;
    // What is shown leads to a twin in other letter case, or into its folder.
    const bool leadsElsewhere = found[row] ? *found[row] != path : desk_.files().fileExists(path);
    lines.push_back({leadsElsewhere ? path : shown[row], false});
  }
  (void)collections_.saveAs(Form16_.Text5, lines, [this](const std::string& question) {
    return desk_.program.dialogs.ask("\r" + question) != core::Answer::No;
  });
}

// --- Cleaning ------------------------------------------------------------------------------------------------------

void Clean::Command3_Click() {
  if (!mayClean()) return;
  Form23_.ShowModal();
  Form16_.ListView1.SetFocus();
}

bool Clean::mayClean() {
  auto& dialogs = desk_.program.dialogs;
  const auto hits = scan_.hits();
  const auto drive = desk_.program.drive((hits ? hits->root : Form16_.root()).front());
  if (!drive || !drive->ready) {
    dialogs.inform("\rCannot Clean, - Drive(s) Not Ready !\rFunction Exits !");
    return false;
  }
  if (drive->isDisc()) {
    dialogs.inform("\rCannot Clean From CD-Rom/DVD-Rom !\rFunction Exits !");
    return false;
  }
  if (!hits || Form16_.ListView1.count() == 0) {
    Form16_.Text1.Text = "Nothing to Clean,- make a new scan !";
    return false;
  }
  if (!desk_.form.filecollect.empty()) return true;
  desk_.selection.nonselect();
  return false;
}

void Clean::Cleanselected() {
  const HitRows* rows = Form16_.hitRows();
  auto& list = Form16_.ListView1;
  const auto selected = list.selectedIds();
  if (!rows || selected.empty()) return;
  std::vector<const platform::FoundFile*> files;
  for (const std::uint32_t id : selected) {
    PaintRow(id, panels::mark_color::Delete);
    const auto* file = &rows->file(id);
    if (files.empty() || files.back() != file) files.push_back(file);
  }
  (void)deleteFiles(files);
  // What is still there keeps its row: it may be tried again.
  const std::unordered_set<std::uint32_t> tried(selected.begin(), selected.end());
  const auto& hits = *scan_.hits();
  auto left = std::make_shared<Hits>(hits);
  left->rows.clear();
  for (std::uint32_t at = 0; at < list.count(); ++at) {
    const std::uint32_t id = list.idAt(at);
    if (!tried.contains(id) || desk_.program.platform.files.fileExists(rows->file(id).path))
      left->rows.push_back(hits.rows[id]);
  }
  const std::uint32_t row = list.focusedRow().value_or(0);
  scan_.keep(left);
  Form16_.show(left);
  if (list.count() == 0) Form16_.clearHits();
  Form16_.setRunning(false);
  putInHand(row);
}

void Clean::Cleanall() {
  auto& list = Form16_.ListView1;
  auto& dialogs = desk_.program.dialogs;
  const auto hits = scan_.hits();
  if (!hits || list.count() == 0) return;
  for (std::uint32_t id = 0; id < list.count(); ++id)
    PaintRow(id, panels::mark_color::Delete);
  // All that the scan has found, in its reverse order; of what has gone since, nothing is left to do.
  std::vector<const platform::FoundFile*> files;
  for (std::size_t at = hits->files.size(); at-- > 0;)
    files.push_back(&hits->files[at]);
  const std::string sum = core::panelSize(hits->bytes, desk_.program.platform.regional);
  const auto answer =
      dialogs.ask("\rCleaning Up " + std::to_string(files.size()) + " Files!, - FreeSpace Achived : " + sum + " Bytes");
  dialogs.Form11.AlertAnswer = core::Answer::None;
  if (answer == core::Answer::No) {
    list.clearColors();
    Form16_.Text1.Text = "CleanUp Canceled . . . . . , - Make a new scan to CleanUp !";
    Form16_.Timer1.Enabled = true;
  } else {
    const std::size_t stay = files.size() - deleteFiles(files);
    Form16_.Text1.Text = stay == 0 ? "System Cleaned !"
                                   : "System NOT Cleaned proberly !, - Try Another Scan.. (" + std::to_string(stay) +
                                         " File(s) still there)";
    Form16_.clearHits();
  }
  scan_.forget();
  desk_.form.filecollect.reset();
  Form16_.setRunning(false);
}

std::vector<std::string> Clean::withoutChanged(const std::vector<const platform::FoundFile*>& files) {
  std::vector<std::string> same, others;
  desk_.program.loop.runBlocking([&] {
    for (const platform::FoundFile* file : files) {
      const auto now = desk_.files().info(file->path);
      const bool isSame = !now || now->isLink || (now->size == file->size && now->modified == file->modified);
      (isSame ? same : others).push_back(file->path);
    }
  });
  if (others.empty()) return same;
  std::string question = std::to_string(others.size()) + " File(s) have changed since the scan. Delete them too ?";
  for (std::size_t at = 0; at < std::min(others.size(), NamedFiles); ++at)
    question += "\r" + std::string(paths::fileName(others[at]));
  if (!desk_.program.dialogs.AskRetry(question)) return same;
  same.clear();
  for (const platform::FoundFile* file : files)
    same.push_back(file->path);
  return same;
}

std::size_t Clean::deleteFiles(const std::vector<const platform::FoundFile*>& files) {
  const std::vector<std::string> going = withoutChanged(files);
  std::size_t gone = 0;
  auto& pointer = desk_.pointer();
  pointer = controls::pointer::Hourglass;
  desk_.program.loop.runBlocking([&] {
    for (const auto& deleted : desk_.files().deleteBelow(scan_.hits()->root, going))
      gone += deleted || deleted.error().code == platform::ErrorCode::NotFound;
    (void)desk_.files().writeOut(scan_.hits()->root, false);
  });
  pointer = controls::pointer::Default;
  desk_.listing.ViewRenew();
  return gone;
}

}  // namespace varnholt::cleanup
