#include "platform/file_address.hpp"

#include "platform/text_fold.hpp"

#include <charconv>

#include <limits.h>
#include <unistd.h>

namespace varnholt::platform {
namespace {

bool isThisMachine(std::string_view host) {
  char own[HOST_NAME_MAX + 1] = "";
  (void)::gethostname(own, sizeof own - 1);
  const std::string folded = foldCase(host);
  return folded.empty() || folded == "localhost" || folded == foldCase(own);
}

/// What is no number behind a percent sign stays as it is.
std::string decoded(std::string_view text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    unsigned char byte = 0;
    const char* const digits = text.data() + i + 1;
    if (text[i] == '%' && i + 2 < text.size() && std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      out += static_cast<char>(byte);
      i += 2;
    } else {
      out += text[i];
    }
  }
  return out;
}

}  // namespace

std::string systemPathOfAddress(std::string_view address) {
  constexpr std::string_view Scheme = "file:";
  if (foldCase(address.substr(0, Scheme.size())) != Scheme) return {};
  address.remove_prefix(Scheme.size());
  if (address.starts_with("//")) {
    const size_t slash = address.find('/', 2);
    if (slash == std::string_view::npos || !isThisMachine(address.substr(2, slash - 2))) return {};
    address.remove_prefix(slash);
  }
  std::string path = decoded(address);
  return path.starts_with('/') && path.find('\0') == std::string::npos ? path : std::string();
}

}  // namespace varnholt::platform
