#pragma once

#include "controls/form.hpp"

namespace varnholt::controls {

/// The window comes up next time in its designed size, so far from where the other one stands.
inline void standBeside(Form& window, const Form& other, Twips right, Twips down) {
  window.Left = other.Left + right;
  window.Top = other.Top + down;
  window.Width = window.Height = 0.0;
}

/// The window comes up next time in its designed size and place.
inline void standAsDesigned(Form& window) { window.Left = window.Top = window.Width = window.Height = 0.0; }

}  // namespace varnholt::controls
