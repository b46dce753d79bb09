#pragma once

#include "controls/message_loop.hpp"

#include <functional>

class QDialog;
class QWidget;

namespace varnholt::qt {

/// Shows the box and waits for the answer. The button that Enter stands for is never the one that does harm: where a
/// warning can be cancelled, it is Cancel. The close box and Esc answer Cancel, No, or the only button, and so does
/// reject() of the dialog, which `opening` is given before it shows.
controls::MessageAnswer showMessageBox(const controls::MessageBox& box, const QWidget* caller,
                                       const std::function<void(QDialog&)>& opening = {});

}  // namespace varnholt::qt
