#pragma once

#include "core/message_dialogs.hpp"
#include "platform/attributes.hpp"

#include <string>

namespace varnholt::rename {

/// True when files of these attributes are asked about before they get another name.
bool isAskedAbout(platform::Attributes attributes);
/// Asks if it has to; true: go on.
bool mayRename(core::MessageDialogs& dialogs, const std::string& name, platform::Attributes attributes);

}  // namespace varnholt::rename
