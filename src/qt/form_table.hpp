#pragma once

#include <QWidget>

#include <memory>
#include <string>
#include <vector>

namespace varnholt::qt {

/// Builds the widgets of a form, as its .ui file has them. Null for a name that the table does not know.
std::unique_ptr<QWidget> buildForm(const std::string& name);

/// Names of all forms that have a .ui file.
std::vector<std::string> formNames();

}  // namespace varnholt::qt
