#pragma once

#include "platform/result.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

struct sqlite3;
struct sqlite3_stmt;

namespace varnholt::platform::posix {

/// What one kind of file of ours holds.
struct SqliteFormat {
  int applicationId = 0;         ///< marks the file as ours (sqlite.org/fileformat.html, offset 68)
  const char* schema = nullptr;  ///< makes the tables of an empty file
  const char* probe = nullptr;   ///< a statement that compiles only against those tables
};

class SqliteDatabase;

/// One prepared statement in use. Bind in order of the marks, then step. Gives the statement back when it goes.
/// Texts are bound by reference and must live as long as this does.
class SqliteQuery {
 public:
  SqliteQuery(const SqliteDatabase& database, sqlite3_stmt* statement) : database_(database), statement_(statement) {}
  SqliteQuery(const SqliteQuery&) = delete;
  SqliteQuery& operator=(const SqliteQuery&) = delete;
  ~SqliteQuery();

  SqliteQuery& bind(std::string_view text);
  SqliteQuery& bind(std::int64_t number);
  SqliteQuery& bindBytes(const void* bytes, size_t size);

  /// True when a row is there; false at the end; an error when the file cannot be read or written.
  Result<bool> step();
  /// Steps to the end, for statements without rows.
  Result<void> run();

  /// Columns of the current row, from 0. Texts may hold any byte.
  std::string text(int column) const;
  std::int64_t number(int column) const;

 private:
  const SqliteDatabase& database_;
  sqlite3_stmt* statement_;  ///< null when it could not be compiled; step() then gives the database's error
  int bound_ = 0;
};

/// One SQLite file of our own, opened so that a kill or a power cut at any moment leaves the last committed state:
/// rollback journal, synced before the file is touched and again at each commit.
///
/// A file that is damaged or of another program is set aside as NAME.damaged-N (N from 1, the first that is free) and
/// a fresh one is made. Where the folder is missing or refuses, the database stays closed and each call tries again, so
/// a folder that appears later is used from then on. A file that another process holds too long when it is opened stays
/// closed: what was not read must not be written over.
class SqliteDatabase {
 public:
  SqliteDatabase(std::string file, const SqliteFormat& format);
  ~SqliteDatabase();
  SqliteDatabase(const SqliteDatabase&) = delete;
  SqliteDatabase& operator=(const SqliteDatabase&) = delete;

  /// The file's new name, system form, when opening found it damaged and set it aside.
  const std::optional<std::string>& setAside() const { return setAside_; }
  /// True when opening found the file damaged and could not set it aside: nothing will be kept.
  bool unusable() const { return unusable_; }
  /// True when another process held the file too long when it was opened: nothing is read or kept.
  bool held() const { return held_; }
  /// Why the file that is there could not be opened, where it is neither damaged nor held: nothing is read or kept
  /// until it can be.
  std::optional<Error> refused() const;

  /// A statement, compiled at its first use and kept. `sql` must be a literal.
  SqliteQuery query(const char* sql);
  /// Why the database is closed, or what the last failing call said.
  Error lastError() const;

  /// One write transaction: commit() makes it last, leaving the scope without it takes everything back.
  class Transaction {
   public:
    explicit Transaction(SqliteDatabase& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    /// An error when the file is closed, or another process held it too long. Nothing may be written then.
    const Result<void>& begun() const { return begun_; }
    Result<void> commit();

   private:
    SqliteDatabase& database_;
    Result<void> begun_;
    bool open_ = false;
  };

  /// Rows changed by the last statement.
  int changes() const;

 private:
  friend class Transaction;
  enum class Opened { Ready, Damaged, Refused };

  bool ensureOpen();
  Opened tryOpen();
  Opened checkContents();
  bool moveAside();
  void close();
  int execute(const char* sql);
  Opened judge(int code);

  std::string file_;
  const SqliteFormat& format_;
  sqlite3* handle_ = nullptr;
  std::unordered_map<const char*, sqlite3_stmt*> statements_;
  std::optional<std::string> setAside_;
  bool unusable_ = false, held_ = false;
  Error closedError_;  ///< what the last attempt to open said
};

}  // namespace varnholt::platform::posix
