#pragma once

#include "platform/posix/sqlite_database.hpp"
#include "platform/registry.hpp"

#include <optional>

namespace varnholt::platform::posix {

/// The registry in one SQLite file. A root always exists; a key's path may begin or end with a backslash.
class SqliteRegistry : public Registry {
 public:
  /// `file` in system form; it is made when missing.
  explicit SqliteRegistry(std::string file);

  Result<RegistryValue> get(RegistryRoot root, std::string_view path, std::string_view name) const override;
  bool keyExists(RegistryRoot root, std::string_view path) const override;
  /// Makes the keys above it as well.
  Result<void> createKey(RegistryRoot root, std::string_view path) override;
  Result<void> set(RegistryRoot root, std::string_view path, std::string_view name,
                   const RegistryValue& value) override;

  const SqliteDatabase& database() const { return database_; }

 private:
  Result<std::int64_t> keyNumber(const std::string& folded) const;

  mutable SqliteDatabase database_;
};

}  // namespace varnholt::platform::posix
