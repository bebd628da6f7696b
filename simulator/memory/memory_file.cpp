#include "memory/memory_file.hpp"

#include <array>
#include <utility>

#include "fiscal/amounts.hpp"
#include "memory/memory.hpp"
#include "memory/schema.hpp"

namespace impresora {
namespace {

std::string FamilyCode(Family family) {
  if (family == Family::kTicket) return "TQ";
  return family == Family::kForm ? "FC" : "TF";
}

// What a memory must agree on with the printer that wants it.
struct IdentityRow {
  std::string_view key;
  std::string_view words;
  std::string (*value)(const Settings&);
};

constexpr std::array<IdentityRow, 3> kIdentity{{
    {"familia", "familia", [](const Settings& s) { return FamilyCode(s.family); }},
    {"punto_venta", "punto de venta",
     [](const Settings& s) { return std::to_string(s.point_of_sale); }},
    {"cuit", "CUIT", [](const Settings& s) { return s.owner_cuit; }},
}};

template <class Work>
auto Telling(const std::string& what, const std::string& path, Work work) {
  try {
    return work();
  } catch (const MemoryFailure& failure) {
    throw MemoryFailure(what + " la memoria fiscal «" + path + "»: " + failure.what());
  }
}

}  // namespace

Statement& Statements::operator()(std::string_view literal) {
  const auto found = prepared_.find(literal);
  if (found != prepared_.end()) return found->second;
  return prepared_.emplace(literal, Statement(database_.Connection(), literal)).first->second;
}

MemoryFile::MemoryFile(std::string path, const Settings& settings)
    : path_(std::move(path)),
      family_(settings.family),
      lock_(path_),
      database_(path_),
      statements_(database_) {
  Open(settings);
}

// Looks before it writes: a file that is not a memory of this printer stays as it is.
void MemoryFile::Open(const Settings& settings) {
  if (database_.ReadOnly()) throw MemoryFailure("el archivo es de solo lectura");
  database_.Execute(
      "PRAGMA busy_timeout = 2000; PRAGMA cache_size = -512; "
      "PRAGMA trusted_schema = OFF;");
  if (database_.Number("SELECT count(*) FROM sqlite_master") == 0 &&
      database_.Number("PRAGMA application_id") == 0) {
    Create(settings);
  } else {
    CheckFormat();
    CheckIdentity(settings);
  }
  // What is committed is on the disk before the host hears of it, and outlives a cut of the power.
  database_.Execute("PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL;");
}

void MemoryFile::Create(const Settings& settings) {
  database_.Execute("PRAGMA synchronous = FULL");
  Transaction transaction(database_);
  database_.Execute("PRAGMA application_id = " + std::to_string(kApplicationId) + ";" +
                    "PRAGMA user_version = " + std::to_string(kSchemaVersion) + ";" +
                    std::string(kSchema));
  Statement put(database_.Connection(), "INSERT INTO identidad VALUES (?, ?)");
  for (const IdentityRow& row : kIdentity) put.Bind(row.key).Bind(row.value(settings)).Run();
  put.Bind("modelo").Bind(settings.model).Run();
  put.Bind("titular").Bind(settings.owner).Run();
  transaction.Commit();
}

void MemoryFile::CheckFormat() {
  if (database_.Number("PRAGMA application_id") != kApplicationId) {
    throw MemoryFailure("el archivo no es una memoria fiscal");
  }
  const std::int64_t version = database_.Number("PRAGMA user_version");
  if (version != kSchemaVersion) {
    throw MemoryFailure("tiene la versión " + std::to_string(version) +
                        " del formato y este programa usa la " + std::to_string(kSchemaVersion));
  }
  const std::string check = database_.Text("PRAGMA quick_check(1)");
  if (check != "ok") throw MemoryFailure("el archivo está dañado (" + check + ")");
}

void MemoryFile::CheckIdentity(const Settings& settings) {
  Statement find(database_.Connection(), "SELECT valor FROM identidad WHERE clave = ?");
  for (const IdentityRow& row : kIdentity) {
    find.Bind(row.key);
    const std::string theirs = find.Step() ? find.Text() : std::string("ninguno");
    find.Run();
    const std::string ours = row.value(settings);
    if (theirs == ours) continue;
    std::string words = "es de otra impresora: ";
    words.append(row.words).append(" ").append(theirs).append(", y esta tiene ").append(ours);
    throw MemoryFailure(words);
  }
}

std::optional<Recall> MemoryFile::Load() {
  return Telling("no se puede leer", path_, [this]() -> std::optional<Recall> {
    any_ = database_.Number("SELECT count(*) FROM estado") == 1;
    if (!any_) return std::nullopt;
    last_ = ReadBooks(statements_, family_);
    std::vector<DailyClosing> closings = ReadClosings(statements_);
    closings_ = closings.size();
    return Recall{last_, std::move(closings)};
  });
}

void MemoryFile::Save(const Books& books, std::span<const DailyClosing> closings,
                      std::span<const Receipt> finished) {
  if (any_ && finished.empty() && closings.size() == closings_ && books == last_) return;
  Telling("no se puede escribir en", path_, [&] { Write(books, closings, finished); });
}

void MemoryFile::Write(const Books& books, std::span<const DailyClosing> closings,
                       std::span<const Receipt> finished) {
  Transaction transaction(database_);
  WriteBooks(statements_, last_, books);
  for (const DailyClosing& closing : closings.subspan(closings_)) {
    WriteClosing(statements_, closing);
  }
  for (const Receipt& receipt : finished) WriteReceipt(statements_, receipt);
  transaction.Commit();
  last_ = books;
  any_ = true;
  closings_ = closings.size();
}

std::unique_ptr<Store> OpenMemory(const std::string& path, const Settings& settings) {
  return Telling("no se puede usar", path, [&]() -> std::unique_ptr<Store> {
    return std::make_unique<MemoryFile>(path, settings);
  });
}

}  // namespace impresora
