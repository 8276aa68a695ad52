#include "store/database.h"

#include <utility>

#include "host_platform.h"

namespace host {
namespace {

constexpr int kKindOfError = 0xff;  // the rest of a code is detail

// A row has a label or a path beside its largest piece, and what SQLite adds.
constexpr std::size_t kLargestRow = kLargestPiece + kLongestText + 65536;
constexpr int kLongestStatement = 1000000;

StoreError error_of(int code) {
  switch (code & kKindOfError) {
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_FORMAT:
    case SQLITE_ERROR:  // the statements are right, so the tables are not
    case SQLITE_CONSTRAINT:
    case SQLITE_TOOBIG:     // what is too large is never written
    case SQLITE_INTERRUPT:  // only the limit of steps interrupts
      return StoreError::kCorrupt;
    case SQLITE_READONLY:
      return StoreError::kReadOnly;
    case SQLITE_FULL:
      return StoreError::kFull;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
      return StoreError::kNotOpened;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return StoreError::kLocked;
    default:
      return StoreError::kIo;
  }
}

// To make a file or to lengthen the log's index fails on a full disk in the words of any failure.
bool ran_out_of_space(sqlite3* connection, int code) {
  const int kind = code & kKindOfError;
  if (connection == nullptr || (kind != SQLITE_IOERR && kind != SQLITE_CANTOPEN)) return false;
  return FileSizeSignal::came() ||
         error_of_system(sqlite3_system_errno(connection)) == StoreError::kFull;
}

[[noreturn]] void fail(sqlite3* connection, int code) {
  const std::string text =
      connection != nullptr ? sqlite3_errmsg(connection) : sqlite3_errstr(code);
  if (ran_out_of_space(connection, code)) {
    const char* reason =
        FileSizeSignal::came() ? "the file size limit is reached: " : "the disk is full: ";
    throw StoreFailure(StoreError::kFull, reason + text);
  }
  if (code == SQLITE_INTERRUPT) throw StoreFailure(StoreError::kCorrupt, "a table has no end");
  throw StoreFailure(error_of(code), text);
}

// Reading and writing never run what a file's own schema says, and take no more than a store needs.
void take_as_data(sqlite3* connection) {
  constexpr int kOff[] = {SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_ENABLE_TRIGGER,
                          SQLITE_DBCONFIG_ENABLE_VIEW};
  for (const int option : kOff) (void)sqlite3_db_config(connection, option, 0, nullptr);
  (void)sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  (void)sqlite3_limit(connection, SQLITE_LIMIT_LENGTH, static_cast<int>(kLargestRow));
  (void)sqlite3_limit(connection, SQLITE_LIMIT_SQL_LENGTH, kLongestStatement);
  (void)sqlite3_exec(connection, "PRAGMA cell_size_check = ON", nullptr, nullptr, nullptr);
}

}  // namespace

Statement::Statement(sqlite3* connection, const char* sql) : connection_(connection) {
  check(sqlite3_prepare_v3(connection, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement_, nullptr));
}

void Statement::check(int code) {
  if (code != SQLITE_OK) fail(connection_, code);
}

Statement& Statement::reset() {
  (void)sqlite3_reset(statement_);  // repeats the error of the last run, which is known
  (void)sqlite3_stmt_status(statement_, SQLITE_STMTSTATUS_VM_STEP, 1);  // the limit counts anew
  return *this;
}

Statement& Statement::bind(int place, std::int64_t number) {
  check(sqlite3_bind_int64(statement_, place + 1, number));
  return *this;
}

Statement& Statement::bind_text(int place, std::string_view text) {
  check(sqlite3_bind_text64(statement_, place + 1, text.data(), text.size(), SQLITE_STATIC,
                            SQLITE_UTF8));
  return *this;
}

Statement& Statement::bind_bytes(int place, std::string_view bytes) {
  if (bytes.size() > kLargestPiece) {
    throw StoreFailure(StoreError::kTooLarge,
                       "what the store keeps of one object, change or checkpoint would take more "
                       "than 256 MiB");
  }
  const char* data = bytes.empty() ? "" : bytes.data();
  check(sqlite3_bind_blob64(statement_, place + 1, data, bytes.size(), SQLITE_STATIC));
  return *this;
}

bool Statement::next() {
  const int code = sqlite3_step(statement_);
  if (code == SQLITE_ROW) return true;
  reset();  // a statement that stands on its end would keep its transaction open
  if (code != SQLITE_DONE) fail(connection_, code);
  return false;
}

void Statement::run() {
  while (next()) {
  }
}

std::int64_t Statement::number(int column) { return sqlite3_column_int64(statement_, column); }

std::string_view Statement::view(int column) {
  const auto* data = static_cast<const char*>(sqlite3_column_blob(statement_, column));
  const int size = sqlite3_column_bytes(statement_, column);
  return data != nullptr ? std::string_view(data, static_cast<std::size_t>(size))
                         : std::string_view();
}

Database::Database(const std::string& path, const StoreOptions& options)
    : usual_wait_ms_(options.lock_timeout_ms) {
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_EXRESCODE |
                    SQLITE_OPEN_URI |
                    SQLITE_OPEN_NOMUTEX;  // one thread at a time, as a store is used
  const char* vfs = options.vfs.empty() ? nullptr : options.vfs.c_str();
  const int code = sqlite3_open_v2(path.c_str(), &connection_, flags, vfs);
  if (code == SQLITE_OK) {
    wait_for_locks(usual_wait_ms_);
    take_as_data(connection_);
    return;
  }
  try {
    fail(connection_, code);
  } catch (const StoreFailure&) {
    (void)sqlite3_close(connection_);
    throw;
  }
}

Database::~Database() {
  const FileSizeSignal no_signal;  // closing may write the log back
  statements_.clear();
  (void)sqlite3_close(connection_);
}

// SQLite counts the steps of each statement since its last reset.
void Database::limit_steps(int most) {
  sqlite3_progress_handler(
      connection_, most, [](void* /*unused*/) { return 1; }, nullptr);
}

std::int64_t Database::size() { return number("PRAGMA page_count") * number("PRAGMA page_size"); }

void Database::leave_log() {
  owns_log_ = false;
  (void)sqlite3_db_config(connection_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

void Database::own_log() {
  owns_log_ = true;
  (void)sqlite3_db_config(connection_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
}

void Database::write_log_back() {
  const FileSizeSignal no_signal;
  (void)result_of([this] { run("PRAGMA wal_checkpoint(TRUNCATE)"); });
}

// What the index knows no longer depends on the log when it was written back: a sync that failed is
// not made up for by a later one. A commit that changes nothing is then written over what the index
// does not know.
void Database::settle() {
  const FileSizeSignal no_signal;
  run("PRAGMA wal_checkpoint");
  Transaction transaction(*this, Transaction::kWrite);
  set_pragma("user_version", number("PRAGMA user_version"));
  transaction.commit_once();
}

// A commit stands in the log with its last page, so not when that one could not be written.
bool Database::may_have_landed() const {
  const int code = sqlite3_extended_errcode(connection_);
  const bool was_cut_off = code == SQLITE_IOERR_WRITE && ran_out_of_space(connection_, code);
  return owns_log_ && (code & kKindOfError) == SQLITE_IOERR && !was_cut_off;
}

void Database::run(const char* sql) {
  const int code = sqlite3_exec(connection_, sql, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) fail(connection_, code);
}

void Database::set_pragma(const std::string& name, std::int64_t number) {
  run(("PRAGMA " + name + " = " + std::to_string(number)).c_str());
}

std::int64_t Database::number(const char* sql) {
  Statement statement(connection_, sql);
  return statement.next() ? statement.number(0) : 0;
}

std::string Database::text(const char* sql) {
  Statement statement(connection_, sql);
  return statement.next() ? statement.text(0) : std::string();
}

Statement& Database::statement(const char* sql) {
  auto& statement = statements_[sql];
  if (!statement) statement = std::make_unique<Statement>(connection_, sql);
  return statement->reset();
}

Transaction::Transaction(Database& database, Kind kind) : database_(database) {
  static constexpr const char* kBeginWrite = "BEGIN IMMEDIATE";
  static constexpr const char* kBeginRead = "BEGIN";
  database.statement(kind == kWrite ? kBeginWrite : kBeginRead).run();
}

Transaction::~Transaction() {
  if (open_) roll_back();
}

void Transaction::roll_back() {
  open_ = false;
  try {
    static constexpr const char* kRollback = "ROLLBACK";
    database_.statement(kRollback).run();
  } catch (const StoreFailure&) {
    // SQLite rolls back by itself on the errors that prevent this.
  }
}

void Transaction::commit_once() {
  static constexpr const char* kCommit = "COMMIT";
  database_.statement(kCommit).run();
  open_ = false;
}

void Transaction::commit() {
  try {
    commit_once();
  } catch (const StoreFailure& failure) {
    const bool may_have_landed = database_.may_have_landed();
    roll_back();
    if (may_have_landed) settle_or_doubt(failure);
    throw;
  }
}

void Transaction::settle_or_doubt(const StoreFailure& failure) {
  if (result_of([this] { database_.settle(); }).ok()) return;
  if (database_.on_doubt_) database_.on_doubt_();
  throw StoreFailure(
      StoreError::kUncertain,
      "the change may or may not have landed, because the disk failed: " + failure.result().text);
}

}  // namespace host
