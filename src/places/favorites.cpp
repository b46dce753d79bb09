#include "places/favorites.hpp"

#include "controls/dress.hpp"
#include "core/program_files.hpp"
#include "core/system_tools.hpp"
#include "core/text_character.hpp"
#include "core/text_file.hpp"
#include "core/val_input_rule.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

namespace varnholt::places {
namespace {

namespace paths = platform::paths;

constexpr const char* CreationTitle = "Favorit Creation";
/// More than two lines of the longest paths; a file of any size may lie there.
constexpr std::uint64_t Beginning = 1 << 16;

}  // namespace

// --- Form27 --------------------------------------------------------------------------------------------------------

places::Form27::Form27(core::MessageDialogs& dialogs) : NameForm(dialogs.loop(), "Form27"), dialogs_(dialogs) {
  Caption = CreationTitle;
  Image1.ToolTipText = CreationTitle;
  dress(Text1, "Name of the favorite", "Key in Valit Filename without any backslash, extension  ect.");
  dress(Command11, "Create Favorit", "Create Favorit");
  Command11.Click = [this] { Command11_Click(); };
}

std::optional<std::string> places::Form27::ask(const std::string& preset, const controls::Form& mainWindow) {
  accepted_ = false;
  Caption = CreationTitle;
  Text1.Text = preset;
  Text1.SetFocus();
  placeBeside(mainWindow);
  ShowModal();
  if (!accepted_) return {};
  return Text1.Text.get();
}

void places::Form27::Command11_Click() {
  constexpr const char* Empty = "Key in Favorit name !.";
  const std::string name(core::trimmed(Text1.Text.get()));
  if (name.empty() || name == Empty) return Text1.prompt(Empty);
  if (const auto refused = core::firstRefusedCharacter(name)) {
    dialogs_.alert(core::refusedCharacterText(*refused));
    Caption = CreationTitle;
    return Text1.SetFocus();
  }
  Text1.Text = name;
  accepted_ = true;
  UnloadForm();
}

// --- Form26 --------------------------------------------------------------------------------------------------------

places::Form26::Form26(panels::Desk& desk, rename::Rename& rename)
    : PlacesForm(desk, rename, "Form26", {core::program_file::Favorites, ".Url", "Name:", place_icon::Favorite},
                 {rename::Caller::Favourite, " Favorit(es) !"}) {
  Caption = "Favorites";
  ListView1.AccessibleName = "Favorites";
  ListView1.ToolTipText = "Dbl. Click to Open Favorit, or press Enter key.";
  dress(Command1, "&Delete Favorit(s)", "Delete Selected Favorit(s)");
  dress(Command4, "&Rename Favorit", "Rename Selected Favorit");
  dress(Command3, "&Cancel", "Close the Favorites");
}

bool places::Form26::FavoritExist(const std::string& favorite) const {
  constexpr std::size_t MarkAt = 8;
  constexpr std::string_view Mark = "file://";
  const auto bytes = desk_.files().readBeginning(favorite, Beginning);
  const auto lines = bytes ? core::splitLines(*bytes) : std::vector<std::string>();
  const std::string second = lines.size() > 1 ? lines[1] : std::string();
  if (bytes && (second.size() < MarkAt || second.compare(MarkAt, Mark.size(), Mark) != 0)) return true;
  const std::string target = bytes ? second.substr(MarkAt + Mark.size()) : std::string();
  const auto found = desk_.files().resolve(target);
  if (found && desk_.files().fileExists(*found)) return true;
  desk_.program.dialogs.alert("Favorit has changed and NOT Valid !");
  return false;
}

void places::Form26::open(controls::ListItem row) {
  const std::string favorite = places.path(row);
  if (!FavoritExist(favorite)) return;
  desk_.mostUsed.Muf(favorite);
  desk_.opener.OpenItemPath(favorite);
}

// --- Commands ------------------------------------------------------------------------------------------------------

Favorites::Favorites(panels::Desk& desk, rename::Rename& rename)
    : desk_(desk), Form27(desk.program.dialogs), Form26(desk, rename) {}

void Favorites::addfavor_Click() {
  if (!desk_.dispatcher.panelPreCheck()) return;
  addFavorite(*desk_.form.activePanel());
  desk_.dispatcher.commandDone();
}

void Favorites::addFavorite(const panels::Panel& panel) {
  auto& dialogs = desk_.program.dialogs;
  if (!Form26.places.makeFolder()) return;
  const auto item = panel.list.SelectedItem();
  if (!item) return desk_.selection.nonselect();
  if (panel.isFolder(*item)) return dialogs.inform("Cannot Create Folder Favorite !");
  const std::string target = panel.itemPath(*item);
  const auto name = Form27.ask(item->Text(), desk_.form);
  if (!name) return;
  const std::string file = Form26.places.fileOf(*name);
  if (desk_.files().fileExists(file) && !dialogs.AskRetry("Favorit:  " + *name + "\r\rAlready Exist !, OverWrite ?"))
    return;
  if (platform::foldCase(paths::extension(paths::fileName(target))) == "url")
    return dialogs.inform("Operation NOT Allowed !");
  if (write(file, target)) dialogs.inform("Favorite Created, To Selected Item !");
}

bool Favorites::write(const std::string& file, const std::string& target) {
  const auto written = core::writeLines(
      desk_.files(), file, {"[Default]", "BASEURL=file://" + target, "[InternetShortcut]", "URL=file:///" + target});
  if (!written) desk_.program.dialogs.alert(std::string(paths::fileName(file)) + ":  " + written.error().text);
  desk_.listing.ViewUpdateAll(Form26.places.folder());
  return written.ok();
}

void Favorites::showfavor_Click() {
  desk_.form.setMode("FavoritMode");
  Form26.ShowModal();
  desk_.listing.FocusView();
}

bool Favorites::open(const std::string& file) {
  if (!desk_.files().sameEntry(paths::parent(file), Form26.places.folder())) return false;
  if (!Form26.FavoritExist(file)) return true;
  desk_.mostUsed.Muf(file);
  desk_.opener.openShortcut(file);
  return true;
}

void Favorites::Syncfavorites_Click() {
  auto& dialogs = desk_.program.dialogs;
  const std::string target = core::program_file::path(desk_.program.platform, core::program_file::Favorites);
  if (dialogs.AskRetry("\rYou are about to Import existing windows Favorites to :" + target + "\r\rARE YOU SURE ?") &&
      !import())
    dialogs.inform("Copy Failed To Excecute.. !");
  desk_.listing.FocusView();
  desk_.pointer() = controls::pointer::Default;
  desk_.form.ProgressBar1.Value = 0;
}

bool Favorites::import() {
  if (!Form26.places.makeFolder()) return false;
  const std::string source = paths::withClosing(core::profileFolder(desk_.program, "Favorites"));
  const auto listing = desk_.files().list(source);
  if (!listing && !desk_.files().folderExists(source)) {
    desk_.program.dialogs.inform(".. \\Favorites Folder Do Not Exist !");
    return true;
  }
  if (!listing) return false;
  desk_.pointer() = controls::pointer::Hourglass;
  const auto& files = (*listing)->files();
  std::size_t done = 0;
  bool allCopied = true;
  for (const platform::Entry& entry : files) {
    desk_.form.ProgressBar1.Value = static_cast<double>(++done) / static_cast<double>(files.size()) * 100;
    if (platform::foldCase(paths::extension(entry.name)) != "url") continue;
    allCopied = desk_.files().copyFile(source + std::string(entry.name), Form26.places.folder(), true).ok();
    if (!allCopied) break;
  }
  desk_.listing.ViewUpdateAll(Form26.places.folder());
  return allCopied;
}

}  // namespace varnholt::places
