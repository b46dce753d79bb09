#include "platform/posix/registry.hpp"

#include "platform/text_fold.hpp"

namespace varnholt::platform::posix {
namespace {

/// Paths and names are kept folded, and beside that as they were first spelled. Types as in winnt.h.
constexpr SqliteFormat registryFormat{
    .applicationId = 0x566e5265,  // "VnRe"
    .schema = "CREATE TABLE IF NOT EXISTS keys(number INTEGER PRIMARY KEY, path TEXT NOT NULL UNIQUE,"
              " spelled TEXT NOT NULL);"
              "CREATE TABLE IF NOT EXISTS entries(key INTEGER NOT NULL REFERENCES keys(number), name TEXT NOT NULL,"
              " spelled TEXT NOT NULL, type INTEGER NOT NULL, data BLOB NOT NULL, PRIMARY KEY(key, name));",
    .probe = "SELECT number, path, keys.spelled, key, name, entries.spelled, type, data FROM keys, entries",
};

constexpr std::int64_t typeText = 1, typeBytes = 3, typeNumber = 4;

std::string_view rootName(RegistryRoot root) {
  switch (root) {
  case RegistryRoot::ClassesRoot:
    return "HKEY_CLASSES_ROOT";
  case RegistryRoot::CurrentUser:
    return "HKEY_CURRENT_USER";
  case RegistryRoot::LocalMachine:
    return "HKEY_LOCAL_MACHINE";
  case RegistryRoot::Users:
    return "HKEY_USERS";
  }
  return "";
}

/// Root and path as one text without empty parts: "HKEY_CLASSES_ROOT\.txt".
std::string fullPath(RegistryRoot root, std::string_view path) {
  std::string full(rootName(root));
  while (!path.empty()) {
    const size_t end = std::min(path.find('\\'), path.size());
    if (end > 0) full.append("\\").append(path.substr(0, end));
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return full;
}

bool isRootItself(std::string_view full) { return full.find('\\') == std::string_view::npos; }

Error noSuchKey() { return {ErrorCode::NotFound, {}, "no such registry key"}; }

RegistryValue valueOf(std::int64_t type, std::string data) {
  if (type == typeBytes) return std::vector<std::uint8_t>(data.begin(), data.end());
  return data;
}

}  // namespace

SqliteRegistry::SqliteRegistry(std::string file) : database_(std::move(file), registryFormat) {}

Result<std::int64_t> SqliteRegistry::keyNumber(const std::string& folded) const {
  auto query = database_.query("SELECT number FROM keys WHERE path=?");
  const auto found = query.bind(folded).step();
  if (!found) return found.error();
  if (!*found) return noSuchKey();
  return query.number(0);
}

Result<RegistryValue> SqliteRegistry::get(RegistryRoot root, std::string_view path, std::string_view name) const {
  const std::string key = foldCase(fullPath(root, path)), entry = foldCase(name);
  auto query =
      database_.query("SELECT type, data FROM entries WHERE key=(SELECT number FROM keys WHERE path=?) AND name=?");
  const auto found = query.bind(key).bind(entry).step();
  if (!found) return found.error();
  if (!*found) return noSuchKey();
  if (query.number(0) == typeNumber) return RegistryValue(static_cast<std::uint32_t>(query.number(1)));
  return valueOf(query.number(0), query.text(1));
}

bool SqliteRegistry::keyExists(RegistryRoot root, std::string_view path) const {
  const std::string full = fullPath(root, path);
  return isRootItself(full) || keyNumber(foldCase(full)).ok();
}

Result<void> SqliteRegistry::createKey(RegistryRoot root, std::string_view path) {
  const std::string full = fullPath(root, path);
  if (keyNumber(foldCase(full))) return {};
  SqliteDatabase::Transaction transaction(database_);
  if (!transaction.begun()) return transaction.begun();
  for (size_t end = 0; end < full.size();) {
    end = std::min(full.find('\\', end + 1), full.size());
    const std::string spelled = full.substr(0, end), folded = foldCase(spelled);
    auto query = database_.query("INSERT OR IGNORE INTO keys(path, spelled) VALUES(?, ?)");
    if (auto done = query.bind(folded).bind(spelled).run(); !done) return done;
  }
  return transaction.commit();
}

Result<void> SqliteRegistry::set(RegistryRoot root, std::string_view path, std::string_view name,
                                 const RegistryValue& value) {
  const std::string full = fullPath(root, path), entry = foldCase(name);
  if (isRootItself(full))
    if (auto made = createKey(root, {}); !made) return made;
  const auto key = keyNumber(foldCase(full));
  if (!key) return key.error();
  auto query = database_.query("INSERT INTO entries(key, name, spelled, type, data) VALUES(?, ?, ?, ?, ?)"
                               " ON CONFLICT DO UPDATE SET type=excluded.type, data=excluded.data");
  query.bind(*key).bind(entry).bind(name);
  if (const auto* text = std::get_if<std::string>(&value))
    query.bind(typeText).bindBytes(text->data(), text->size());
  else if (const auto* bytes = std::get_if<std::vector<std::uint8_t>>(&value))
    query.bind(typeBytes).bindBytes(bytes->data(), bytes->size());
  else
    query.bind(typeNumber).bind(static_cast<std::int64_t>(std::get<std::uint32_t>(value)));
  return query.run();
}

}  // namespace varnholt::platform::posix
