#pragma once

#include "platform/result.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace varnholt::platform {

/// Per-user texts by application, section and key; all three compare without case. Each write is one transaction on
/// disk when the call returns, so a kill at any moment leaves the old value or the new one.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  /// The value, or `fallback` when the key does not exist.
  virtual std::string get(std::string_view application, std::string_view section, std::string_view key,
                          std::string_view fallback = {}) const = 0;
  virtual Result<void> save(std::string_view application, std::string_view section, std::string_view key,
                            std::string_view value) = 0;
  /// Deletes one key. NotFound when it does not exist.
  virtual Result<void> remove(std::string_view application, std::string_view section, std::string_view key) = 0;
  /// Deletes all keys of a section. NotFound when it holds nothing.
  virtual Result<void> removeSection(std::string_view application, std::string_view section) = 0;
  /// Deletes all of one application. NotFound when it holds nothing.
  virtual Result<void> removeApplication(std::string_view application) = 0;
  /// Section names of an application, by lowered name.
  virtual std::vector<std::string> sections(std::string_view application) const = 0;

  struct Write {
    std::string application, section, key, value;
  };
  /// All writes or none.
  virtual Result<void> saveAll(const std::vector<Write>& writes) = 0;
};

}  // namespace varnholt::platform
