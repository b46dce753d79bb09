#include "compare/comparison.hpp"

#include "compare/sync.hpp"
#include "core/text_character.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>
#include <utility>

namespace varnholt::compare {

namespace paths = platform::paths;
using panels::Side;

Comparison::Comparison(panels::Desk& desk, Form30& dialog) : desk_(desk), Form30_(dialog) {
  Form30_.Command1.Click = [this] { Command1_Click(); };
  Form30_.Command11.Click = [this] { Command11_Click(); };
  Form30_.Command2.Click = [this] { Command2_Click(); };
  Form30_.QueryUnload = [this](bool& keep) {
    keep = Form30_.work.running();
    Form30_.work.stop();
  };
}

// --- Opening -------------------------------------------------------------------------------------------------------

void Comparison::open() {
  ComphisL_store();
  ComphisR_store();
  Form30_.prepare();
  Form30_.ShowModal();
  (Form30_.Check1.Value ? desk_.form.ListView1 : desk_.form.ListView2).SetFocus();
  Form30_.blankStatus();
  desk_.listing.FocusView();
}

void Comparison::ComphisL_store() { store(desk_.histories.compareLeft, Form30_.ImageCombo1, desk_.form.Panel1.path()); }

void Comparison::ComphisR_store() {
  store(desk_.histories.compareRight, Form30_.ImageCombo2, desk_.form.Panel2.path());
}

void Comparison::store(panels::History& history, controls::ComboBox& box, const std::string& folder) {
  history.add(paths::withClosing(folder));
  box.Clear();
  int at = 0, chosen = -1;
  for (auto entry = history.entries().rbegin(); entry != history.entries().rend(); ++entry, ++at) {
    box.AddItem(paths::withoutClosing(*entry), "folder");
    if (paths::sameFolder(*entry, folder)) chosen = at;
  }
  box.choose(chosen);
  // Spelled as it is on the disk, where the history knows it in other letters.
  box.Text = paths::withoutClosing(folder);
}

void Comparison::Command1_Click() {
  Form30_.Text1.Visible = false;
  const auto typed = [&](const controls::ComboBox& box) {
    return desk_.files().resolve(std::string(core::unquoted(box.Text.get())));
  };
  const auto left = typed(Form30_.ImageCombo1), right = typed(Form30_.ImageCombo2);
  if (left && right && desk_.files().folderExists(*left) && desk_.files().folderExists(*right)) {
    desk_.navigation.goToPair(*left, *right);
    ComphisL_store();
    ComphisR_store();
    Form30_.FolderLabels();
  } else {
    inform("\rInvalid Path, - Folder Do Not Exist !");
  }
  Form30_.ClearResults();
  Form30_.blankStatus();
  desk_.listing.FocusView();
  Form30_.Command11.SetFocus();
}

void Comparison::Command2_Click() {
  if (Form30_.work.running()) return Form30_.work.stop();
  Form30_.Hide();
}

// --- Execute -------------------------------------------------------------------------------------------------------

void Comparison::Command11_Click() {
  Form30_.Text1.Visible = false;
  if (const auto reason = refusal()) return inform(*reason);
  const bool syncs = Form30_.Check8.Value != 0;
  const bool goesOn =
      !syncs || !Form30_.Check9.Value ||
      desk_.program.dialogs.ask("\rAre You Sure You Want To Synchronize Selected Folders ?\r"
                                "Notice: System and Hidden Files are Chosen Synchronized !") != core::Answer::No;
  if (goesOn) {
    Form30_.setReport(true);
    desk_.histories.ComphisL_save(desk_.program);
    desk_.histories.ComphisR_save(desk_.program);
    Form30_.ProgressBar1.Visible = true;
    Form30_.blankStatus();
    if (run()) desk_.selection.ClickPane();
  }
  Form30_.ProgressBar1.Visible = false;
  if (syncs) keepFailed(Form30_);
}

std::optional<const char*> Comparison::refusal() {
  const std::string left = Form30_.ImageCombo1.Text, right = Form30_.ImageCombo2.Text;
  if (paths::sameFolder(left, right) || desk_.files().sameEntry(left, right))
    return "Folder Cannot Compare/Sync. Itself !";
  if (!paths::sameFolder(left, desk_.form.Panel1.path()) || !paths::sameFolder(right, desk_.form.Panel2.path()))
    return "Apply settings before Execute !.";
  Form30_.FolderLabels();
  if (!anyFile()) return "No Files to Execute In Folders !";
  return {};
}

bool Comparison::anyFile() {
  const auto holdsFile = [this](const panels::Panel& panel) {
    // A row tells it at once, where the folder is not to be read for nothing more than this.
    for (std::uint32_t row = 0; row < panel.list.count(); ++row)
      if (const auto item = panel.list.item(row); !panel.isFolder(item)) {
        if (desk_.files().fileExists(panel.itemPath(item))) return true;
        break;
      }
    const auto listing = desk_.files().list(panel.path());
    return listing && !(*listing)->files().empty();
  };
  return holdsFile(desk_.form.Panel1) || holdsFile(desk_.form.Panel2);
}

bool Comparison::run() {
  const Tests tests = Form30_.tests();
  if (Form30_.Check3.Value) {
    CompareBoth();
  } else if (!tests.exist && !tests.size && !tests.date && !tests.version) {
    inform("No Compare Options are Checked !");
    return false;
  } else {
    Form30_.Check1.Value ? CompareLeftRight() : CompareRightLeft();
  }
  return true;
}

void Comparison::CompareBoth() {
  Form30_.ClearResults();
  compare(Side::Left);
  compare(Side::Right);
  if (found({Side::Left, Side::Right}) && Form30_.Check8.Value)
    execute({Side::Left, Side::Right}, "\rAre You Sure You Want To Synchronize Selected Folders ?");
  Form30_.ProgressBar1.Value = 0;
}

void Comparison::compareOneWay(Side source) {
  Form30_.ClearResults();
  compare(source);
  if (found({source}) && Form30_.Check8.Value)
    execute({source}, source == Side::Left
                          ? "\rAre you sure you want to Synchronize selected Folders, Left to Right ?"
                          : "\rAre you sure you want to Synchronize selected Folders, Right to Left ?");
  Form30_.ProgressBar1.Value = 0;
}

void Comparison::compare(Side source) {
  const panels::Panel& panel = desk_.form.panel(source);
  std::vector<std::string> names;
  for (std::uint32_t row = 0; row < panel.list.count(); ++row)
    if (const auto item = panel.list.item(row); !panel.isFolder(item)) names.push_back(panel.fileName(item));
  const std::string folder = panel.path(), other = desk_.form.otherPanel(panel).path();
  std::vector<Difference> found;
  std::atomic<std::size_t> done = 0;
  const auto walk = [&, tests = Form30_.tests()] {
    const FolderFiles from(desk_.files(), folder, names), to(desk_.files(), other, names);
    found = differences(from, names, to, tests, done);
  };
  desk_.program.loop.runBlocking(walk, {[&] { CompareProgress(done, names.size()); }, nullptr});
  std::vector<Transfer> rows;
  rows.reserve(found.size());
  for (Difference& each : found)
    rows.push_back({std::move(each)});
  if (!rows.empty()) Form30_.show(Form30_.direction(source).list, std::move(rows));
}

void Comparison::CompareProgress(std::size_t count, std::size_t total) {
  if (count <= total && total > 0)
    Form30_.ProgressBar1.Value = static_cast<double>(count) / static_cast<double>(total) * 100;
}

bool Comparison::found(const std::vector<Side>& sources) {
  if (Form30_.ListView1.count() + Form30_.ListView2.count() == 0) {
    inform("No Files To Execute, - ok !");
    return false;
  }
  for (const Side source : sources) {
    const auto direction = Form30_.direction(source);
    Form30_.StatusBar1.setPanel(direction.statusPanel,
                                direction.title + std::to_string(direction.list.count()) + " File(s)");
  }
  return true;
}

void Comparison::execute(const std::vector<Side>& sources, const char* question) {
  if (!Form30_.Check9.Value && desk_.program.dialogs.ask(question) == core::Answer::No) return;
  for (const Side source : sources) {
    const auto direction = Form30_.direction(source);
    if (direction.list.count() == 0) continue;
    syncFiles(desk_, Form30_, direction);
    desk_.listing.ViewClearItems(direction.target);
  }
}

}  // namespace varnholt::compare
