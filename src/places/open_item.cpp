#include "places/open_item.hpp"

#include "controls/dress.hpp"
#include "core/text_character.hpp"
#include "places/open_file.hpp"
#include "platform/text_fold.hpp"

namespace varnholt::places {
namespace {

// What the box says while nothing has been typed.
constexpr const char* Nothing = "Address...";

bool beginsWith(const std::string& text, std::string_view beginning) {
  return platform::foldCase(text.substr(0, beginning.size())) == beginning;
}

bool hasScheme(const std::string& text) { return beginsWith(text, "http://") || beginsWith(text, "https://"); }

}  // namespace

places::Form29::Form29(panels::Desk& desk) : Form(desk.program.loop, "Form29"), desk_(desk) {
  Caption = "Open Item";
  defaultButton = "Command11";
  cancelButton = "Command2";
  Combo1.Editable = true;
  setTexts();
  Load = [this] {
    fill(Nothing);
    Combo1.SetFocus();
  };
  Command1.Click = [this] {
    Combo1.choose(-1);
    Combo1.SetFocus();
  };
  Command3.Click = [this] { Command3_Click(); };
  Command4.Click = [this] { Command4_Click(); };
  Command11.Click = [this] { Command11_Click(); };
  Command2.Click = [this] { UnloadForm(); };
}

void places::Form29::setTexts() {
  Combo1.AccessibleName = "Address, file or folder to open";
  Combo1.ToolTipText = "Key a web address, or the path of a file or folder.";
  dress(Command11, "&Open", "Open Selected Item");
  dress(Command1, "&Reset", "Reset Input Value !");
  dress(Command4, "&Delete", "Deletes Current Item In List.");
  dress(Command3, "C&lear", "Clear All Items In Open Item menu.");
  dress(Command2, "&Cancel", "Cancel Operation");
}

// --- The list ------------------------------------------------------------------------------------------------------

std::string places::Form29::text() const { return std::string(core::trimmed(Combo1.Text.get())); }

void places::Form29::fill(const std::string& text) {
  std::vector<controls::ComboBox::Item> items;
  for (auto item = items_.entries().rbegin(); item != items_.entries().rend(); ++item)
    items.push_back({*item, ""});
  Combo1.Items = std::move(items);
  Combo1.choose(-1);
  Combo1.Text = text;
  Command3.Enabled = Command4.Enabled = !items_.entries().empty();
}

void places::Form29::Openhis_store() {
  const std::string entry = text();
  if (!entry.empty() && entry != Nothing) items_.renew(entry);
  fill(entry);
}

void places::Form29::Command3_Click() {
  items_.clear();
  fill("");
  desk_.program.dialogs.inform("Open Items Cleared In Memory !");
  Combo1.SetFocus();
}

void places::Form29::Command4_Click() {
  items_.remove(text());
  fill("");
  Combo1.SetFocus();
}

void places::Form29::load() { items_.assign(file_.load(desk_.program)); }

platform::Result<void> places::Form29::store() { return file_.store(desk_.program, items_.entries(), items_.limit()); }

// --- Opening -------------------------------------------------------------------------------------------------------

void places::Form29::Command11_Click() {
  if (open(text())) {
    Openhis_store();
    UnloadForm();
  } else {
    Combo1.SetFocus();
  }
}

bool places::Form29::open(const std::string& text) {
  if (hasScheme(text)) return desk_.opener.openAddress(text, text, NoExplorer);
  if (beginsWith(text, "www.")) return desk_.opener.openAddress("http://" + text, "http://" + text, NoExplorer);
  if (text.find_first_of(":\\") != std::string::npos) return openPath(std::string(core::unquoted(text)));
  desk_.program.dialogs.alert("Invalid Input, - [: or \\] missing !");
  return false;
}

bool places::Form29::openPath(const std::string& text) {
  const bool isDrive = text.size() == 2 && text.back() == ':';
  const auto path = desk_.files().resolve(isDrive ? text + '\\' : text);
  if (path && desk_.files().fileExists(*path)) {
    if (!openFile(desk_, *path)) return false;
    desk_.opener.Filehis_store(*path);
    return true;
  }
  if (path && desk_.navigation.GoToDirection(*path)) return true;
  const bool tooMany = text.find("\\\\") != std::string::npos;
  desk_.program.dialogs.alert(tooMany ? "Invalid Input, - To many [ \\ ]  !"
                                      : "Invalid keyword, - Item Do Not Exist !");
  return false;
}

}  // namespace varnholt::places
