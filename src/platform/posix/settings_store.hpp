#pragma once

#include "platform/posix/sqlite_database.hpp"
#include "platform/settings_store.hpp"

namespace varnholt::platform::posix {

/// The settings in one SQLite file.
class SqliteSettingsStore : public SettingsStore {
 public:
  /// `file` in system form; it is made when missing.
  explicit SqliteSettingsStore(std::string file);

  std::string get(std::string_view application, std::string_view section, std::string_view key,
                  std::string_view fallback = {}) const override;
  Result<void> save(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view value) override;
  Result<void> remove(std::string_view application, std::string_view section, std::string_view key) override;
  Result<void> removeSection(std::string_view application, std::string_view section) override;
  Result<void> removeApplication(std::string_view application) override;
  std::vector<std::string> sections(std::string_view application) const override;
  Result<void> saveAll(const std::vector<Write>& writes) override;

  const SqliteDatabase& database() const { return database_; }

 private:
  Result<void> write(std::string_view application, std::string_view section, std::string_view key,
                     std::string_view value);
  Result<void> removed(Result<void> done) const;

  mutable SqliteDatabase database_;
};

}  // namespace varnholt::platform::posix
