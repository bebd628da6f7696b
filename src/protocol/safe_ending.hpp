#pragma once

#include <string>
#include <string_view>

#include "protocol/answer.hpp"
#include "state/certainty.hpp"
#include "state/report.hpp"

namespace kestra {

struct Library;

// What the operator has been told of an outcome already.
enum class Told { kNothing, kAll };
// What stays behind of a command whose outcome is not known.
enum class Keep { kNothing, kPending };

// How a command of the safe mode ends: what is known goes to the ledger, the journal and the call's report,
// and only then do boxes open.
class SafeEnding {
 public:
  SafeEnding(Library& library, std::string command);

  [[nodiscard]] const std::string& GetCommand() const { return command_; }

  // The command as it is pending from its first byte on.
  [[nodiscard]] Pending Intent(double sent) const;

  // The command's own answer, or what the books have instead of it.
  void TakeAnswer(std::string answer, const Fields& fields);
  void TakeBooks(std::string_view header, const Fields& fields);

  // The answer was that to another sending.
  void DropAnswer() { answer_.clear(); }

  // The condition that the answer's status words tell of.
  [[nodiscard]] Cause Condition() const;

  // Asks whether to go on, when that would be the verdict if not.
  bool OperatorInsists(const Verdict& verdict);

  // Shows the status report where the settings want it. True: the operator wants the command sent again.
  bool ReportAndRetry();

  // The books were asked: the ledger has it from them.
  void BooksTold() { entered_ = true; }

  void End(const Verdict& verdict, Told told, Keep keep = Keep::kNothing);

  // It was not sent, and nothing but that is known of it.
  void EndUnsent(const Verdict& verdict);

  // It was done when the same call was made before; `fields` is what is known of its answer.
  void EndDoneBefore(const Fields& fields);

  [[nodiscard]] bool HasEnded() const { return ended_; }
  [[nodiscard]] bool IsDone() const { return done_; }

 private:
  void Remember(const Verdict& verdict, Keep keep) noexcept;
  void EnterDone() noexcept;
  void KeepParts(const Verdict& verdict) noexcept;
  void Tell(const Verdict& verdict);
  void ShowCommand();

  Library& library_;
  std::string command_;
  std::string answer_;  // to be split into the state record
  Fields fields_;
  std::string spare_;      // the command once more, for the list of what is done
  bool entered_ = false;   // in the ledger
  bool reported_ = false;  // the operator has seen the status report
  bool ended_ = false;
  bool done_ = false;
};

}  // namespace kestra
