#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <vector>

#include "shop.hpp"
#include "store/sqlite.hpp"

namespace puerta {
namespace {

using prueba::At;
using prueba::Fill;
using prueba::Folder;
using prueba::Sale;

struct Refusal {
  bool refused = false;
  Trouble trouble = Trouble::kOther;
  std::string words{};
};

Refusal Opening(const std::string& path) {
  try {
    OpenStore({.path = path});
    return {};
  } catch (const StoreFailure& failure) {
    return {.refused = true, .trouble = failure.Why(), .words = failure.what()};
  }
}

void MakeStore(const std::string& path) {
  const std::unique_ptr<Store> store = OpenStore({.path = path});
  for (int i = 0; i < 200; ++i) store->Accept(Sale("k" + std::to_string(i)), At(i));
}

std::function<void(const std::string& path)> Change(const std::string& sql) {
  return [sql](const std::string& path) { Database(path).Execute(sql); };
}

void Spoil(const std::string& path) {
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  for (int page = 2; page < 12; ++page) {
    file.seekp(page * 4096);
    file << std::string(200, '\x5a');
  }
}

TEST(StoreFiles, OneThatIsNoDoorsStaysAsItIs) {
  struct Case {
    const char* story;
    std::function<void(const std::string& path)> spoil;
    Trouble trouble;
    const char* words;
  };
  const std::vector<Case> cases{
      {"a text", [](const std::string& p) { Fill(p, std::string(5000, 'x')); }, Trouble::kForeign,
       "el archivo no es de una puerta, o está dañado"},
      {"another program's", Change("PRAGMA application_id = 7"), Trouble::kForeign,
       "el archivo no es de una puerta"},
      {"of tomorrow", Change("PRAGMA user_version = 99"), Trouble::kForeign,
       "tiene la versión 99 del formato y este programa usa la 1"},
      {"damaged", Spoil, Trouble::kDamaged, "el archivo está dañado"},
  };
  for (const Case& row : cases) {
    const Folder folder;
    const std::string path = folder / "p.db";
    MakeStore(path);
    row.spoil(path);
    const Refusal refusal = Opening(path);
    EXPECT_TRUE(refusal.refused) << row.story;
    EXPECT_EQ(refusal.trouble, row.trouble) << row.story;
    EXPECT_NE(refusal.words.find(row.words), std::string::npos) << row.story << refusal.words;
    EXPECT_NE(refusal.words.find(path), std::string::npos) << row.story << refusal.words;
  }
}

TEST(StoreFiles, PlacesWhereNoFileCanBe) {
  const Folder folder;
  EXPECT_EQ(Opening(folder / "no/such/p.db").trouble, Trouble::kNotWritable);
  std::filesystem::create_directory(folder / "d");
  EXPECT_TRUE(Opening(folder / "d").refused);
}

TEST(StoreFiles, OneDoorAtATime) {
  const Folder folder;
  std::unique_ptr<Store> first = OpenStore({.path = folder / "p.db"});
  const Refusal refusal = Opening(folder / "p.db");
  EXPECT_EQ(refusal.trouble, Trouble::kBusy);
  EXPECT_NE(refusal.words.find("lo está usando otra puerta"), std::string::npos) << refusal.words;
  EXPECT_FALSE(Opening(folder / "other.db").refused);
  first.reset();
  EXPECT_FALSE(Opening(folder / "p.db").refused);
}

TEST(StoreFiles, AnotherProgramThatOnlyReadsDoesNotDisturb) {
  const Folder folder;
  const std::unique_ptr<Store> store = OpenStore({.path = folder / "p.db"});
  Database reader(folder / "p.db");
  reader.Execute("BEGIN; SELECT * FROM trabajos");
  EXPECT_EQ(store->Accept(Sale("a"), At(0)).novelty, Novelty::kNew);
}

// In a process of its own, whose files may only become so big: a disk that fills, and has room again.
int LiveWithAFullDisk(const std::string& path) {
  std::signal(SIGXFSZ, SIG_IGN);
  const std::unique_ptr<Store> store = OpenStore({.path = path});
  store->Accept(Sale("before"), At(0));
  const rlimit before{RLIM_INFINITY, RLIM_INFINITY};
  const rlimit most{64U << 10U, RLIM_INFINITY};
  setrlimit(RLIMIT_FSIZE, &most);
  int taken = 0;
  bool full = false;
  try {
    for (; taken < 100; ++taken) store->Accept(Sale(std::to_string(taken)), At(1));
  } catch (const StoreFailure& failure) {
    full = failure.Why() == Trouble::kFull;
  }
  setrlimit(RLIMIT_FSIZE, &before);
  // What failed never was, what had been taken is there, and life goes on.
  const bool never = store->Accept(Sale(std::to_string(taken)), At(2)).novelty == Novelty::kNew;
  const bool there = taken == 0 || store->Accept(Sale("0"), At(2)).novelty == Novelty::kKnown;
  return full && never && there ? 0 : 1;
}

TEST(StoreFiles, ADiskThatFills) {
  const Folder folder;
  const pid_t child = fork();
  if (child == 0) _exit(LiveWithAFullDisk(folder / "p.db"));
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_FALSE(Opening(folder / "p.db").refused);
}

// Takes requests and tells each one that it has taken, until it is killed.
[[noreturn]] void TakeUntilKilled(const std::string& path, int told) {
  const std::unique_ptr<Store> store = OpenStore({.path = path, .publishes = true});
  const Event event{.printer = "caja1", .kind = "documento", .data = "{}", .publish = true};
  for (int i = 0;; ++i) {
    const std::int64_t job = store->Accept(Sale(std::to_string(i)), At(i)).job.number;
    store->Begin(job, "{}", At(i));
    store->Finish(job, {.state = State::kDone, .answer = "{}"}, At(i), {&event, 1});
    if (write(told, "x", 1) != 1) _exit(1);
  }
}

TEST(StoreFiles, KilledWhateverWasToldIsThere) {
  for (int round = 0; round < 5; ++round) {
    const Folder folder;
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) TakeUntilKilled(folder / "p.db", ends[1]);
    close(ends[1]);
    char byte = 0;
    int told = 0;
    while (told < 10 + round && read(ends[0], &byte, 1) == 1) ++told;
    kill(child, SIGKILL);
    while (read(ends[0], &byte, 1) == 1) ++told;
    close(ends[0]);
    waitpid(child, nullptr, 0);

    const std::unique_ptr<Store> store = OpenStore({.path = folder / "p.db", .publishes = true});
    for (int i = 0; i < told; ++i) {
      EXPECT_EQ(store->Accept(Sale(std::to_string(i)), At(0)).job.state, State::kDone);
    }
    std::int64_t done = 0;
    for (const Job& job : store->JobsOf("caja1", 0, 1000))
      done += job.state == State::kDone ? 1 : 0;
    EXPECT_EQ(store->Unpublished(), done) << "an outcome without its row of the outbox";
  }
}

}  // namespace
}  // namespace puerta
