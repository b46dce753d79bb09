#include "platform/posix/sqlite_database.hpp"

#include "platform/posix/posix_error.hpp"

#include <cerrno>
#include <cstdio>

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

/// How long a write waits for another running copy of the program, in milliseconds.
constexpr int busyWait = 3000;
constexpr int lastAsideNumber = 9999;

/// What a result code means to callers (sqlite.org/rescode.html).
ErrorCode codeOf(int code) {
  switch (code & 0xff) {
  case SQLITE_READONLY:
  case SQLITE_PERM:
  case SQLITE_AUTH:
    return ErrorCode::AccessDenied;
  case SQLITE_CORRUPT:
  case SQLITE_NOTADB:
    return ErrorCode::Damaged;
  case SQLITE_FULL:
    return ErrorCode::NoSpace;
  case SQLITE_TOOBIG:
    return ErrorCode::TooLarge;
  case SQLITE_CANTOPEN:
    return ErrorCode::NotFound;
  default:
    return ErrorCode::Failed;
  }
}

bool entryExists(const std::string& path) {
  struct stat facts;
  return ::lstat(path.c_str(), &facts) == 0;
}

/// To open one waits for whoever writes into it, for ever.
bool isPipeOrDevice(const std::string& path) {
  struct stat facts;
  return ::stat(path.c_str(), &facts) == 0 && !S_ISREG(facts.st_mode) && !S_ISDIR(facts.st_mode);
}

/// The first free NAME.damaged-N.
std::optional<std::string> freeAsideName(const std::string& file) {
  for (int number = 1; number <= lastAsideNumber; ++number) {
    std::string name = file + ".damaged-" + std::to_string(number);
    if (!entryExists(name)) return name;
  }
  return {};
}

/// SQLite has one code for all that cannot be opened: what the system said of it says more.
Error errorOf(sqlite3* handle) {
  const int code = sqlite3_errcode(handle), reason = sqlite3_system_errno(handle);
  const bool isSystems = (code & 0xff) == SQLITE_CANTOPEN || (code & 0xff) == SQLITE_IOERR;
  return isSystems && reason != 0 ? systemError(reason, {}) : Error{codeOf(code), {}, sqlite3_errmsg(handle)};
}

/// SQLite tells a folder that refuses and one that is missing by one code.
bool refusesFiles(const std::string& file) {
  const std::string folder = file.substr(0, file.rfind('/') + 1);
  return ::eaccess(folder.c_str(), F_OK) == 0 && ::eaccess(folder.c_str(), W_OK | X_OK) != 0;
}

}  // namespace

SqliteQuery::~SqliteQuery() {
  if (!statement_) return;
  sqlite3_reset(statement_);
  sqlite3_clear_bindings(statement_);
}

SqliteQuery& SqliteQuery::bind(std::string_view text) {
  // A null pointer would bind NULL, and an empty view may hold one.
  const char* start = text.empty() ? "" : text.data();
  if (statement_) sqlite3_bind_text64(statement_, ++bound_, start, text.size(), SQLITE_STATIC, SQLITE_UTF8);
  return *this;
}

SqliteQuery& SqliteQuery::bind(std::int64_t number) {
  if (statement_) sqlite3_bind_int64(statement_, ++bound_, number);
  return *this;
}

SqliteQuery& SqliteQuery::bindBytes(const void* bytes, size_t size) {
  if (!statement_) return *this;
  if (size == 0)
    sqlite3_bind_zeroblob(statement_, ++bound_, 0);
  else
    sqlite3_bind_blob64(statement_, ++bound_, bytes, size, SQLITE_STATIC);
  return *this;
}

Result<bool> SqliteQuery::step() {
  if (!statement_) return database_.lastError();
  const int code = sqlite3_step(statement_);
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  return errorOf(sqlite3_db_handle(statement_));
}

Result<void> SqliteQuery::run() {
  while (true) {
    auto row = step();
    if (!row) return row.error();
    if (!*row) return {};
  }
}

std::string SqliteQuery::text(int column) const {
  const void* bytes = sqlite3_column_blob(statement_, column);
  const int size = sqlite3_column_bytes(statement_, column);
  return bytes ? std::string(static_cast<const char*>(bytes), static_cast<size_t>(size)) : std::string();
}

std::int64_t SqliteQuery::number(int column) const { return sqlite3_column_int64(statement_, column); }

SqliteDatabase::SqliteDatabase(std::string file, const SqliteFormat& format) : file_(std::move(file)), format_(format) {
  ensureOpen();
}

SqliteDatabase::~SqliteDatabase() { close(); }

void SqliteDatabase::close() {
  for (auto& [sql, statement] : statements_)
    sqlite3_finalize(statement);
  statements_.clear();
  sqlite3_close(handle_);
  handle_ = nullptr;
}

int SqliteDatabase::execute(const char* sql) { return sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr); }

bool SqliteDatabase::ensureOpen() {
  if (handle_) return true;
  if (unusable_ || held_) return false;
  Opened opened = tryOpen();
  if (opened == Opened::Damaged) {
    unusable_ = !moveAside();
    opened = unusable_ ? Opened::Damaged : tryOpen();
  }
  if (opened != Opened::Ready) close();
  return handle_ != nullptr;
}

