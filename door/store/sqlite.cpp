#include "store/sqlite.hpp"

#include <array>
#include <limits>

namespace puerta {
namespace {

struct Cause {
  int code;
  Trouble trouble;
  std::string_view words;
};

constexpr std::array<Cause, 9> kCauses{{
    {SQLITE_FULL, Trouble::kFull, "no queda lugar en el disco"},
    {SQLITE_READONLY, Trouble::kNotWritable, "el archivo es de solo lectura"},
    {SQLITE_BUSY, Trouble::kBusy, "el archivo está en uso por otro programa"},
    {SQLITE_LOCKED, Trouble::kBusy, "el archivo está en uso por otro programa"},
    {SQLITE_CORRUPT, Trouble::kDamaged, "el archivo está dañado"},
    {SQLITE_NOTADB, Trouble::kForeign, "el archivo no es de una puerta, o está dañado"},
    {SQLITE_CANTOPEN, Trouble::kNotWritable, "no se puede abrir el archivo"},
    {SQLITE_PERM, Trouble::kNotWritable, "no hay permiso para usar el archivo"},
    {SQLITE_IOERR, Trouble::kFull, "el disco no responde o no queda lugar"},
}};

constexpr int kPrimaryCode = 0xFF;

int Length(std::string_view text) {
  constexpr auto kMost = static_cast<std::size_t>(std::numeric_limits<int>::max());
  if (text.size() > kMost) throw StoreFailure(Trouble::kOther, "texto demasiado largo");
  return static_cast<int>(text.size());
}

}  // namespace

void FailStore(sqlite3* connection, int code) {
  Trouble trouble = Trouble::kOther;
  std::string words = "el archivo no se pudo leer ni escribir";
  for (const Cause& row : kCauses) {
    if (row.code != (code & kPrimaryCode)) continue;
    trouble = row.trouble;
    words = row.words;
  }
  if (connection != nullptr) words.append(" (").append(sqlite3_errmsg(connection)) += ')';
  throw StoreFailure(trouble, words);
}

Statement::Statement(sqlite3* connection, std::string_view sql) : connection_(connection) {
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v2(connection, sql.data(), Length(sql), &statement, nullptr);
  statement_.reset(statement);
  if (code != SQLITE_OK) FailStore(connection, code);
}

Statement& Statement::Bind(std::int64_t value) {
  sqlite3_bind_int64(statement_.get(), ++next_bind_, value);
  return *this;
}

// A text without a byte still has to be a text, and a null pointer would bind nothing.
Statement& Statement::Bind(std::string_view text) {
  sqlite3_bind_text(statement_.get(), ++next_bind_, text.empty() ? "" : text.data(), Length(text),
                    SQLITE_TRANSIENT);
  return *this;
}

bool Statement::Step() {
  next_column_ = 0;
  const int code = sqlite3_step(statement_.get());
  if (code == SQLITE_ROW) return true;
  if (code != SQLITE_DONE) FailStore(connection_, code);
  return false;
}

void Statement::Reset() {
  sqlite3_reset(statement_.get());
  next_bind_ = 0;
}

std::int64_t Statement::Number() {
  return sqlite3_column_int64(statement_.get(), next_column_++);
}

std::string Statement::Text() {
  const int column = next_column_++;
  const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(statement_.get(), column));
  const int count = sqlite3_column_bytes(statement_.get(), column);
  return bytes == nullptr ? std::string() : std::string(bytes, static_cast<std::size_t>(count));
}

Database::Database(const std::string& path) {
  sqlite3* connection = nullptr;
  constexpr int kFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
  const int code = sqlite3_open_v2(path.c_str(), &connection, kFlags, nullptr);
  connection_.reset(connection);
  if (code != SQLITE_OK) FailStore(connection, code);
}

void Database::Execute(const std::string& sql) {
  const int code = sqlite3_exec(Connection(), sql.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) FailStore(Connection(), code);
}

std::int64_t Database::Number(const std::string& sql) {
  Statement statement(Connection(), sql);
  return statement.Step() ? statement.Number() : 0;
}

std::string Database::Text(const std::string& sql) {
  Statement statement(Connection(), sql);
  return statement.Step() ? statement.Text() : std::string();
}

Query Database::Use(std::string_view literal) {
  const auto found = prepared_.find(literal);
  if (found != prepared_.end()) return Query(found->second);
  return Query(prepared_.emplace(literal, Statement(Connection(), literal)).first->second);
}

Transaction::Transaction(Database& database) : database_(database) {
  database_.Execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
  if (open_) sqlite3_exec(database_.Connection(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::Commit() {
  database_.Execute("COMMIT");
  open_ = false;
}

}  // namespace puerta
