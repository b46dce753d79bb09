#pragma once

#include "controls/standard.hpp"

#include <string>
#include <utility>

/// The words that a control shows and says, and its icon, in one line each.
namespace varnholt::controls {

inline void dress(Button& button, std::string caption, std::string toolTip, std::string icon = {}) {
  button.Caption = std::move(caption);
  button.ToolTipText = std::move(toolTip);
  button.Icon = std::move(icon);
}

inline void dress(CheckBox& box, std::string caption, std::string toolTip) {
  box.Caption = std::move(caption);
  box.ToolTipText = std::move(toolTip);
}

/// A field shows no words of its own: its name is for assistive technology.
inline void dress(TextBox& field, std::string name, std::string toolTip) {
  field.AccessibleName = std::move(name);
  field.ToolTipText = std::move(toolTip);
}

}  // namespace varnholt::controls
