#include "core/registry_access.hpp"

namespace varnholt::core {
namespace {
// The buffers of the original calls: a text of 1024 with its closing zero, 4096 bytes.
constexpr std::size_t TextLimit = 1023, BytesLimit = 4096;
}  // namespace

platform::RegistryValue RegistryAccess::GetRegistryValue(platform::RegistryRoot root, const std::string& path,
                                                         const std::string& name,
                                                         platform::RegistryValue fallback) const {
  auto value = registry_.get(root, path, name);
  if (!value || value->index() != fallback.index()) return fallback;
  if (auto* text = std::get_if<std::string>(&*value)) {
    text->resize(std::min(text->find('\0') == std::string::npos ? text->size() : text->find('\0'), TextLimit));
  }
  if (auto* bytes = std::get_if<std::vector<std::uint8_t>>(&*value)) {
    if (bytes->size() > BytesLimit) bytes->resize(BytesLimit);
  }
  return *std::move(value);
}

std::string RegistryAccess::shellFolder(const std::string& name, const std::string& fallback) const {
  return std::get<std::string>(GetRegistryValue(platform::RegistryRoot::CurrentUser,
                                                "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
                                                name, fallback));
}

bool RegistryAccess::CheckRegistryKey(platform::RegistryRoot root, const std::string& path) const {
  return registry_.keyExists(root, path);
}

bool RegistryAccess::SetRegistryValue(platform::RegistryRoot root, const std::string& path, const std::string& name,
                                      const platform::RegistryValue& value) {
  return registry_.set(root, path, name, value).ok();
}

bool RegistryAccess::SetRegValue(platform::RegistryRoot root, const std::string& path, const std::string& name,
                                 std::uint32_t number) {
  (void)registry_.createKey(root, path);
  if (!registry_.set(root, path, name, number)) return false;
  dialogs_.inform(name + " = " + std::to_string(number));
  return true;
}

}  // namespace varnholt::core
