#pragma once

#include <string>
#include <string_view>

namespace varnholt::platform {

/// The system path in an address such as file:///home/me/a%20b (RFC 8089), byte for byte: a name need not be UTF-8.
/// Empty text: no file of this machine.
std::string systemPathOfAddress(std::string_view address);

}  // namespace varnholt::platform
