// The door's requests from their first byte on: HTTP library, gate, keys, routes, the check of a document and the
// answers to every address, without sockets, on a memory of its own that is new for each run.
#include <array>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/sha256.hpp"
#include "fuzz/input.hpp"
#include "http/desk.hpp"
#include "http/reader.hpp"
#include "service/service.hpp"

namespace puerta::fuzzing {
namespace {

using fuzz::Input;
using fuzz::Require;

class StandingClock : public Clock {
 public:
  std::chrono::sys_time<std::chrono::milliseconds> Now() const override {
    return std::chrono::sys_time<std::chrono::milliseconds>(std::chrono::hours(500000));
  }
};

class Turns : public Timers {
 public:
  void After(std::chrono::milliseconds pause, std::function<void()> then) override {
    if (pause.count() == 0) now_.push_back(std::move(then));
  }
  void Take() {
    for (const auto& then : std::exchange(now_, {})) then();
  }

 private:
  std::vector<std::function<void()>> now_;
};

class Nobody : public Workers {
 public:
  void Start(const std::string&) override {}
  void Send(const std::string&, const Json&) override {}
  void Kill(const std::string&) override {}
};

class Silence : public Log {
 public:
  void Write(std::string_view, std::string_view, const Json&) override {}
};

// The memory that a door needs to answer: jobs in a list.
class ListStore : public Store {
 public:
  Acceptance Accept(const Request& request, Moment now, Events) override {
    jobs_.push_back({.number = static_cast<std::int64_t>(jobs_.size()) + 1,
                     .till = request.till,
                     .key = request.key,
                     .printer = request.printer,
                     .operation = request.operation,
                     .hash = request.hash,
                     .body = request.body,
                     .state = State::kQueued,
                     .before = "",
                     .answer = "",
                     .accepted = now,
                     .began = {},
                     .ended = {}});
    return {.novelty = Novelty::kNew, .job = jobs_.back()};
  }
  bool Begin(std::int64_t, std::string_view, Moment, Events) override { return true; }
  bool Finish(std::int64_t, const Outcome&, Moment, Events) override { return true; }
  bool Cancel(std::int64_t number, std::string_view, Moment, Events) override {
    return Find(number).has_value();
  }
  std::optional<Job> Find(std::int64_t number) override {
    for (const auto& job : jobs_) {
      if (job.number == number) return job;
    }
    return std::nullopt;
  }
  std::optional<Job> FindKey(std::string_view till, std::string_view key) override {
    for (const auto& job : jobs_) {
      if (job.till == till && job.key == key) return job;
    }
    return std::nullopt;
  }
  std::optional<Job> Next(std::string_view) override { return std::nullopt; }
  std::int64_t Waiting(std::string_view) override {
    return static_cast<std::int64_t>(jobs_.size());
  }
  std::vector<Job> Interrupted(std::string_view) override { return {}; }
  std::vector<Job> JobsOf(std::string_view, std::int64_t before, int) override {
    return before == 0 ? jobs_ : std::vector<Job>();
  }
  std::int64_t Add(const Event&, Moment) override { return 1; }
  std::vector<StoredEvent> EventsAfter(std::int64_t, int) override { return {}; }
  std::int64_t LastEvent() override { return 0; }
  std::int64_t Unpublished() override { return 0; }
  std::int64_t Prune(Moment, int) override { return 0; }

 private:
  std::vector<Job> jobs_;
};

struct Shop {
  StandingClock clock;
  Turns turns;
  Nobody workers;
  Silence log;
  ListStore store;
  Service service{{{.id = "caja1", .folder = "."}}, 100, store, clock, turns, workers, log};
  Api api{service, {}};
  Gate gate{{.port = 8470}};
  KeyRing keys{{{.name = "caja", .key_hash = Sha256("clave"), .rights = kAll}}};
  Audit audit{"", clock};
  Desk desk{api, gate, keys, audit, clock};
};

// The first byte says how much of a request the input is: all of it, or what stands behind a good head.
std::string RequestOf(Input& input) {
  static constexpr std::array<std::string_view, 8> kStarts{"POST /v1/impresoras/caja1/comprobantes",
                                                           "POST /v1/impresoras/caja1/informes",
                                                           "POST /v1/impresoras/caja1/no-fiscales",
                                                           "PUT /v1/impresoras/caja1/encabezados",
                                                           "PUT /v1/impresoras/caja1/reloj",
                                                           "GET /v1/impresoras/caja1/trabajos?",
                                                           "GET /v1/eventos?",
                                                           "GET /"};
  const auto form = input.Byte();
  if (form >= 192) return std::string(input.Rest());
  const std::string_view start = kStarts[form % kStarts.size()];
  std::string request(start);
  const bool looks = start.starts_with("GET");
  if (looks) request += input.Text(80);
  request += " HTTP/1.1\r\nHost: localhost:8470\r\nAuthorization: Bearer clave\r\n";
  if (form >= 128) request.append(input.Text(80)).append("\r\n");
  const std::string body(input.Rest());
  request += "Idempotency-Key: 12345678\r\nContent-Type: application/json\r\nContent-Length: " +
             std::to_string(body.size()) + "\r\n\r\n";
  return request + body;
}

void CheckAnswer(const Answer& answer) {
  Require(answer.status >= 200 && answer.status < 600, "an answer has a status");
  Require(answer.status != 500, "and the door is still well");
  const bool json = answer.type.find("json") != std::string::npos && answer.status != 204;
  if (json) Require(Json::accept(answer.body), "JSON that says so");
  const auto bytes = ToBytes(answer, false, false);
  const auto head = bytes.substr(0, bytes.find("\r\n\r\n"));
  Require(head.find('\0') == std::string::npos, "a head without a zero");
}

// Whoever reads a request whole or byte by byte reads the same.
std::optional<HttpRequest> Read(const std::string& bytes) {
  RequestReader whole(1 << 16);
  RequestReader pieces(1 << 16);
  const auto state = whole.Feed(bytes);
  auto other = RequestReader::State::kMore;
  for (std::size_t at = 0; at < bytes.size() && other == RequestReader::State::kMore; ++at) {
    other = pieces.Feed(std::string_view(bytes).substr(at, 1));
  }
  Require((state == RequestReader::State::kWhole) == (other == RequestReader::State::kWhole),
          "in any pieces");
  if (state == RequestReader::State::kBad)
    Require(whole.Refusal().status >= 400, "a refusal says why");
  if (state != RequestReader::State::kWhole) return std::nullopt;
  return whole.Take();
}

void Run(Input& input) {
  auto request = Read(RequestOf(input));
  if (!request) return;
  Shop shop;
  int answers = 0;
  shop.desk.Receive(std::move(*request), [&](const Answer& answer) {
    ++answers;
    CheckAnswer(answer);
  });
  shop.turns.Take();
  Require(answers <= 1, "one answer");
}

}  // namespace
}  // namespace puerta::fuzzing

FUZZ_TARGET(input) {
  puerta::fuzzing::Run(input);
}
