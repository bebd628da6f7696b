// A world for printers: time stands still, workers are lines to read and to write, the memory is a real one.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/clock.hpp"
#include "base/log.hpp"
#include "door/store/folder.hpp"
#include "service/service.hpp"

namespace puerta {

class StandingClock : public Clock {
 public:
  std::chrono::sys_time<std::chrono::milliseconds> Now() const override { return now; }

  std::chrono::sys_time<std::chrono::milliseconds> now{std::chrono::hours(24 * 365 * 50)};
};

class FakeTimers : public Timers {
 public:
  explicit FakeTimers(StandingClock& clock) : clock_(clock) {}

  void After(std::chrono::milliseconds pause, std::function<void()> then) override {
    due_.emplace(clock_.now + pause, std::move(then));
  }

  // Everything that falls due within that time, in its order.
  void Pass(std::chrono::milliseconds time) {
    const auto until = clock_.now + time;
    while (!due_.empty() && due_.begin()->first <= until) {
      const auto next = due_.extract(due_.begin());
      clock_.now = next.key();
      next.mapped()();
    }
    clock_.now = until;
  }

 private:
  StandingClock& clock_;
  std::multimap<std::chrono::sys_time<std::chrono::milliseconds>, std::function<void()>> due_;
};

class FakeWorkers : public Workers {
 public:
  void Start(const std::string& printer) override { ++starts[printer]; }
  void Send(const std::string&, const Json& line) override { sent.push_back(LineOf(line)); }
  void Kill(const std::string& printer) override { killed.push_back(printer); }

  std::map<std::string, int> starts;
  std::vector<std::string> sent;
  std::vector<std::string> killed;
};

class NoLog : public Log {
 public:
  void Write(std::string_view, std::string_view, const Json&) override {}
};

// A door with one printer, "caja1", whose worker is the test.
class ShopOfOne {
 public:
  ShopOfOne() { Open(); }

  // What a process that dies and starts again has.
  void Open() {
    service.reset();
    store.reset();
    store = OpenStore({.path = folder / "puerta.db", .publishes = true});
    service =
        std::make_unique<Service>(std::vector<PrinterSettings>{{.id = "caja1", .folder = "."}}, 3,
                                  *store, clock, timers, workers, log);
    service->Start();
  }

  void Says(const std::string& line) {
    service->OnLine("caja1", *ParseJson(line));
    timers.Pass(std::chrono::milliseconds(0));
  }

  Taken Wants(const std::string& key, const std::string& body = R"({"cajon":1})") {
    auto taken = service->Take({.till = "",
                                .key = key,
                                .printer = "caja1",
                                .operation = "cajon",
                                .body = *ParseJson(body)});
    timers.Pass(std::chrono::milliseconds(0));
    return taken;
  }

  std::string StateOf(std::int64_t job) { return std::string(WordsOf(store->Find(job)->state)); }
  std::string LastSent() const { return workers.sent.empty() ? "" : workers.sent.back(); }

  prueba::Folder folder;
  StandingClock clock;
  FakeTimers timers{clock};
  FakeWorkers workers;
  NoLog log;
  std::unique_ptr<Store> store;
  std::unique_ptr<Service> service;
};

}  // namespace puerta
