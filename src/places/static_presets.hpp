#pragma once

#include "controls/list_view.hpp"
#include "controls/message_loop.hpp"
#include "places/preset_store.hpp"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace varnholt::places {

/// Columns of the lists of presets, and the icons that say whether both folders of a row are there.
std::map<int, std::string> presetIcons();
/// Icon and colour of a row say whether both folders of its pair are there. Gives the row's tool tip, with the folders.
std::string markPair(panels::Desk& desk, controls::ListItem row, const FolderPair& pair);
inline constexpr int ValidIcon = 1, BrokenIcon = 2, SortedDownIcon = 3, SortedUpIcon = 4;

/// "New Preset": name and description of one.
class Form21 : public controls::Form {
 public:
  explicit Form21(core::Program& program);

  controls::TextBox Text1{*this, "Text1"}, Text2{*this, "Text2"};
  controls::Button Command11{*this, "Command11"}, Command3{*this, "Command3"};

  struct Preset {
    std::string name, text;
  };
  /// Name in upper case, empty when the user gave none; nothing when the user cancels.
  std::optional<Preset> ask();
  /// A name that cannot be taken.
  std::function<bool(const std::string& name)> isTaken;

 private:
  void Command11_Click();

  core::Program& program_;
  std::optional<Preset> taken_;
};

/// "Static Preset View": the presets that the user has named.
class Form20 : public controls::Form {
 public:
  explicit Form20(panels::Desk& desk, places::Form21& Form21);

  controls::ListView ListView1{*this, "ListView1"};
  controls::Button Command11{*this, "Command11"};  ///< folders of the last exit
  controls::Button Command2{*this, "Command2"};    ///< new
  controls::Button Command1{*this, "Command1"};    ///< delete
  controls::Button Command4{*this, "Command4"};    ///< delete all
  controls::Button Command3{*this, "Command3"};    ///< close

  /// Opens, unless there is no Windows folder, which the user is told.
  void open();
  /// Both panels go to the folders of the last exit.
  std::function<void()> Presetfolder;
  /// Runs what moves both panels as one move.
  std::function<bool(const std::function<bool()>&)> asOneMove;

 private:
  void setTexts();
  void Form_Load();
  void addRow(const std::string& name, const std::string& text);
  void showNames();
  void ListView1_Click();
  void activate();
  void Command1_Click();
  void Command2_Click();
  void Command4_Click();

  panels::Desk& desk_;
  places::Form21& Form21_;
  PresetStore store_;
  std::vector<std::string> tips_;  ///< of the rows
};

}  // namespace varnholt::places
