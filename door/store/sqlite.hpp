#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "store/store.hpp"

namespace puerta {

// What SQLite's code means for a person, thrown.
[[noreturn]] void FailStore(sqlite3* connection, int code);

// One prepared statement. Values are bound and columns read in order, each with its next call.
class Statement {
 public:
  Statement(sqlite3* connection, std::string_view sql);

  Statement& Bind(std::int64_t value);
  Statement& Bind(std::string_view text);  // UTF-8

  // True with a row to read, false at the end. Throws StoreFailure.
  bool Step();
  void Reset();

  std::int64_t Number();
  std::string Text();

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };

  sqlite3* connection_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
  int next_bind_ = 0;
  int next_column_ = 0;
};

// A statement for as long as it is used: one that stands on a row would keep the log of writes from
// being emptied.
class Query {
 public:
  explicit Query(Statement& statement) : statement_(statement) {}
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;
  ~Query() { statement_.Reset(); }

  Query& Bind(std::int64_t value) { return statement_.Bind(value), *this; }
  Query& Bind(std::string_view text) { return statement_.Bind(text), *this; }
  bool Step() { return statement_.Step(); }
  std::int64_t Number() { return statement_.Number(); }
  std::string Text() { return statement_.Text(); }

  // For those that give no rows.
  void Run() {
    while (Step()) {
    }
  }

 private:
  Statement& statement_;
};

// An open SQLite file, with its statements prepared once, by their texts.
class Database {
 public:
  explicit Database(const std::string& path);

  void Execute(const std::string& sql);
  std::int64_t Number(const std::string& sql);
  std::string Text(const std::string& sql);
  Query Use(std::string_view literal);
  std::int64_t Changes() const { return sqlite3_changes64(connection_.get()); }
  std::int64_t LastRow() const { return sqlite3_last_insert_rowid(connection_.get()); }

  sqlite3* Connection() const { return connection_.get(); }

 private:
  struct Closer {
    void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
  };
  std::unique_ptr<sqlite3, Closer> connection_;
  std::map<std::string_view, Statement> prepared_;
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

}  // namespace puerta
