#include "platform/file_address.hpp"

#include "platform/text_fold.hpp"

#include <memory>

#include <glib.h>

namespace varnholt::platform {
namespace {

using Text = std::unique_ptr<char, decltype(&g_free)>;

bool isThisMachine(std::string_view host) {
  const std::string folded = foldCase(host);
  return folded == "localhost" || folded == foldCase(g_get_host_name());
}

}  // namespace

std::string systemPathOfAddress(std::string_view address) {
  char* named = nullptr;
  const Text path(g_filename_from_uri(std::string(address).c_str(), &named, nullptr), g_free);
  const Text host(named, g_free);
  return path && (!host || isThisMachine(host.get())) ? path.get() : std::string();
}

}  // namespace varnholt::platform
