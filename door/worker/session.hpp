// What a worker does about each line of the door.
#pragma once

#include <string>

#include "worker/clearing.hpp"
#include "worker/link.hpp"

namespace puerta {

class Session {
 public:
  // `ini` is the text of Fiscal.ini.
  Session(Link& link, const std::string& ini);

  // Until the door says "termine" or is gone.
  void Run();

 private:
  struct Job {
    std::int64_t number = 0;
    std::string operation;
    Json body;
  };

  void Answer(const Json& line);
  void Carry(const Json& line);
  void Recover(const Json& told);
  void AnswerQuestion(const Job& job);

  void Print(const Job& job, Plan plan);
  bool HasLeave(const Job& job);
  bool PrintCalls(const Job& job, Plan& plan, Report& failed);
  Report Persist(const Call& call);
  void NotePaid(Plan& plan);
  void NoteNumber(Plan& plan);
  void End(const Job& job, const Plan& plan, const Report& failed);
  void EndDone(const Job& job, Plan& plan);

  bool LearnCounters(Report& report);
  void Finish(const Job& job, const char* name, Json outcome);
  void TellNews();

  Link& link_;
  Facts facts_;
  Json told_facts_;
  std::string journal_;
  Library library_;
  Before before_;       // of the job in hand
  bool knows_ = false;  // whether the counters are those of now
  Counters counters_ = {};
  Json news_;
  bool over_ = false;
};

}  // namespace puerta
