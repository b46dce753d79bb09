#pragma once

#include <QIcon>
#include <QString>

#include <string>
#include <vector>

namespace varnholt::qt {

/// The icon of the program's family by name ("folder"), drawn from its SVG at any size and pixel density in the
/// colours of the palette: strokes in `currentColor` become the text colour, the placeholder #5B9BD5 the accent.
/// A file is read and parsed when its icon is first painted. An unknown name gives a plain square; the empty name no
/// icon.
QIcon iconNamed(const std::string& name);

/// True when the family has an icon of that name.
bool hasIcon(const std::string& name);

}  // namespace varnholt::qt
