#pragma once

#include "core/message_dialogs.hpp"
#include "platform/registry.hpp"

#include <string>

namespace varnholt::core {

/// The program's wrappers of the system's registry. They give empty results, never an error.
class RegistryAccess {
 public:
  RegistryAccess(platform::Registry& registry, MessageDialogs& dialogs) : registry_(registry), dialogs_(dialogs) {}

  /// The value if it is there and of the fallback's type (text, bytes or number), else the fallback. A text ends at
  /// its first zero and after 1023 bytes, bytes after 4096.
  platform::RegistryValue GetRegistryValue(platform::RegistryRoot root, const std::string& path,
                                           const std::string& name, platform::RegistryValue fallback) const;
  bool CheckRegistryKey(platform::RegistryRoot root, const std::string& path) const;
  /// A folder of the user's profile by its name among the shell folders ("Cookies"), as it is written there.
  std::string shellFolder(const std::string& name, const std::string& fallback) const;
  /// Writes a text or number into a key that exists.
  bool SetRegistryValue(platform::RegistryRoot root, const std::string& path, const std::string& name,
                        const platform::RegistryValue& value);
  /// Writes a number, making the key if needed, and tells the user.
  bool SetRegValue(platform::RegistryRoot root, const std::string& path, const std::string& name, std::uint32_t number);

 private:
  platform::Registry& registry_;
  MessageDialogs& dialogs_;
};

}  // namespace varnholt::core
