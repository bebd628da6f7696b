#include "store/schema.hpp"
#include "store/store_file.hpp"

namespace puerta {
namespace {

// Nothing is ever written into it, so that nothing has to be undone when the process dies.
void TakeAlone(Database& in_use) {
  try {
    in_use.Execute("BEGIN EXCLUSIVE");
  } catch (const StoreFailure& failure) {
    if (failure.Why() != Trouble::kBusy) throw;
    throw StoreFailure(Trouble::kBusy, "lo está usando otra puerta");
  }
}

}  // namespace

DoorFile::DoorFile(const std::string& path) : in_use_(path + ".uso"), database_(path) {
  TakeAlone(in_use_);
  if (sqlite3_db_readonly(database_.Connection(), "main") == 1) {
    throw StoreFailure(Trouble::kNotWritable, "el archivo es de solo lectura");
  }
  // The outbox writes on a connection of its own: each waits for the other's few milliseconds.
  database_.Execute("PRAGMA busy_timeout = 5000; PRAGMA trusted_schema = OFF;");
  if (database_.Number("SELECT count(*) FROM sqlite_master") == 0 &&
      database_.Number("PRAGMA application_id") == 0) {
    Create();
  } else {
    CheckFormat();
  }
  // What is committed is on the disk before the till hears of it, and outlives a cut of the power.
  if (database_.Text("PRAGMA journal_mode = WAL") != "wal") {
    throw StoreFailure(Trouble::kNotWritable, "el disco no sirve: hace falta uno de esta máquina");
  }
  database_.Execute("PRAGMA synchronous = FULL");
}

void DoorFile::Create() {
  database_.Execute("PRAGMA synchronous = FULL");
  Transaction transaction(database_);
  database_.Execute("PRAGMA application_id = " + std::to_string(kApplicationId) + ";" +
                    "PRAGMA user_version = " + std::to_string(kSchemaVersion) + ";" +
                    std::string(kSchema));
  transaction.Commit();
}

void DoorFile::CheckFormat() {
  if (database_.Number("PRAGMA application_id") != kApplicationId) {
    throw StoreFailure(Trouble::kForeign, "el archivo no es de una puerta");
  }
  const std::int64_t version = database_.Number("PRAGMA user_version");
  if (version != kSchemaVersion) {
    throw StoreFailure(Trouble::kForeign, "tiene la versión " + std::to_string(version) +
                                              " del formato y este programa usa la " +
                                              std::to_string(kSchemaVersion));
  }
  const std::string check = database_.Text("PRAGMA quick_check(1)");
  if (check != "ok") {
    throw StoreFailure(Trouble::kDamaged, "el archivo está dañado (" + check + ")");
  }
}

std::unique_ptr<Store> OpenStore(const StoreOptions& options) {
  try {
    return std::make_unique<StoreFile>(options);
  } catch (const StoreFailure& failure) {
    throw StoreFailure(failure.Why(), "no se puede usar la base de la puerta «" + options.path +
                                          "»: " + failure.what());
  }
}

}  // namespace puerta
