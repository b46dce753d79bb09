#include "places/notes.hpp"

#include "controls/dress.hpp"
#include "core/program_files.hpp"
#include "core/rtf.hpp"
#include "core/text_character.hpp"
#include "core/val_input_rule.hpp"
#include "platform/paths.hpp"

#include <algorithm>
#include <array>
#include <charconv>

namespace varnholt::places {
namespace {

namespace paths = platform::paths;

// One of this length stands after a second, or after four where it is a few long paragraphs, and nothing else happens
// meanwhile.
constexpr std::uint64_t LongestNote = 8u << 20;
constexpr const char *DefaultName = "My Note Name", *EmptyName = "Key File Name!",
                     *FirstWords = "Write your Note Here:";

constexpr std::array<int, 10> Sizes{8, 9, 10, 11, 12, 14, 18, 24, 36, 48};  // points

struct NamedColor {
  const char* name;
  controls::Color color;
};
constexpr NamedColor Colors[] = {{"Standard", controls::NoColor},
                                 {"Red", 0x4040FF},
                                 {"Orange", 0x0080FF},
                                 {"Yellow", 0x00FFFF},
                                 {"Green", 0x00C000},
                                 {"Cyan", 0xFFFF00},
                                 {"Blue", 0xFF8040},
                                 {"Violet", 0xFF60C0},
                                 {"Gray", 0x909090}};

}  // namespace

// --- Form46 --------------------------------------------------------------------------------------------------------

places::Form46::Form46(panels::Desk& desk)
    : Form(desk.program.loop, "Form46"),
      notes(desk, ListView1, {core::program_file::Notes, ".Rtf", "Note Name:", place_icon::Note}),
      desk_(desk) {
  Caption = "My Notes";
  cancelButton = "Command3";
  setTexts();
  bind();
}

void places::Form46::setTexts() {
  ListView1.AccessibleName = "Notes";
  ListView1.ToolTipText = "Click to Load Note, Dbl. Click to Open it with its program.";
  Label1.Caption = "&Name:";
  dress(Text1, "Name of the note", "Key Your Note Name Here As Valid FileName Without Extension.");
  dress(Command5, "", "Bold (Ctrl+B)", "bold");
  dress(Command6, "", "Italic (Ctrl+I)", "italic");
  dress(Command7, "", "Underline (Ctrl+U)", "underline");
  Label2.Caption = "Si&ze:";
  Combo1.AccessibleName = "Size of the text";
  Combo1.ToolTipText = "Size of the selected text";
  for (const int size : Sizes)
    Combo1.AddItem(std::to_string(size));
  Label3.Caption = "&Color:";
  Combo2.AccessibleName = "Color of the text";
  Combo2.ToolTipText = "Color of the selected text";
  for (const auto& each : Colors)
    Combo2.AddItem(each.name);
  RichTextBox1.AccessibleName = "Text of the note";
  RichTextBox1.ToolTipText = "The note itself";
  dress(Command1, "&Save Note", "Save Note With TextBox Name");
  dress(Command11, "Save And E&xit", "Save Note And Exit");
  dress(Command2, "&Delete", "Delete Selected Item.");
  dress(Command4, "Delete &All", "Delete All Items In View");
  dress(Command3, "Cance&l", "Close without saving");
}

void places::Form46::bind() {
  Load = [this] { Form_Load(); };
  QueryUnload = [this](bool& keep) { keep = !mayLose(); };
  Activate = [this] { notes.showDateHeader(); };
  KeyDown = [this](controls::KeyEvent& event) { Form_KeyDown(event); };
  notes.selected = [this] { ListView1_Click(); };
  notes.opened = [this](controls::ListItem row) { ListView1_DblClick(row); };
  notes.deleted = [this] { Command2_Click(); };
  Text1.DblClick = [this] { Text1.Text = ""; };
  RichTextBox1.Change = [this] { changed_ = true; };
  RichTextBox1.SelChange = [this] { showFormat(); };
  Command5.Click = [this] { RichTextBox1.format({.bold = !RichTextBox1.SelFormat().bold}); };
  Command6.Click = [this] { RichTextBox1.format({.italic = !RichTextBox1.SelFormat().italic}); };
  Command7.Click = [this] { RichTextBox1.format({.underline = !RichTextBox1.SelFormat().underline}); };
  Combo1.Click = [this] {
    const int at = Combo1.ListIndex;
    if (at >= 0) RichTextBox1.format({.size = 2 * Sizes[static_cast<std::size_t>(at)]});
    RichTextBox1.SetFocus();
  };
  Combo2.Click = [this] {
    const int at = Combo2.ListIndex;
    if (at >= 0) RichTextBox1.format({.color = Colors[at].color});
    RichTextBox1.SetFocus();
  };
  Command1.Click = [this] { (void)save(); };
  Command2.Click = [this] { Command2_Click(); };
  Command3.Click = [this] { UnloadForm(); };
  Command4.Click = [this] { Command4_Click(); };
  Command11.Click = [this] {
    if (save()) UnloadForm();
  };
}

void places::Form46::Form_Load() {
  notes.resetColumns();
  notes.refresh();
  loaded_.clear();
  changed_ = false;
  resetName();
  RichTextBox1.setDocument(controls::RichText::of(FirstWords));
  RichTextBox1.SetFocus();
  showFormat();
}

void places::Form46::Form_KeyDown(controls::KeyEvent& event) {
  if (!event.modifiers.ctrl || event.modifiers.alt || event.modifiers.shift || !RichTextBox1.hasFocus()) return;
  controls::Button* const button = event.code == 'B'   ? &Command5
                                   : event.code == 'I' ? &Command6
                                   : event.code == 'U' ? &Command7
                                                       : nullptr;
  if (!button) return;
  event.handled = true;
  button->press();
}

// --- The look ------------------------------------------------------------------------------------------------------

void places::Form46::showFormat() {
  const controls::TextFormat& format = RichTextBox1.SelFormat();
  Command5.Accented = format.bold;
  Command6.Accented = format.italic;
  Command7.Accented = format.underline;
  const auto size = std::ranges::find(Sizes, format.size / 2);
  Combo1.choose(size == Sizes.end() ? -1 : static_cast<int>(size - Sizes.begin()));
  const auto color = std::ranges::find(Colors, format.color, &NamedColor::color);
  Combo2.choose(color == std::end(Colors) ? -1 : static_cast<int>(color - Colors));
}

// --- Loading -------------------------------------------------------------------------------------------------------

void places::Form46::ListView1_Click() {
  const auto row = notes.inHand();
  if (!row || !row->Selected()) return;
  const std::string name = row->Text();
  // What was changed in the very note that is clicked stays.
  if ((name != loaded_ || !changed_) && !load(name)) return;
  Text1.Text = std::string(paths::baseName(name));
}

bool places::Form46::load(const std::string& name) {
  if (!mayLose()) {
    if (loaded_.empty() || !notes.selectName(loaded_)) ListView1.selectNone();
    return false;
  }
  const auto bytes = desk_.files().readFile(notes.folder() + name, LongestNote);
  if (!bytes) {
    desk_.program.dialogs.alert("Cannot Load Note !\r" + name + " :  " + bytes.error().text);
    return false;
  }
  RichTextBox1.setDocument(core::readRtf(*bytes).text);
  loaded_ = name;
  changed_ = false;
  return true;
}

void places::Form46::ListView1_DblClick(controls::ListItem row) {
  if (!desk_.files().fileExists(notes.path(row)))
    return desk_.program.dialogs.alert("Invalid Path, - File Do Not Exist !");
  desk_.opener.open(notes.path(row));
}

bool places::Form46::mayLose() {
  if (changed_ && !desk_.program.dialogs.AskRetry("Your Note Is Not Saved !\rLeave It ?")) return false;
  changed_ = false;
  return true;
}

void places::Form46::resetName() { Text1.Text = DefaultName; }

// --- Saving --------------------------------------------------------------------------------------------------------

bool places::Form46::save() {
  auto& dialogs = desk_.program.dialogs;
  const std::string name(core::trimmed(Text1.Text.get()));
  if (name.empty() || name == EmptyName) {
    Text1.prompt(EmptyName);
    return false;
  }
  if (const auto refused = core::firstRefusedCharacter(name)) {
    dialogs.alert(core::refusedCharacterText(*refused));
    Text1.SetFocus();
    return false;
  }
  // A note of elsewhere may write its extension in small letters: it is the note of that name all the same.
  const std::string file = paths::baseName(loaded_) == name ? notes.folder() + loaded_ : notes.fileOf(name);
  if (!notes.makeFolder() || !mayReplace(name, file)) return false;
  const auto written = kept_.write(file, core::writeRtf(RichTextBox1.Document()));
  if (!written) {
    dialogs.alert("Cannot Save Note !\r" + name + " :  " + written.error().text);
    return false;
  }
  changed_ = false;
  notes.refresh();
  loaded_ = std::string(paths::fileName(file));
  notes.selectName(loaded_);
  resetName();
  desk_.listing.ViewUpdateAll(notes.folder());
  return true;
}

bool places::Form46::mayReplace(const std::string& name, const std::string& file) {
  if (!desk_.files().fileExists(file)) return true;
  auto& dialogs = desk_.program.dialogs;
  if (!dialogs.AskRetry("Note:  \r" + name + "   Already Exist !\rDo You Want To OverWrite ?")) return false;
  const core::RtfText there = core::readRtf(kept_.read(file));
  if (!there.isWhole) kept_.foundCutOff(file);
  if (!kept_.wasReadWhole(file)) return true;
  return !there.holdsMore ||
         dialogs.AskRetry("Note:  \r" + name +
                          "   Holds More Than Text And Its Look !\rPictures, tables, fonts and alike "
                          "are lost. Save ?");
}

// --- Deleting ------------------------------------------------------------------------------------------------------

void places::Form46::Command2_Click() {
  const auto files = notes.markSelected();
  if (files.empty()) return desk_.selection.nonselect();
  notes.deleteFiles(files);
  loaded_.clear();
  resetName();
}

void places::Form46::Command4_Click() {
  if (!desk_.program.dialogs.AskRetry("You Are About To Delete All Notes !\rAre You Sure ?")) return;
  const auto listing = desk_.files().list(notes.folder());
  if (!listing) return;
  std::vector<std::string> files;
  for (const platform::Entry& entry : (*listing)->files())
    if (entry.name != core::program_file::OwnMark.substr(1)) files.push_back(notes.folder() + std::string(entry.name));
  notes.deleteFiles(files);
  loaded_.clear();
  resetName();
}

// --- Notes ---------------------------------------------------------------------------------------------------------

Notes::Notes(panels::Desk& desk) : desk_(desk), Form46(desk) {}

void Notes::MyNotes_Click() {
  Form46.ShowModal();
  desk_.listing.FocusView();
}

void Notes::addCommands(panels::CommandTable& table) {
  table.add({{.handler = "MyNotes_Click",
              .toolTip = "Write, read and delete notes",
              .icon = "notes",
              .heading = "Places",
              .menuText = "&My Notes",
              .newGroup = true,
              .run = [this] { MyNotes_Click(); }}});
}

}  // namespace varnholt::places
