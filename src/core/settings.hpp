#pragma once

#include "platform/settings_store.hpp"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace varnholt::core {

/// The two application names under which the store is used.
inline constexpr std::string_view MainApplication = "kelvarton";
inline constexpr std::string_view PresetsApplication = "presets";

/// One key of the settings vocabulary. All values are texts; booleans are "1" and "0".
struct SettingKey {
  std::string_view application, section, key;
  std::string_view fallback;  ///< what a missing or empty value reads as
  std::string_view meaning;   ///< what the value says
};

/// The whole static vocabulary; the presets of the user's own (section: preset name; keys view1path, view2path, Text)
/// come on top.
namespace setting {
using K = SettingKey;
inline constexpr std::string_view M = MainApplication, P = PresetsApplication;

inline constexpr K AutoPosition{M, "AutoPosition", "Init", "0", "1: save the window positions at exit"};
inline constexpr K DateSystem{M, "DateSystem", "Init", "1", "1 modified, 2 created, 3 accessed"};
inline constexpr K DateTimeFormat{M, "DateTimeFormat", "Init", "", "1: 12-hour form, 0: 24-hour; empty: as the region"};
inline constexpr K FolderHistory{M, "FolderHistory", "Init", "1", "1: save the history files at exit"};
inline constexpr K GetColorMenu{M, "GetColorMenu", "Init", "0", "line image: 0 blue, 1 brown, 2 gray"};
inline constexpr K GetColorState{M, "GetColorState", "Init", "0", "1: the other lists use the line image"};
inline constexpr K LastCommand{M, "LastCommand", "Init", "0", "0: pre-folder choice, other: remembered command"};
inline constexpr K LastCommandNumber{M, "LastCommand", "Command", "", "number of the last command"};
inline constexpr K LockCommand{M, "LockCommand", "Init", "0", "1: lock on the last command"};
inline constexpr K MainViewState{M, "MainViewState", "Init", "0", "0 to 3: the grid and shift choice"};
inline constexpr K SelectFolders{M, "SelectFolders", "Init", "0", "1: select all takes folders too"};
inline constexpr K Skintype{M, "Skintype", "Skin", "0", "0 to 7: skin number"};
inline constexpr K SysHidShow{M, "SysHidShow", "Value", "", "1: show hidden and system files"};
inline constexpr K Tip_State{M, "Tip_State", "Init", "0", "1: no tip at start"};
inline constexpr K ValidateCM{M, "ValidateCM", "Init", "0", "1: validate copy and move; -1 reads as on"};
inline constexpr K VDT_State{M, "VDT_State", "Init", "0", "1: Virtual DeskTop on at start"};
inline constexpr K VDTViewState{M, "VDTViewState", "Init", "Default.Pro", "project file name"};
inline constexpr K WinStart{M, "WinStart", "Init", "0", "1: a drive opens at the folder that was shown there last"};

inline constexpr K Left{M, "Position", "Left", "", "of the main window, twips"};
inline constexpr K Top{M, "Position", "Top", "", "of the main window, twips"};
inline constexpr K Width{M, "Position", "Width", "", "of the main window, twips"};
inline constexpr K Hight{M, "Position", "Hight", "", "of the main window, twips"};
inline constexpr K Maximized{M, "Position", "Maximized", "", "1: the main window fills the screen"};
inline constexpr K Leftf9{M, "Position", "Leftf9", "", "of the tree window, twips"};
inline constexpr K Topf9{M, "Position", "Topf9", "", "of the tree window, twips"};
inline constexpr K Widthf9{M, "Position", "Widthf9", "", "of the tree window, twips"};
inline constexpr K Hightf9{M, "Position", "Hightf9", "", "of the tree window, twips"};

inline constexpr K W1Col1{M, "ColumnWidth", "W1Col1", "", "width of a column, twips"};
inline constexpr K W1Col2{M, "ColumnWidth", "W1Col2", "", "width of a column, twips"};
inline constexpr K W1Col3{M, "ColumnWidth", "W1Col3", "", "width of a column, twips"};
inline constexpr K W1Col4{M, "ColumnWidth", "W1Col4", "", "width of a column, twips"};
inline constexpr K W2Col1{M, "ColumnWidth", "W2Col1", "", "width of a column, twips"};
inline constexpr K W2Col2{M, "ColumnWidth", "W2Col2", "", "width of a column, twips"};
inline constexpr K W2Col3{M, "ColumnWidth", "W2Col3", "", "width of a column, twips"};
inline constexpr K W2Col4{M, "ColumnWidth", "W2Col4", "", "width of a column, twips"};
inline constexpr K W3Col1{M, "ColumnWidth", "W3Col1", "", "width of a column, twips"};
inline constexpr K W3Col2{M, "ColumnWidth", "W3Col2", "", "width of a column, twips"};

inline constexpr K FileData{M, "Filefilter", "FileData", "", "file filter pattern"};
inline constexpr K ViewData{M, "Viewfilter", "ViewData", "", "view filter pattern"};
inline constexpr K ViewCheck{M, "Viewfilter", "Check", "", "true: view date filter on, else false"};
inline constexpr K Viewfrom{M, "Viewfilter", "Viewfrom", "", "view date filter, first day: 2007-03-09"};
inline constexpr K Viewto{M, "Viewfilter", "Viewto", "", "view date filter, last day: 2007-03-09"};
inline constexpr K DateCheck{M, "datefilter", "Check", "", "true: file date filter on, else false"};
inline constexpr K datefrom{M, "datefilter", "datefrom", "", "file date filter, first day: 2007-03-09"};
inline constexpr K dateto{M, "datefilter", "dateto", "", "file date filter, last day: 2007-03-09"};
inline constexpr K SCRData{M, "SCRfilter", "SCRData", "", "scan filter"};
inline constexpr K Modem{M, "regdata", "Modem", "", "connection type"};

inline constexpr K view1path{P, "default", "view1path", "", "left panel's folder at the last exit"};
inline constexpr K view2path{P, "default", "view2path", "", "right panel's folder at the last exit"};
inline constexpr K viewStorepath{P, "mem", "viewStorepath", "", "the stored folder"};
inline constexpr K viewpath{P, "memrecall", "viewpath", "", "folder of the Recall"};

/// All of the above, for whoever walks the vocabulary.
std::span<const SettingKey> all();
}  // namespace setting

/// The store, read and written by the vocabulary.
class Settings {
 public:
  explicit Settings(platform::SettingsStore& store) : store_(store) {}

  /// The value; the key's fallback when it is missing or empty.
  std::string get(const SettingKey& key) const;
  /// A value as a number in the regional form; nothing for a missing or malformed one.
  std::optional<double> number(const SettingKey& key) const;
  void save(const SettingKey& key, std::string_view value);
  void save(const SettingKey& key, double number);
  /// True when the key holds a value that is not empty.
  bool holds(const SettingKey& key) const;
  void removeSection(const SettingKey& anyKeyOfIt);

  /// Writes that belong together: all reach the disk in one step, or none.
  class Batch {
   public:
    void add(const SettingKey& key, std::string_view value);
    void add(const SettingKey& key, double number);

   private:
    friend class Settings;
    std::vector<platform::SettingsStore::Write> writes_;
  };
  platform::Result<void> save(const Batch& batch);

  platform::SettingsStore& store() { return store_; }

 private:
  platform::SettingsStore& store_;
};

}  // namespace varnholt::core
