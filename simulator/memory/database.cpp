#include "memory/database.hpp"

#include <array>
#include <limits>

namespace impresora {
namespace {

struct Cause {
  int code;
  std::string_view words;
};

constexpr std::array<Cause, 10> kCauses{{
    {SQLITE_FULL, "no queda lugar en el disco"},
    {SQLITE_READONLY, "el archivo es de solo lectura"},
    {SQLITE_BUSY, "el archivo está en uso por otro programa"},
    {SQLITE_LOCKED, "el archivo está en uso por otro programa"},
    {SQLITE_CORRUPT, "el archivo está dañado"},
    {SQLITE_NOTADB, "el archivo está dañado o no es una memoria fiscal"},
    {SQLITE_CANTOPEN, "no se puede abrir el archivo"},
    {SQLITE_PERM, "no hay permiso para usar el archivo"},
    {SQLITE_IOERR, "el disco no responde o no queda lugar"},
    {SQLITE_CONSTRAINT, "el archivo ya tiene un comprobante con ese número"},
}};

constexpr int kPrimaryCode = 0xFF;

[[noreturn]] void Fail(sqlite3* connection, int code) {
  std::string words = "el archivo no se pudo leer ni escribir";
  for (const Cause& row : kCauses) {
    if (row.code == (code & kPrimaryCode)) words = row.words;
  }
  if (connection != nullptr) words.append(" (").append(sqlite3_errmsg(connection)) += ')';
  throw MemoryFailure(words);
}

int Length(std::string_view text) {
  constexpr auto kMost = static_cast<std::size_t>(std::numeric_limits<int>::max());
  if (text.size() > kMost) throw MemoryFailure("texto demasiado largo");
  return static_cast<int>(text.size());
}

// A text without a byte still has to be a text, and a null pointer would bind nothing.
const char* Start(std::string_view text) {
  return text.empty() ? "" : text.data();
}

}  // namespace

Statement::Statement(sqlite3* connection, std::string_view sql) : connection_(connection) {
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v2(connection, sql.data(), Length(sql), &statement, nullptr);
  statement_.reset(statement);
  if (code != SQLITE_OK) Fail(connection, code);
}

Statement& Statement::Bind(std::int64_t value) {
  sqlite3_bind_int64(statement_.get(), ++next_bind_, value);
  return *this;
}

Statement& Statement::Bind(std::string_view text) {
  sqlite3_bind_text(statement_.get(), ++next_bind_, Start(text), Length(text), SQLITE_TRANSIENT);
  return *this;
}

Statement& Statement::BindBytes(std::string_view bytes) {
  sqlite3_bind_blob(statement_.get(), ++next_bind_, Start(bytes), Length(bytes), SQLITE_TRANSIENT);
  return *this;
}

Statement& Statement::BindNothing() {
  sqlite3_bind_null(statement_.get(), ++next_bind_);
  return *this;
}

bool Statement::Step() {
  next_column_ = 0;
  const int code = sqlite3_step(statement_.get());
  if (code == SQLITE_ROW) return true;
  if (code != SQLITE_DONE) Fail(connection_, code);
  return false;
}

void Statement::Run() {
  while (Step()) {
  }
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

bool Statement::IsNothing() {
  return sqlite3_column_type(statement_.get(), next_column_) == SQLITE_NULL;
}

Database::Database(const std::string& path) {
  sqlite3* connection = nullptr;
  constexpr int kFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
  const int code = sqlite3_open_v2(path.c_str(), &connection, kFlags, nullptr);
  connection_.reset(connection);
  if (code != SQLITE_OK) Fail(connection, code);
}

void Database::Execute(const std::string& sql) {
  const int code = sqlite3_exec(Connection(), sql.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) Fail(Connection(), code);
}

std::int64_t Database::Number(const std::string& sql) {
  Statement statement(Connection(), sql);
  return statement.Step() ? statement.Number() : 0;
}

std::string Database::Text(const std::string& sql) {
  Statement statement(Connection(), sql);
  return statement.Step() ? statement.Text() : std::string();
}

bool Database::ReadOnly() const {
  return sqlite3_db_readonly(Connection(), "main") == 1;
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

}  // namespace impresora
