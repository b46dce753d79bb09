#pragma once

#include "controls/form.hpp"

#include <string>
#include <vector>

namespace varnholt::controls {

/// One entry of a window's menu bar or of a menu in it. An entry that is some other's parent is a heading.
class MenuItem : public Control {
 public:
  /// An empty parent puts the entry on the menu bar.
  MenuItem(Form& form, std::string name, MenuItem* parent)
      : Control(form, std::move(name), Kind::MenuItem), parent_(parent) {
    if (parent) parent->children_.push_back(this);
  }
  ~MenuItem() override {
    for (MenuItem* child : children_)
      child->parent_ = nullptr;
    if (parent_) std::erase(parent_->children_, this);
  }
  Property<std::string> Caption{*this};  ///< "&" marks the mnemonic; "-" draws a separator
  Property<bool> Checked{*this, false};
  Property<std::string> Shortcut{*this};  ///< "Ctrl+N"; empty: none
  /// Keys that choose it while a panel has the keyboard ("F8", "Del"): shown here, handled there.
  Property<std::vector<std::string>> PanelKeys{*this};
  Property<std::string> Icon{*this};
  /// Drawn at the right end of the menu bar.
  Property<bool> RightAligned{*this, false};

  MenuItem* parent() const { return parent_; }
  const std::vector<MenuItem*>& children() const { return children_; }
  /// Chooses it: nothing on a disabled or invisible entry.
  void choose() {
    if (Enabled && Visible) Click();
  }

 private:
  MenuItem* parent_;
  std::vector<MenuItem*> children_;
};

}  // namespace varnholt::controls
