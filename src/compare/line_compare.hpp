#pragma once

#include "controls/list_view.hpp"
#include "panels/desk.hpp"

#include <string>

namespace varnholt::compare {

/// "Line Compare": a small window beside the panels that holds the item in hand against its twin in the other panel.
class Form42 : public controls::Form {
 public:
  explicit Form42(panels::Desk& desk);

  controls::ListView ListView1{*this, "ListView1"};

  void LLComp_Click();
  /// The file of that name in both folders, property by property; nothing while the window is hidden.
  void LineCompare(const std::string& sourceFolder, const std::string& targetFolder, const std::string& name);

 private:
  struct Facts {
    std::string name, version;
    std::uint64_t bytes = 0;
    platform::Date modified;
  };
  void Form_Load();
  void showItem(panels::Panel& panel);
  std::optional<Facts> factsOf(const std::string& file) const;
  void addRow(const char* item, const Facts& facts);
  void addNote(const char* item, const char* note);
  void showEqual(const Facts& clicked, const Facts& target);
  void headers(const std::vector<int>& icons);

  panels::Desk& desk_;
};

}  // namespace varnholt::compare
