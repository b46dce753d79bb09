#pragma once

namespace varnholt::qt {

/// Lets assistive technology read the tool tips of menu entries: the toolkit's own account of an entry leaves them out.
/// Called again it does nothing.
void speakMenuTips();

}  // namespace varnholt::qt
