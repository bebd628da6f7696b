#pragma once

#include <string>

#include "store/sqlite.hpp"
#include "store/store.hpp"

namespace puerta {

// Opens the file of a door, makes it when there is none, looks at it before it is believed.
class DoorFile {
 public:
  explicit DoorFile(const std::string& path);

  Database& Open() { return database_; }

 private:
  void Create();
  void CheckFormat();

  // A second door stands before this one: an empty file beside the other, held for as long as this
  // process lives, however it ends.
  Database in_use_;
  Database database_;
};

class StoreFile : public Store {
 public:
  explicit StoreFile(StoreOptions options);

  Acceptance Accept(const Request& request, Moment now, Events events) override;
  bool Begin(std::int64_t number, std::string_view before, Moment now, Events events) override;
  bool Finish(std::int64_t number, const Outcome& outcome, Moment now, Events events) override;
  bool Cancel(std::int64_t number, std::string_view answer, Moment now, Events events) override;

  std::optional<Job> Find(std::int64_t number) override;
  std::optional<Job> FindKey(std::string_view till, std::string_view key) override;
  std::optional<Job> Next(std::string_view printer) override;
  std::int64_t Waiting(std::string_view printer) override;
  std::int64_t Position(const Job& job) override;
  std::vector<Job> Interrupted(std::string_view printer) override;
  std::vector<Job> JobsOf(std::string_view printer, std::int64_t before, int most) override;

  std::int64_t Add(const Event& event, Moment now) override;
  std::vector<StoredEvent> EventsAfter(std::int64_t id, int most) override;
  std::int64_t LastEvent() override;
  std::int64_t Unpublished() override;
  std::int64_t Prune(Moment age_limit, int most) override;

 private:
  bool Changed(Transaction& transaction, Events events, Moment now);
  void Write(Events events, Moment now);
  std::int64_t WriteOne(const Event& event, Moment now);
  std::int64_t NextInSequence(const std::string& printer);

  StoreOptions options_;
  DoorFile file_;
  Database& database_;
};

}  // namespace puerta
