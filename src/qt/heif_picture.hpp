#pragma once

#include "qt/picture_decoder.hpp"

#include <string>

namespace varnholt::qt {

/// Decodes the main picture of a HEIC, HEIF or AVIF file, of which the toolkit of this system knows nothing. In its own
/// size, turned as the file says.
DecodedPicture decodeHeif(const std::string& bytes);

}  // namespace varnholt::qt
