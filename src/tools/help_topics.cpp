#include "tools/help_topics.hpp"

#include "core/text_character.hpp"
#include "core/text_file.hpp"
#include "panels/panel_commands.hpp"
#include "panels/panel_shortcuts.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>
#include <sstream>
#include <utility>

namespace varnholt::tools {
namespace {

using controls::RichText;

constexpr int TextSize = 20, TitleSize = 28;  // half points
constexpr controls::TextFormat Plain{.size = TextSize}, Bold{.bold = true, .size = TextSize},
    Title{.bold = true, .size = TitleSize};

std::vector<std::string> wordsOf(std::string_view text) {
  std::istringstream in{std::string(text)};
  std::vector<std::string> words;
  for (std::string word; in >> word;)
    words.push_back(word);
  return words;
}

std::string withoutMnemonic(std::string_view caption) {
  std::string text;
  for (std::size_t at = 0; at < caption.size(); ++at) {
    if (caption[at] == '&' && at + 1 < caption.size()) ++at;
    text += caption[at];
  }
  return text;
}

HelpTopic begin(std::string title) {
  HelpTopic topic{.title = std::move(title)};
  topic.text.append(topic.title, Title);
  return topic;
}

void addParagraph(RichText& text, std::string_view words, const controls::TextFormat& format = Plain) {
  text.endParagraph();
  text.endParagraph();
  text.append(words, format);
}

void addItem(RichText& text, std::string_view name, std::string_view words) {
  text.endParagraph();
  text.append("\u2022  ", Plain);
  text.append(name, Bold);
  text.append(words, Plain);
}

/// Takes the lines of a help text, one after the other.
class Reader {
 public:
  void take(std::string_view line) {
    if (line.starts_with("# ")) return beginTopic(line.substr(2));
    if (topics.empty()) return;
    if (line.starts_with("@ ")) {
      topics.back().forms = wordsOf(line.substr(2));
    } else if (core::trimmed(line).empty()) {
      inParagraph_ = inList_ = false;
    } else if (line.starts_with("- ")) {
      takeItem(line.substr(2));
    } else {
      takeText(core::trimmed(line));
    }
  }

  std::vector<HelpTopic> topics;

 private:
  void beginTopic(std::string_view title) {
    topics.push_back(begin(std::string(core::trimmed(title))));
    inParagraph_ = inList_ = false;
  }

  void takeItem(std::string_view line) {
    RichText& text = topics.back().text;
    if (!std::exchange(inList_, true)) text.endParagraph();
    const auto colon = line.find(": ");
    const bool isNamed = colon != std::string_view::npos;
    addItem(text, isNamed ? line.substr(0, colon) : std::string_view(),
            isNamed ? "   " + std::string(line.substr(colon + 2)) : std::string(line));
    inParagraph_ = true;
  }

  void takeText(std::string_view line) {
    RichText& text = topics.back().text;
    if (inParagraph_)
      text.append(" " + std::string(line), Plain);
    else
      addParagraph(text, line);
    inParagraph_ = true;
  }

  bool inParagraph_ = false, inList_ = false;
};

std::string keysText(const panels::Command& command) {
  std::vector<std::string> keys = panels::keysOf(panels::entryName(command));
  if (!command.shortcut.empty() && std::ranges::find(keys, command.shortcut) == keys.end())
    keys.push_back(command.shortcut);
  std::string text;
  for (const std::string& key : keys)
    text += (text.empty() ? "   [" : ", ") + key;
  return text.empty() ? text : text + "]";
}

void addCommand(RichText& text, std::string_view name, const panels::Command& command) {
  const std::string tip = command.toolTip == name ? std::string() : "   " + command.toolTip;
  addItem(text, name, keysText(command) + tip);
}

HelpTopic menuTopic(const panels::CommandTable& table, const std::string& menu) {
  HelpTopic topic = begin("Commands of the menu " + menu);
  std::string heading;
  for (const panels::Command& command : table.commands()) {
    if (command.heading.substr(0, command.heading.find('/')) != menu) continue;
    if (std::exchange(heading, command.heading) != command.heading) {
      std::string path = command.heading;
      for (auto slash = path.find('/'); slash != std::string::npos; slash = path.find('/', slash))
        path.replace(slash, 1, " > ");
      addParagraph(topic.text, path, Bold);
    }
    addCommand(topic.text, withoutMnemonic(command.menuText), command);
  }
  return topic;
}

}  // namespace

bool HelpTopic::isHelpOf(std::string_view form) const { return std::ranges::find(forms, form) != forms.end(); }

std::vector<HelpTopic> readHelp(std::string_view text) {
  Reader reader;
  for (const std::string& line : core::splitLines(text))
    reader.take(line);
  return std::move(reader.topics);
}

std::vector<HelpTopic> commandTopics(const panels::CommandTable& table) {
  std::vector<std::string> menus;
  for (const panels::HeadingName& known : panels::headingNames())
    if (known.first.find('/') == std::string_view::npos) menus.emplace_back(known.first);
  HelpTopic buttons = begin("Buttons without an entry in a menu"), lines = begin("Lines at the end of the menu bar");
  std::vector<std::string> told;
  addParagraph(buttons.text, "Each button tells what it is for when the mouse rests on it. The buttons of the command "
                             "row that are not named here stand in the menus, too.");
  buttons.text.endParagraph();
  addParagraph(lines.text, "At the right end of the menu bar stands which filter is at work.");
  lines.text.endParagraph();
  for (const panels::Command& command : table.commands()) {
    const std::string menu = command.heading.substr(0, command.heading.find('/'));
    if (menu == panels::RightEndOfBar) {
      addCommand(lines.text, core::trimmed(command.menuText), command);
    } else if (menu.empty()) {
      const std::string name = command.caption.empty() ? command.toolTip : withoutMnemonic(command.caption);
      // Both panels have a button for each way to go.
      if (std::ranges::find(told, name) != told.end()) continue;
      told.push_back(name);
      addCommand(buttons.text, name, command);
    } else if (std::ranges::find(menus, menu) == menus.end()) {
      menus.push_back(menu);
    }
  }
  std::vector<HelpTopic> topics;
  for (const std::string& menu : menus)
    topics.push_back(menuTopic(table, menu));
  topics.push_back(std::move(buttons));
  topics.push_back(std::move(lines));
  return topics;
}

HelpSearch::HelpSearch(const std::vector<HelpTopic>& topics) {
  for (const HelpTopic& topic : topics)
    topics_.push_back({platform::foldCase(topic.title), platform::foldCase(topic.text.plain())});
}

std::vector<std::size_t> HelpSearch::find(std::string_view words) const {
  const auto wanted = wordsOf(platform::foldCase(words));
  const auto holds = [&wanted](const std::string& text) {
    return std::ranges::all_of(wanted, [&](const std::string& word) { return text.find(word) != std::string::npos; });
  };
  std::vector<std::size_t> found;
  for (std::size_t at = 0; at < topics_.size(); ++at)
    if (holds(topics_[at].all)) found.push_back(at);
  std::stable_partition(found.begin(), found.end(), [&](std::size_t at) { return holds(topics_[at].title); });
  return found;
}

}  // namespace varnholt::tools
