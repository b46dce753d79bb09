#include "tools/help_viewer.hpp"

#include "controls/dress.hpp"
#include "core/program_files.hpp"
#include "core/text_file.hpp"

#include <algorithm>
#include <iterator>
#include <map>

namespace varnholt::tools {
namespace {

namespace key = controls::key;

constexpr std::string_view HelpText = "\\Help.txt";
constexpr int Page = 10, TopicIcon = 1;

/// Stands in place of what cannot be read.
constexpr std::string_view Missing = "# The help text is missing\n"
                                     "The file Help.txt, in which the windows are explained, is not there or cannot be "
                                     "read. Install the program anew to have it back.\n\n"
                                     "What each command does is told in the topics below: they are made by the program "
                                     "itself.\n";
constexpr std::string_view Damaged = "# The help text is not whole\n"
                                     "The file Help.txt could not be read to its end. Install the program anew to have "
                                     "all of it.\n\n"
                                     "What could be read is shown, and what each command does is told in the topics "
                                     "behind it.\n";

}  // namespace

tools::frmHelp::frmHelp(panels::Desk& desk) : Form(desk.program.loop, "frmHelp"), desk_(desk) {
  Caption = "Varnholt Help";
  lblSearch.Caption = "&Search:";
  dress(txtSearch, "Words to search for", "Words that the topics hold; Up and Down go through the topics (Ctrl+F)");
  lstTopics.AccessibleName = "Topics";
  lstTopics.ToolTipText = "The topics that hold the words";
  lstTopics.MultiSelect = false;
  lstTopics.setSorted(false);
  lstTopics.ImageList = std::map<int, std::string>{{TopicIcon, "help"}};
  lstTopics.ColumnHeaders = std::vector<controls::ColumnHeader>{{"Topics:", 4000, 0, false}};
  rtbText.AccessibleName = "Text of the topic";
  rtbText.ToolTipText = "What the topic tells";
  rtbText.Locked = true;
  lblFound.AccessibleName = "Number of topics";
  dress(cmdClose, "&Close", "Close the help");
  cancelButton = "cmdClose";
  KeyDown = [this](controls::KeyEvent& event) { Form_KeyDown(event); };
  txtSearch.KeyDown = [this](controls::KeyEvent& event) { txtSearch_KeyDown(event); };
  txtSearch.Change = [this] { search(); };
  lstTopics.ItemClick = [this](controls::ListItem) { showChosen(); };
  lstTopics.KeySelect = [this](bool) { showChosen(); };
  cmdClose.Click = [this] { UnloadForm(); };
}

void tools::frmHelp::showFor(const std::string& form) {
  if (!Visible) readTopics();
  txtSearch.Text = "";
  search();
  const auto topic = std::ranges::find_if(topics_, [&](const HelpTopic& each) { return each.isHelpOf(form); });
  if (topic != topics_.end()) choose(static_cast<std::uint32_t>(topic - topics_.begin()));
  if (Visible) return;
  lstTopics.SetFocus();
  ShowModal();
}

// --- Topics --------------------------------------------------------------------------------------------------------

void tools::frmHelp::readTopics() {
  topics_ = writtenTopics();
  std::ranges::move(commandTopics(desk_.form.commands), std::back_inserter(topics_));
  search_ = HelpSearch(topics_);
}

std::vector<HelpTopic> tools::frmHelp::writtenTopics() const {
  const platform::Platform& platform = desk_.program.platform;
  core::FileText text;
  if (!platform.assetsFolder.empty())
    text = core::readText(desk_.files(), platform.assetsFolder + "\\program" + std::string(HelpText));
  if (text.bytes.empty() || !text.whole)
    if (auto copy = core::readText(desk_.files(), core::program_file::path(platform, HelpText)); !copy.bytes.empty())
      text = std::move(copy);
  std::vector<HelpTopic> topics = readHelp(text.bytes);
  if (topics.empty()) return readHelp(Missing);
  if (!text.whole) topics.insert(topics.begin(), readHelp(Damaged).front());
  return topics;
}

// --- Finding -------------------------------------------------------------------------------------------------------

void tools::frmHelp::search() {
  found_ = search_.find(txtSearch.Text.get());
  lstTopics.clear();
  for (const std::size_t at : found_)
    lstTopics.add(topics_[at].title, TopicIcon);
  lblFound.Caption = found_.empty() ? "No topic holds these words." : std::to_string(found_.size()) + " topic(s)";
  if (found_.empty())
    rtbText.setDocument({});
  else
    choose(0);
}

void tools::frmHelp::Form_KeyDown(controls::KeyEvent& event) {
  if (event.code != 'F' || !event.modifiers.ctrl || event.modifiers.alt || event.modifiers.shift) return;
  event.handled = true;
  txtSearch.SetFocus();
}

// The topics can be gone through without leaving the words.
void tools::frmHelp::txtSearch_KeyDown(controls::KeyEvent& event) {
  if (event.modifiers.ctrl || event.modifiers.alt || event.modifiers.shift) return;
  const int by = event.code == key::Up         ? -1
                 : event.code == key::Down     ? 1
                 : event.code == key::PageUp   ? -Page
                 : event.code == key::PageDown ? Page
                                               : 0;
  event.handled = by != 0 || event.code == key::Enter;
  if (by != 0) step(by);
  if (event.code == key::Enter && !found_.empty()) lstTopics.SetFocus();
}

void tools::frmHelp::step(int by) {
  if (found_.empty()) return;
  const int last = static_cast<int>(found_.size()) - 1;
  choose(static_cast<std::uint32_t>(std::clamp(static_cast<int>(lstTopics.focusedRow().value_or(0)) + by, 0, last)));
}

void tools::frmHelp::choose(std::uint32_t row) {
  lstTopics.chooseRow(row);
  showChosen();
}

void tools::frmHelp::showChosen() {
  if (const auto row = lstTopics.SelectedItem()) rtbText.setDocument(topics_[found_[row->id()]].text);
}

}  // namespace varnholt::tools