SqliteDatabase::Opened SqliteDatabase::judge(int code) {
  if (code == SQLITE_OK) return Opened::Ready;
  held_ = (code & 0xff) == SQLITE_BUSY;
  closedError_ = errorOf(handle_);
  if ((code & 0xff) == SQLITE_CANTOPEN && refusesFiles(file_)) closedError_.code = ErrorCode::AccessDenied;
  return codeOf(code) == ErrorCode::Damaged ? Opened::Damaged : Opened::Refused;
}

SqliteDatabase::Opened SqliteDatabase::tryOpen() {
  close();
  if (isPipeOrDevice(file_)) {
    closedError_ = {ErrorCode::Damaged, {}, "a pipe, socket or device"};
    return Opened::Damaged;
  }
  if (isPipeOrDevice(file_ + "-journal")) {
    closedError_ = {ErrorCode::Failed, {}, "A pipe, socket or device stands in place of its journal"};
    return Opened::Refused;
  }
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
  if (const Opened opened = judge(sqlite3_open_v2(file_.c_str(), &handle_, flags, nullptr)); opened != Opened::Ready)
    return opened;
  sqlite3_extended_result_codes(handle_, 1);
  sqlite3_busy_timeout(handle_, busyWait);
  const Opened opened = checkContents();
  if (opened != Opened::Ready) close();
  return opened;
}

/// A file of ours, an empty one (which gets the tables), or damage. TRUNCATE with FULL syncs the journal before the
/// file is touched, the file before the journal is cut, and the cut itself, so a commit that returned is on the disk.
SqliteDatabase::Opened SqliteDatabase::checkContents() {
  int id = 0, tables = 0;
  {
    // Reading any page first plays back a journal that a killed process has left.
    SqliteQuery facts = query("SELECT application_id, (SELECT count(*) FROM sqlite_master) FROM pragma_application_id");
    auto row = facts.step();
    if (!row) return judge(sqlite3_errcode(handle_));
    id = static_cast<int>(facts.number(0));
    tables = static_cast<int>(facts.number(1));
  }
  if (execute("PRAGMA journal_mode=TRUNCATE; PRAGMA synchronous=FULL;") != SQLITE_OK)
    return judge(sqlite3_errcode(handle_));
  if (id == 0 && tables == 0) {
    const std::string mark = "PRAGMA application_id=" + std::to_string(format_.applicationId) + ";";
    const std::string sql = "BEGIN IMMEDIATE;" + mark + format_.schema + "COMMIT;";
    return judge(execute(sql.c_str()));
  }
  if (id != format_.applicationId) return judge(SQLITE_NOTADB);
  SqliteQuery check = query("PRAGMA quick_check(1)");
  auto row = check.step();
  if (!row) return judge(sqlite3_errcode(handle_));
  if (!*row || check.text(0) != "ok") return judge(SQLITE_CORRUPT);
  sqlite3_stmt* probe = nullptr;
  const int code = sqlite3_prepare_v2(handle_, format_.probe, -1, &probe, nullptr);
  sqlite3_finalize(probe);
  return judge(code == SQLITE_ERROR ? SQLITE_NOTADB : code);
}

bool SqliteDatabase::moveAside() {
  close();
  const auto aside = freeAsideName(file_);
  if (!aside) return false;
  // A journal that stays behind does no harm: beside an empty file the library takes it for a remnant.
  if (::rename(file_.c_str(), aside->c_str()) != 0) return false;
  setAside_ = *aside;
  return true;
}

SqliteQuery SqliteDatabase::query(const char* sql) {
  if (!handle_ && !ensureOpen()) return SqliteQuery(*this, nullptr);
  auto [place, isNew] = statements_.try_emplace(sql, nullptr);
  if (isNew) sqlite3_prepare_v3(handle_, sql, -1, SQLITE_PREPARE_PERSISTENT, &place->second, nullptr);
  sqlite3_stmt* statement = place->second;
  if (!statement) statements_.erase(place);
  return SqliteQuery(*this, statement);
}

std::optional<Error> SqliteDatabase::refused() const {
  if (handle_ || unusable_ || held_ || !entryExists(file_)) return {};
  return closedError_;
}

Error SqliteDatabase::lastError() const { return handle_ ? errorOf(handle_) : closedError_; }

int SqliteDatabase::changes() const { return handle_ ? sqlite3_changes(handle_) : 0; }

SqliteDatabase::Transaction::Transaction(SqliteDatabase& database) : database_(database) {
  open_ = database_.ensureOpen() && database_.execute("BEGIN IMMEDIATE") == SQLITE_OK;
  if (!open_) begun_ = database_.lastError();
}

SqliteDatabase::Transaction::~Transaction() {
  if (open_) database_.execute("ROLLBACK");
}

Result<void> SqliteDatabase::Transaction::commit() {
  if (!open_) return begun_;
  if (database_.execute("COMMIT") != SQLITE_OK) return database_.lastError();
  open_ = false;
  return {};
}

}  // namespace varnholt::platform::posix
