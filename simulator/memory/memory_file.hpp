#pragma once

#include <map>
#include <string>
#include <string_view>

#include "machine/settings.hpp"
#include "memory/database.hpp"
#include "memory/file_lock.hpp"

namespace impresora {

// Statements prepared once, by their text.
class Statements {
 public:
  explicit Statements(Database& database) : database_(database) {}
  Statement& operator()(std::string_view literal);

 private:
  Database& database_;
  std::map<std::string_view, Statement> prepared_;
};

// One file, one printer. It remembers what it wrote last and writes only what is different.
class MemoryFile : public Store {
 public:
  MemoryFile(std::string path, const Settings& settings);

  std::optional<Recall> Load() override;
  void Save(const Books& books, std::span<const DailyClosing> closings,
            std::span<const Receipt> finished) override;

 private:
  void Open(const Settings& settings);
  void Create(const Settings& settings);
  void CheckFormat();
  void CheckIdentity(const Settings& settings);
  void Write(const Books& books, std::span<const DailyClosing> closings,
             std::span<const Receipt> finished);

  std::string path_;
  Family family_;
  FileLock lock_;
  Database database_;
  Statements statements_;
  Books last_;  // as the file has it
  bool any_ = false;
  std::size_t closings_ = 0;
};

// The halves of the work, each in its own file.
Books ReadBooks(Statements& statements, Family family);
std::vector<DailyClosing> ReadClosings(Statements& statements);

void WriteBooks(Statements& statements, const Books& last, const Books& books);
void WriteClosing(Statements& statements, const DailyClosing& closing);
void WriteReceipt(Statements& statements, const Receipt& receipt);

// The open day is kept as the closing that has no number yet.
inline constexpr std::uint32_t kOpenDay = 0;
inline constexpr std::string_view kSales = "ventas";
inline constexpr std::string_view kCredits = "créditos";

}  // namespace impresora
