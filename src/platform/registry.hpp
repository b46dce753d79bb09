#pragma once

#include "platform/result.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace varnholt::platform {

/// The roots, by the names of the original platform.
enum class RegistryRoot { ClassesRoot, CurrentUser, LocalMachine, Users };

/// Type 1 is a text, type 3 bytes, type 4 a 32-bit number (winnt.h: REG_SZ, REG_BINARY, REG_DWORD).
using RegistryValue = std::variant<std::string, std::vector<std::uint8_t>, std::uint32_t>;

/// The operating system's registry. Keys and value names compare without case; the empty value name is the default
/// value. Each write is one transaction.
class Registry {
 public:
  virtual ~Registry() = default;
  /// NotFound when the key or the value is missing.
  virtual Result<RegistryValue> get(RegistryRoot root, std::string_view path, std::string_view name) const = 0;
  virtual bool keyExists(RegistryRoot root, std::string_view path) const = 0;
  virtual Result<void> createKey(RegistryRoot root, std::string_view path) = 0;
  /// NotFound when the key does not exist (it is not made).
  virtual Result<void> set(RegistryRoot root, std::string_view path, std::string_view name,
                           const RegistryValue& value) = 0;
};

}  // namespace varnholt::platform
