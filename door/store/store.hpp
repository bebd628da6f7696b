#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace puerta {

using Moment = std::chrono::sys_time<std::chrono::milliseconds>;

enum class State { kQueued, kPrinting, kDone, kNotDone, kUnknown, kCancelled };

// "en_cola", "imprimiendo", "hecho", "no_hecho", "no_se_sabe", "cancelado".
std::string_view WordsOf(State state);

// What a till asked for. A key is its till's own: another till may use the same one for something else.
struct Request {
  std::string till{};  // whose key to the door it came with; "" where none is needed
  std::string key{};   // its Idempotency-Key
  std::string printer{};
  std::string operation{};
  std::string hash{};  // of the body, however the caller likes to make it
  std::string body{};  // JSON
};

struct Job {
  std::int64_t number = 0;
  std::string till;
  std::string key;
  std::string printer;
  std::string operation;
  std::string hash;
  std::string body;  // JSON; empty when it was forgotten for its age
  State state = State::kQueued;
  std::string before;  // JSON: what was known of the printer before the first byte
  std::string answer;  // JSON: what the till was told, or is to be told
  Moment accepted{};
  Moment began{};
  Moment ended{};  // none while it is not over
};

// What is over is never changed again: the same key gets the same answer for ever.
inline bool IsOver(const Job& job) {
  return job.ended != Moment{};
}

enum class Novelty { kNew, kKnown, kOtherBody };

struct Acceptance {
  Novelty novelty = Novelty::kNew;
  Job job;  // as it stands: new in the queue, or what became of it
};

struct Outcome {
  State state = State::kDone;  // kDone, kNotDone, kUnknown
  std::string answer{};        // JSON
  bool settled = false;        // of kUnknown: nobody will ever tell
};

// What happened, for those who listen here and, if `publish` says so, for those far away.
struct Event {
  std::string printer;  // "" for the door itself
  std::string kind;     // "documento", "cierre", "estado", "alarma", "trabajo", ...
  std::string data;     // JSON object
  bool publish = false;
};

struct StoredEvent {
  std::int64_t id = 0;
  Moment moment{};
  Event event;
};

enum class Trouble { kFull, kBusy, kDamaged, kForeign, kNotWritable, kOther };

// The file could not be opened, read or written; what() says why, for a person.
class StoreFailure : public std::runtime_error {
 public:
  StoreFailure(Trouble trouble, const std::string& words)
      : std::runtime_error(words), trouble_(trouble) {}
  Trouble Why() const { return trouble_; }

 private:
  Trouble trouble_;
};

// The door's memory. What a call changed is on the disk when it returns, with all of its events, or it
// threw StoreFailure and nothing of it happened. One thread uses it.
class Store {
 public:
  using Events = std::span<const Event>;

  virtual ~Store() = default;

  // A request under a key that is known is not taken again, whatever became of it; under kOtherBody
  // the job is the one that has the key.
  virtual Acceptance Accept(const Request& request, Moment now, Events events = {}) = 0;

  // Before the first byte. False when the job is not in the queue any more: then nothing may be sent.
  virtual bool Begin(std::int64_t number, std::string_view before, Moment now,
                     Events events = {}) = 0;

  // Outcome, events and what is to be published are one transaction. What is not
  // settled may be followed by another; false, and nothing written, when the job is over already.
  virtual bool Finish(std::int64_t number, const Outcome& outcome, Moment now,
                      Events events = {}) = 0;

  // False when it has begun, or is over: it is too late.
  virtual bool Cancel(std::int64_t number, std::string_view answer, Moment now,
                      Events events = {}) = 0;

  virtual std::optional<Job> Find(std::int64_t number) = 0;
  virtual std::optional<Job> FindKey(std::string_view till, std::string_view key) = 0;
  virtual std::optional<Job> Next(std::string_view printer) = 0;  // the oldest in the queue
  virtual std::int64_t Waiting(std::string_view printer) = 0;     // how many are in the queue
  virtual std::int64_t Position(
      const Job& job) = 0;  // in its queue, from 1; 0 when it is not there

  // Those that had begun, or of which nobody knows, the oldest first: to be cleared up before anything
  // else is sent to that printer.
  virtual std::vector<Job> Interrupted(std::string_view printer) = 0;

  // The newest first, those below `before` (0: from the newest on).
  virtual std::vector<Job> JobsOf(std::string_view printer, std::int64_t before, int most) = 0;

  virtual std::int64_t Add(const Event& event, Moment now) = 0;  // its number
  virtual std::vector<StoredEvent> EventsAfter(std::int64_t id, int most) = 0;
  virtual std::int64_t LastEvent() = 0;
  virtual std::int64_t Unpublished() = 0;  // how many wait for the broker

  // Forgets what is older than `age_limit`: bodies of jobs that are over (never a key, nor its answer) and
  // events that nobody waits for. At most so many of each, so that no till waits long; how many it were.
  virtual std::int64_t Prune(Moment age_limit, int most) = 0;
};

struct StoreOptions {
  std::string path;        // UTF-8
  bool publishes = false;  // whether events marked so wait for a broker
};

// Makes the file when there is none. One that another door uses, that is damaged, not a door's or not
// writable is left as it is and told by StoreFailure.
std::unique_ptr<Store> OpenStore(const StoreOptions& options);

}  // namespace puerta
