#pragma once

#include "controls/rich_text.hpp"
#include "panels/command_table.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace varnholt::tools {

/// One thing that the help tells of.
struct HelpTopic {
  std::string title;
  std::vector<std::string> forms{};  ///< the windows that it is the help of, by name
  controls::RichText text{};

  bool isHelpOf(std::string_view form) const;
};

/// The topics of a help text. A line "# Title" begins a topic; a line "@ Form3 Form5" in it names its windows.
/// Paragraphs are separated by empty lines, whatever their lines; a line "- Name: words" is a paragraph of its own,
/// with its name in bold. What stands before the first title is passed over.
std::vector<HelpTopic> readHelp(std::string_view text);

/// All commands, as the program knows them: a topic for each menu of the bar, one for the buttons that have no entry
/// in a menu, and one for the lines at the right end of the bar.
std::vector<HelpTopic> commandTopics(const panels::CommandTable& table);

/// Finds topics by words.
class HelpSearch {
 public:
  explicit HelpSearch(const std::vector<HelpTopic>& topics);
  /// Places of the topics that hold all the words, whatever their letter case: first those with all in their title.
  /// Without a word, all topics.
  std::vector<std::size_t> find(std::string_view words) const;

 private:
  struct Folded {
    std::string title, all;
  };
  std::vector<Folded> topics_;
};

}  // namespace varnholt::tools
