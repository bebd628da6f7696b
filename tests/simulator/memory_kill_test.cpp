#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <map>
#include <random>
#include <thread>

#include "folder.hpp"
#include "host.hpp"
#include "machine/status.hpp"
#include "memory/database.hpp"
#include "memory/memory.hpp"

namespace impresora {
namespace {

using prueba::Folder;
using prueba::kEmpty;
using prueba::Shop;

// What the host was told by the printer that was killed: a series' letter and the last number that
// it heard for a document of it, closed or cancelled.
using Heard = std::map<char, long>;

constexpr std::array<char, 3> kSeries{'t', 'A', 'B'};

void Tell(int pipe, char series, const std::string& number) {
  const std::string line = std::string(1, series) + number + "\n";
  if (write(pipe, line.data(), line.size()) < 0) _exit(3);
}

// Documents without end: tickets and invoices, some cancelled, now and then a closing. The host
// hears of each only what an answer says.
[[noreturn]] void Serve(const std::string& path, int pipe, unsigned seed) {
  std::mt19937 random(seed);
  Shop shop;
  const std::unique_ptr<Store> store = OpenMemory(path, {});
  shop.printer.UseMemory(*store);
  if ((shop.Send({"Y"}).fiscal & kDocumentOpen) != 0) {
    const bool invoice = shop.printer.GetStage() != Stage::kTicketItems &&
                         shop.printer.GetStage() != Stage::kTicketPayments;
    shop.Send({invoice ? "d" : "D", kEmpty, kEmpty, "C"});
  }
  while (true) {
    const char series = kSeries[random() % kSeries.size()];
    const std::string letter(1, series);
    if (series == 't') {
      shop.OpenTicket();
    } else {
      shop.OpenInvoice("T", letter);
    }
    for (auto items = 1 + random() % 3; items > 0; --items) {
      series == 't' ? shop.TicketItem("Pan", "1000", "1210")
                    : shop.InvoiceItem("Pan", "1000", "1210");
    }
    const Answer closed = series == 't' ? shop.Send({"E", "T"}) : shop.CloseInvoice("T", letter);
    Tell(pipe, series, closed.fields.at(0));
    if (random() % 16 == 0) shop.Send({"9", "Z", "P"});
    shop.PaperText();
  }
}

// The pipe's lines up to the last whole one.
void Listen(int pipe, Heard& heard) {
  std::string text;
  std::array<char, 4096> buffer{};
  for (ssize_t count = 1; count > 0;) {
    count = read(pipe, buffer.data(), buffer.size());
    if (count > 0) text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  for (std::size_t at = 0, end = 0; (end = text.find('\n', at)) != std::string::npos;
       at = end + 1) {
    heard[text[at]] = std::stol(text.substr(at + 1, end - at - 1));
  }
}

void LiveAndDie(const std::string& path, unsigned seed, long microseconds, Heard& heard) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    close(ends[0]);
    Serve(path, ends[1], seed);
  }
  close(ends[1]);
  std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
  kill(child, SIGKILL);
  Listen(ends[0], heard);
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status)) << "the printer ended by itself: " << status;
}

std::int64_t Number(Database& database, const std::string& select, const std::string& where) {
  return database.Number("SELECT " + select + " FROM comprobantes WHERE clase = 'fiscal' AND " +
                         where);
}

// Numbers 1 to the last without a hole; the last is the one that the host heard of or, if the
// printer was killed between the file and the answer, the one after. An open document
// has the next number. The host asks the next printer for its counters, and knows again.
void CheckSeries(Database& database, char series, Heard& heard) {
  const std::string code = series == 't' ? "" : "T";
  const std::string letter = series == 't' ? "B" : std::string(1, series);
  const std::string where = "codigo = '" + code + "' AND letra = '" + letter + "'";
  const std::int64_t last = Number(database, "coalesce(max(numero), 0)", where);
  const std::int64_t last_sold =
      Number(database, "coalesce(max(numero), 0)", where + " AND cancelado = 0");
  EXPECT_EQ(Number(database, "count(*)", where), last);
  EXPECT_EQ(Number(database, "count(DISTINCT numero)", where), last);
  const long known = heard[series];
  EXPECT_GE(last_sold, known);
  EXPECT_LE(Number(database, "count(*)",
                   where + " AND cancelado = 0 AND numero > " + std::to_string(known)),
            1);
  const std::int64_t open =
      database.Number("SELECT coalesce(max(numero), 0) FROM documento WHERE " + where);
  if (open != 0) {
    EXPECT_EQ(open, last + 1);
  }
  heard[series] = last_sold;
}

// The day's and the closings' figures say the same as the documents.
void CheckSums(Database& database) {
  EXPECT_EQ(Number(database, "coalesce(sum(total), 0)", "cancelado = 0"),
            database.Number("SELECT coalesce(sum(total), 0) FROM movimientos"));
  EXPECT_EQ(Number(database, "coalesce(sum(iva), 0)", "cancelado = 0"),
            database.Number("SELECT coalesce(sum(iva), 0) FROM tasas"));
  EXPECT_EQ(database.Number("SELECT count(*) FROM comprobantes WHERE clase = 'informe'"),
            database.Number("SELECT count(*) FROM cierres"));
  EXPECT_EQ(database.Text("PRAGMA integrity_check"), "ok");
}

TEST(MemoryKill, KilledAtAnyMomentNoDocumentIsHalfAndNoNumberTwice) {
  constexpr unsigned kKills = 250;
  const Folder folder;
  const std::string path = folder / "m.db";
  std::mt19937 random(20261121);
  Heard heard;
  for (unsigned round = 0; round < kKills; ++round) {
    LiveAndDie(path, round, static_cast<long>(random() % 25'000), heard);
    if (HasFatalFailure()) return;
    Database database(path);
    if (database.Number("SELECT count(*) FROM sqlite_master") == 0) continue;  // not yet begun
    for (const char series : kSeries) CheckSeries(database, series, heard);
    CheckSums(database);
    if (HasFailure()) FAIL() << "after kill " << round;
  }
  EXPECT_GT(Database(path).Number("SELECT count(*) FROM comprobantes"), kKills / 10);
}

}  // namespace
}  // namespace impresora
