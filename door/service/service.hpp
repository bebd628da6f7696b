// The printers of a shop behind one door: what tills may ask of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/problem.hpp"
#include "service/printer.hpp"

namespace puerta {

struct PrinterSettings {
  std::string id;
  std::string folder;
  Json facts = nullptr;  // of its Fiscal.ini, until its worker tells them
};

// What a till wants done, and once only.
struct Wish {
  std::string till;
  std::string key;
  std::string printer;
  std::string operation;
  Json body;
};

struct Taken {
  std::optional<Problem> refused = {};
  std::optional<Job> job = {};
  bool repeated = false;  // the key was known
};

// Counts since the start.
struct Counters {
  std::int64_t taken = 0, repeated = 0, invalid = 0, other_body = 0, full = 0, cancelled = 0;
};

class Service : public WorkerListener, public JobListener {
 public:
  using Then = std::function<void()>;

  Service(const std::vector<PrinterSettings>& printers, std::size_t most_waiting, Store& store,
          const Clock& clock, Timers& timers, Workers& workers, Log& log);

  void Start();

  Taken Take(const Wish& wish);
  Taken Cancel(std::int64_t number);
  std::optional<Job> Find(std::int64_t number) { return world_.store.Find(number); }
  Json Show(const Job& job);
  std::vector<Job> JobsOf(const std::string& printer, std::int64_t before, int most);
  // Once, when the outcome of that job is known, or known to be unknown.
  void WhenTold(std::int64_t number, Then then);

  Printer* FindPrinter(const std::string& id);
  const std::map<std::string, std::unique_ptr<Printer>>& Printers() const { return printers_; }
  Store& Memory() { return world_.store; }
  Timers& Time() { return world_.timers; }
  const Clock& Wall() const { return world_.clock; }
  const Counters& Count() const { return counters_; }

  // Whenever there are events that nobody has read.
  void OnEvents(Then then) { on_events_.push_back(std::move(then)); }

  void OnLine(const std::string& printer, const Json& line) override;
  void OnGone(const std::string& printer, const std::string& why) override;
  void OnOutcome(std::int64_t job) override;
  void OnNews() override;

 private:
  std::optional<Taken> Repeated(const Wish& wish, const std::string& hash);
  void Prune();

  PrinterWorld world_;
  std::size_t most_waiting_;
  std::map<std::string, std::unique_ptr<Printer>> printers_;
  std::multimap<std::int64_t, Then> waiting_;
  std::vector<Then> on_events_;
  Counters counters_;
};

}  // namespace puerta
