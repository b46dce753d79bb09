#include "platform/posix/settings_store.hpp"

#include "platform/text_fold.hpp"

namespace varnholt::platform::posix {
namespace {

/// Application, section and key are kept folded; a section also in the spelling of its first write, which is what
/// sections() shows.
constexpr SqliteFormat settingsFormat{
    .applicationId = 0x566e5365,  // "VnSe"
    .schema = "CREATE TABLE IF NOT EXISTS settings(application TEXT NOT NULL, section TEXT NOT NULL,"
              " key TEXT NOT NULL, value TEXT NOT NULL, section_name TEXT NOT NULL,"
              " PRIMARY KEY(application, section, key)) WITHOUT ROWID;",
    .probe = "SELECT application, section, key, value, section_name FROM settings",
};

}  // namespace

SqliteSettingsStore::SqliteSettingsStore(std::string file) : database_(std::move(file), settingsFormat) {}

std::string SqliteSettingsStore::get(std::string_view application, std::string_view section, std::string_view key,
                                     std::string_view fallback) const {
  const std::string app = foldCase(application), part = foldCase(section), name = foldCase(key);
  auto query = database_.query("SELECT value FROM settings WHERE application=? AND section=? AND key=?");
  const auto found = query.bind(app).bind(part).bind(name).step();
  return found.valueOr(false) ? query.text(0) : std::string(fallback);
}

Result<void> SqliteSettingsStore::write(std::string_view application, std::string_view section, std::string_view key,
                                        std::string_view value) {
  const std::string app = foldCase(application), part = foldCase(section), name = foldCase(key);
  auto query = database_.query(
      "INSERT INTO settings(application, section, key, value, section_name)"
      " VALUES(?1, ?2, ?3, ?4, coalesce((SELECT section_name FROM settings WHERE application=?1 AND section=?2"
      " LIMIT 1), ?5)) ON CONFLICT DO UPDATE SET value=excluded.value");
  return query.bind(app).bind(part).bind(name).bind(value).bind(section).run();
}

Result<void> SqliteSettingsStore::save(std::string_view application, std::string_view section, std::string_view key,
                                       std::string_view value) {
  return write(application, section, key, value);
}

Result<void> SqliteSettingsStore::saveAll(const std::vector<Write>& writes) {
  SqliteDatabase::Transaction transaction(database_);
  if (!transaction.begun()) return transaction.begun();
  for (const Write& one : writes)
    if (auto done = write(one.application, one.section, one.key, one.value); !done) return done;
  return transaction.commit();
}

Result<void> SqliteSettingsStore::removed(Result<void> done) const {
  if (!done) return done;
  if (database_.changes() > 0) return {};
  return Error{ErrorCode::NotFound, {}, "no such key"};
}

Result<void> SqliteSettingsStore::remove(std::string_view application, std::string_view section, std::string_view key) {
  const std::string app = foldCase(application), part = foldCase(section), name = foldCase(key);
  auto query = database_.query("DELETE FROM settings WHERE application=? AND section=? AND key=?");
  return removed(query.bind(app).bind(part).bind(name).run());
}

Result<void> SqliteSettingsStore::removeSection(std::string_view application, std::string_view section) {
  const std::string app = foldCase(application), part = foldCase(section);
  auto query = database_.query("DELETE FROM settings WHERE application=? AND section=?");
  return removed(query.bind(app).bind(part).run());
}

Result<void> SqliteSettingsStore::removeApplication(std::string_view application) {
  const std::string app = foldCase(application);
  auto query = database_.query("DELETE FROM settings WHERE application=?");
  return removed(query.bind(app).run());
}

std::vector<std::string> SqliteSettingsStore::sections(std::string_view application) const {
  const std::string app = foldCase(application);
  std::vector<std::string> names;
  auto query =
      database_.query("SELECT min(section_name) FROM settings WHERE application=? GROUP BY section ORDER BY section");
  query.bind(app);
  while (query.step().valueOr(false))
    names.push_back(query.text(0));
  return names;
}

}  // namespace varnholt::platform::posix
