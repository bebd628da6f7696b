#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "memory/store.hpp"

namespace impresora {

// One prepared statement. Values are bound and columns read in order, each with its next call.
class Statement {
 public:
  Statement(sqlite3* connection, std::string_view sql);

  Statement& Bind(std::int64_t value);
  Statement& Bind(std::string_view text);  // UTF-8
  Statement& BindBytes(std::string_view bytes);
  Statement& BindNothing();

  // True with a row to read, false at the end. Throws MemoryFailure.
  bool Step();

  // Does it with what was bound, and is ready for the next round.
  void Run();

  std::int64_t Number();
  std::string Text();
  bool IsNothing();  // looks at the next column and does not pass it

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };

  sqlite3* connection_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
  int next_bind_ = 0;
  int next_column_ = 0;
};

// An open SQLite file.
class Database {
 public:
  explicit Database(const std::string& path);

  void Execute(const std::string& sql);
  std::int64_t Number(const std::string& sql);
  std::string Text(const std::string& sql);
  bool ReadOnly() const;

  sqlite3* Connection() const { return connection_.get(); }

 private:
  struct Closer {
    void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
  };
  std::unique_ptr<sqlite3, Closer> connection_;
};

// All of it or nothing: what is not committed when this goes out of sight never was.
class Transaction {
 public:
  explicit Transaction(Database& database);
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();

  void Commit();

 private:
  Database& database_;
  bool open_ = true;
};

}  // namespace impresora
