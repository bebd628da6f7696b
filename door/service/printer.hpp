// One printer: its queue, its worker, and what is asked first when either of them had died.
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "base/clock.hpp"
#include "base/json.hpp"
#include "base/log.hpp"
#include "service/job_json.hpp"
#include "service/world.hpp"
#include "store/store.hpp"

namespace puerta {

struct PrinterWorld {
  Store& store;
  const Clock& clock;
  Timers& timers;
  Workers& workers;
  JobListener& listener;
  Log& log;
};

class Printer {
 public:
  using Answered = std::function<void(const Json& told)>;  // null: there is nobody to ask

  Printer(std::string id, Json facts, const PrinterWorld& world);

  const std::string& Id() const { return id_; }
  const Json& Facts() const { return facts_; }

  void Start();
  void Next();  // something may be in the queue
  void OnLine(const Json& line);
  void OnGone(const std::string& why);

  // What prints nothing and is not kept. While a document is under way nobody is asked.
  void Ask(const std::string& question, Answered answered);
  bool IsBusy() const { return phase_ == Phase::kHanded || phase_ == Phase::kPrinting; }

  // A job that the worker already has begins: it is too late to take it back.
  bool Has(std::int64_t job) const { return IsBusy() && job_ == job; }
  std::int64_t Line(std::int64_t job) const { return Has(job) ? line_ : 0; }
  const Json& Told() const { return told_; }  // the last "novedad", null before
  Json Show() const;
  std::int64_t Deaths() const { return deaths_; }

 private:
  static constexpr int kStopped = 4;     // deaths after which a person has to look
  static constexpr int kInternal = 108;  // KESTRA_CAUSA_FALLA_INTERNA

  enum class Phase { kAway, kStarting, kIdle, kHanded, kPrinting, kRecovering, kAsking };
  struct Question {
    std::string words;
    Answered answered;
  };

  void Guarded(const std::function<void()>& work);
  void Restart();
  void Recover(const Job& job);
  void Hand(const Job& job);
  bool AskNext();
  void ForgetQuestions();
  void Watch();
  void Look();
  std::string_view Connection() const;
  void TellConnection();

  void Ready(const Json& told);
  void Before(const Json& told);
  void Step(const Json& told);
  void Ended(const Json& told);
  void Recovered(const Json& told);
  void News(const Json& told);
  void Finish(const Job& job, const Json& told);
  void Alarm(std::int64_t cause, const std::string& words);

  std::string id_;
  Json facts_;
  PrinterWorld world_;
  Phase phase_ = Phase::kAway;
  std::int64_t job_ = 0;
  std::int64_t line_ = 0;
  std::int64_t last_question_ = 0;
  std::deque<Question> questions_;
  std::optional<Question> asked_;
  bool resting_ = false;  // before a doubt is asked about once more
  int doubts_ = 0;        // how often in a row nobody knew
  int failures_ = 0;      // deaths in a row without a line of use
  int unbegun_ = 0;       // deaths in a row with the same job in hand that had not begun
  std::int64_t deaths_ = 0;
  std::string why_;  // of the last death
  Json told_;
  std::string connection_;
  Moment heard_{};
  bool watched_ = false;
  bool looking_ = false;
};

}  // namespace puerta
