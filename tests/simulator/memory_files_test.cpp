#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

#include "folder.hpp"
#include "host.hpp"
#include "memory/database.hpp"
#include "memory/memory.hpp"

namespace impresora {
namespace {

using prueba::Contents;
using prueba::Fill;
using prueba::Folder;
using prueba::Shop;

// What a printer says that cannot have this memory, or nothing.
std::string Refusal(const std::string& path, const Settings& settings = {}) {
  try {
    const std::unique_ptr<Store> store = OpenMemory(path, settings);
    Printer printer(settings);
    printer.UseMemory(*store);
    return {};
  } catch (const MemoryFailure& failure) {
    return failure.what();
  }
}

std::string MemoryOf(const Folder& folder, const Settings& settings = {}) {
  std::string path = folder / "m.db";
  Shop shop(settings);
  const std::unique_ptr<Store> store = OpenMemory(path, settings);
  shop.printer.UseMemory(*store);
  for (int i = 0; i < 50; ++i) {
    shop.OpenTicket();
    shop.TicketItem("Pan", "1000", "1000");
    shop.Send({"E", "T"});
  }
  return path;
}

struct FileCase {
  const char* story;
  std::function<void(const std::string& path)> spoil;
  const char* words;
};

std::function<void(const std::string& path)> Change(const std::string& sql) {
  return [sql](const std::string& path) { Database(path).Execute(sql); };
}

TEST(MemoryFiles, OneThatIsNotThisPrintersStaysAsItIs) {
  const std::vector<FileCase> cases{
      {"a text", [](const std::string& p) { Fill(p, std::string(5000, 'x')); },
       "no es una memoria fiscal"},
      {"a short text", [](const std::string& p) { Fill(p, "hola\n"); }, "no es una memoria fiscal"},
      {"another program's database",
       [](const std::string& p) {
         std::filesystem::remove(p);
         Change("CREATE TABLE clientes(nombre); INSERT INTO clientes VALUES ('Juan')")(p);
       },
       "no es una memoria fiscal"},
      {"a version to come", Change("PRAGMA user_version = 3"),
       "tiene la versión 3 del formato y este programa usa la 2"},
      {"another point of sale",
       Change("UPDATE identidad SET valor = '7' WHERE clave = 'punto_venta'"),
       "es de otra impresora: punto de venta 7, y esta tiene 1"},
      {"another family", Change("UPDATE identidad SET valor = 'FC' WHERE clave = 'familia'"),
       "es de otra impresora: familia FC, y esta tiene TF"},
      {"another owner", Change("UPDATE identidad SET valor = '30-1' WHERE clave = 'cuit'"),
       "es de otra impresora: CUIT 30-1"},
      {"a hole in the middle",
       [](const std::string& p) {
         std::string bytes = Contents(p);
         for (std::size_t i = 4096; i < bytes.size(); ++i) bytes[i] = '\x55';
         Fill(p, bytes);
       },
       "el archivo está dañado"},
      {"cut off", [](const std::string& p) { std::filesystem::resize_file(p, 6000); },
       "el archivo está dañado"},
      {"a closing missing", Change("INSERT INTO cierres VALUES (2, 0, 0, 0, 0, 0)"),
       "falta un cierre"},
      {"an open document of no kind",
       Change("INSERT INTO documento VALUES "
              "(1, 'Q', 'A', 1, 1, '', '', '', '', '', 0, 0, 0, 0, 0, 0, 0, 1)"),
       "comprobante abierto de tipo Q"},
  };
  for (const FileCase& c : cases) {
    const Folder folder;
    const std::string path = MemoryOf(folder);
    c.spoil(path);
    const std::string before = Contents(path);
    const std::string words = Refusal(path);
    EXPECT_NE(words.find(c.words), std::string::npos) << c.story << ": " << words;
    EXPECT_NE(words.find(path), std::string::npos) << c.story << ": " << words;
    EXPECT_EQ(Contents(path), before) << c.story;
  }
}

TEST(MemoryFiles, AnEmptyFileIsANewMemory) {
  const Folder folder;
  Fill(folder / "m.db", "");
  EXPECT_EQ(Refusal(folder / "m.db"), "");
  EXPECT_EQ(Refusal(folder / "m.db"), "");
}

TEST(MemoryFiles, PlacesWhereNoFileCanBe) {
  const Folder folder;
  EXPECT_NE(Refusal(folder / "no/m.db").find("la carpeta no existe"), std::string::npos);
  EXPECT_NE(Refusal(folder.path()).find("es una carpeta"), std::string::npos);
  EXPECT_NE(Refusal("/dev/null").find("no es un archivo"), std::string::npos);
}

TEST(MemoryFiles, OnePrinterAtATime) {
  const Folder folder;
  const std::string path = MemoryOf(folder);
  {
    const std::unique_ptr<Store> first = OpenMemory(path, {});
    EXPECT_NE(Refusal(path).find("la está usando otra impresora virtual"), std::string::npos);
  }
  EXPECT_EQ(Refusal(path), "");
}

// ---- What only another process can show ----

// The child's exit code; what it does must not touch the test's own reports.
int InChild(const std::function<int()>& work) {
  const pid_t child = fork();
  if (child == 0) _exit(work());
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(MemoryFiles, AFileThatMayOnlyBeRead) {
  const Folder folder;
  const std::string path = MemoryOf(folder);
  chmod(path.c_str(), 0444);
  chmod(folder.path().c_str(), 0755);
  const std::string before = Contents(path);
  const int result = InChild([&path] {
    constexpr uid_t kNobody = 65534;
    if (geteuid() == 0 && setuid(kNobody) != 0) return 2;
    return Refusal(path).find("no hay permiso para escribir") != std::string::npos ? 0 : 1;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(Contents(path), before);
}

// A disk that is full in the middle of the day: the command that could not be kept is not answered,
// and the next printer finds all those that were.
TEST(MemoryFiles, ADiskThatFills) {
  const Folder folder;
  const std::string path = folder / "m.db";
  const std::string answered = folder / "answered";
  const int result = InChild([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit most{400'000, 400'000};
    setrlimit(RLIMIT_FSIZE, &most);
    Shop shop;
    const std::unique_ptr<Store> store = OpenMemory(path, {});
    shop.printer.UseMemory(*store);
    int told = 0;
    try {
      for (; told < 10'000; ++told) {
        shop.OpenTicket();
        shop.TicketItem("Pan", "1000", "1000");
        shop.Send({"E", "T"});
      }
    } catch (const MemoryFailure& failure) {
      Fill(answered, std::to_string(told));
      const std::string words = failure.what();
      return words.find("no se puede escribir en la memoria fiscal") == 0 ? 0 : 1;
    }
    return 3;
  });
  ASSERT_EQ(result, 0);
  const std::int64_t told = std::stoll(Contents(answered));
  EXPECT_GT(told, 0);
  EXPECT_EQ(Refusal(path), "");
  const std::int64_t kept = Database(path).Number("SELECT count(*) FROM comprobantes");
  EXPECT_EQ(kept, told);
}

}  // namespace
}  // namespace impresora
