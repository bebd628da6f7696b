#include "protocol/safe_exchange.hpp"

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

#include "base/failure.hpp"
#include "protocol/admission.hpp"
#include "protocol/books.hpp"
#include "protocol/consultation.hpp"
#include "protocol/judgement.hpp"
#include "protocol/ledger.hpp"
#include "protocol/patience.hpp"
#include "protocol/question.hpp"
#include "protocol/safe_ending.hpp"
#include "protocol/safe_line.hpp"
#include "protocol/strict_answer.hpp"
#include "protocol/verdict.hpp"
#include "state/library.hpp"
#include "state/log.hpp"

namespace kestra {
namespace {

// The printer keeps its last answer for six seconds: a repetition has to be there before.
constexpr double kRepeatWithin = 5.5;
constexpr std::int32_t kBetweenLooksMs = 1000;

class SafeExchange {
 public:
  SafeExchange(Library& library, std::string command)
      : library_(library),
        row_(MethodOf(command)),
        line_(library),
        patience_(library),
        ending_(library, std::move(command)) {}

  bool Run();
  bool Fail(const std::exception& error);

 private:
  enum class Step : std::uint8_t { kSend, kRepeat, kAskBooks, kCure, kEnd };

  Step Send();
  Step Put();
  Step Doubted(Cause cause);
  Step AskBooks();
  Step Cure();
  Step Judge();
  Step Untold(Cause cause);
  Step Unanswered(Cause cause);
  Step AskOperator(Step again, const Verdict& verdict);
  Step End(const Verdict& verdict);

  [[nodiscard]] bool HasBook() const { return row_.method > Method::kNoBook; }
  [[nodiscard]] bool MayRepeat();
  Consultation Consult() {
    return kestra::Consult(line_, library_, {ending_.GetCommand(), before_, Now() - sent_});
  }
  double Now() { return library_.platform.GetClock().Elapsed(); }

  Library& library_;
  const MethodRow& row_;
  SafeLine line_;
  Patience patience_;
  SafeEnding ending_;
  NumberedFrame frame_;
  Ledger before_;         // when the frame was sent
  double sent_ = 0;       // the frame, for the first time
  int sendings_ = 0;      // under numbers of their own
  bool written_ = false;  // a frame may have reached the printer, and nothing is known of it yet
  Cause doubt_ = Cause::kNone;
  Before heard_before_;
  Reading reading_;
  Fields fields_;  // of its own answer
};

bool SafeExchange::Run() {
  auto& command = ending_.GetCommand();
  auto admission = Admit(library_, line_, patience_, command);
  if (admission.done) {
    ending_.EndDoneBefore(admission.fields);
    return true;
  }
  if (admission.verdict.outcome != Outcome::kNothingAsked) {
    line_.Close();
    ending_.EndUnsent(admission.verdict);
    return false;
  }
  // In the order of the steps.
  constexpr std::array kTake{&SafeExchange::Send, &SafeExchange::Put, &SafeExchange::AskBooks,
                             &SafeExchange::Cure};
  for (auto step = Step::kSend; step != Step::kEnd;) {
    step = (this->*kTake.at(static_cast<std::size_t>(step)))();
  }
  line_.Close();
  return ending_.IsDone();
}

bool SafeExchange::Fail(const std::exception& error) {
  LogFailure(library_, ToFailure(error), "Enviar", "seguro");
  line_.Close();
  // What is known stays known, whatever a dialog behind it has met.
  if (ending_.HasEnded()) return ending_.IsDone();
  const auto cause = CauseOf(ToFailure(error));
  const bool question = row_.method == Method::kQuestion;
  if (written_ && !question) {
    ending_.End({Outcome::kUnknown, cause}, Told::kNothing, Keep::kPending);
  } else if (sendings_ > 0) {
    ending_.End({Outcome::kNotDone, cause}, Told::kNothing);
  } else {
    ending_.EndUnsent({Outcome::kNotSent, cause});
  }
  return false;
}

SafeExchange::Step SafeExchange::Send() {
  if (!OpenInTime(library_, line_, patience_, sendings_ > 0)) {
    if (sendings_ > 0) return AskOperator(Step::kSend, {Outcome::kNotDone, line_.Why()});
    return End({Outcome::kNotSent, line_.Why()});
  }
  auto& state = library_.state;
  if (state.DelayComandos > 0) library_.platform.GetClock().Sleep(state.DelayComandos);
  frame_ = NumberFrame(library_, ending_.GetCommand());
  state.ComandoActual = frame_.packet;
  if (state.MostrarComandos != 0) {
    library_.platform.GetOperator().Message("Comando a enviar:" + frame_.packet, "", kBoxOk);
  }
  before_ = library_.certainty.ledger;
  reading_ = {};
  ending_.DropAnswer();
  sent_ = Now();
  if (HasBook()) library_.certainty.pending = ending_.Intent(sent_);
  ++sendings_;
  return Put();
}

SafeExchange::Step SafeExchange::Put() {
  // A host may jump out of a box in the middle of it.
  NoteSoFar(library_, {Outcome::kUnknown, Cause::kAbandoned}, ErrandOf(ending_.GetCommand()));
  library_.certainty.unheard = written_ = true;
  if (row_.method != Method::kQuestion) library_.certainty.settled.reset();
  if (!line_.Write(frame_)) return Doubted(line_.Why());
  auto reception = line_.Wait(frame_);
  if (reception.answer.empty()) return Doubted(reception.cause);
  line_.Acknowledge();
  fields_ = FieldsOf(reception.answer);
  ending_.TakeAnswer(std::move(reception.answer), fields_);
  return Judge();
}

bool SafeExchange::MayRepeat() {
  const auto since = std::max(sent_, line_.LastBusy().value_or(sent_));
  return library_.certainty.settings.ReconoceRepetidas == 1 && !line_.WasLost() &&
         Now() - since <= kRepeatWithin && !patience_.Over();
}

SafeExchange::Step SafeExchange::Doubted(Cause cause) {
  doubt_ = cause;
  heard_before_.doubted = true;
  patience_.Begin();
  if (HasBook()) return Step::kAskBooks;
  if (row_.method == Method::kNoBook) {
    return MayRepeat() ? Step::kRepeat : End({Outcome::kUnknown, cause});
  }
  // A question prints nothing: it is asked again.
  if (patience_.Over()) return AskOperator(Step::kSend, {Outcome::kNotDone, cause});
  if (OpenInTime(library_, line_, patience_, true)) line_.Rest();
  return Step::kSend;
}

SafeExchange::Step SafeExchange::AskBooks() {
  patience_.Begin();
  const auto found = AskInTime(library_, line_, patience_, true, [&] { return Consult(); });
  if (!found.answered) return Unanswered(found.cause);
  if (found.finding == Finding::kDone) {
    ending_.BooksTold();
    if (!reading_.answered) ending_.TakeBooks(frame_.header, found.fields);
    return End({Outcome::kDone, ending_.Condition()});
  }
  if (found.finding != Finding::kNotDone) return Untold(found.cause);
  written_ = false;
  if (reading_.if_not_done) return End(*reading_.if_not_done);
  if (reading_.then_cure) return Step::kCure;
  return patience_.Over() ? AskOperator(Step::kSend, {Outcome::kNotDone, doubt_}) : Step::kSend;
}

// The books say nothing, or what nobody understands: its own answer counts, if there is one.
SafeExchange::Step SafeExchange::Untold(Cause cause) {
  if (!reading_.answered) return End({Outcome::kUnknown, cause});
  if (reading_.if_absent.outcome == Outcome::kDone) library_.certainty.ledger = before_;
  return End(reading_.if_absent);
}

SafeExchange::Step SafeExchange::Unanswered(Cause cause) {
  const bool told = reading_.answered && reading_.if_absent.outcome != Outcome::kUnknown;
  if (told) return End(reading_.if_absent);
  return AskOperator(Step::kAskBooks, {Outcome::kUnknown, cause});
}

// What the books cannot tell stays in doubt; what they cannot be asked for is pending.
SafeExchange::Step SafeExchange::AskOperator(Step again, const Verdict& verdict) {
  if (ending_.OperatorInsists(verdict)) {
    patience_.Anew();
    return again;
  }
  const auto keep = verdict.outcome == Outcome::kUnknown ? Keep::kPending : Keep::kNothing;
  ending_.End(verdict, Told::kAll, keep);
  return Step::kEnd;
}

SafeExchange::Step SafeExchange::Judge() {
  const auto judgement = JudgeAnswer(row_, WordsOf(fields_), heard_before_);
  reading_ = judgement.reading;
  switch (judgement.next) {
    case Next::kAskBooks:
      return Step::kAskBooks;
    case Next::kCure:
      return Step::kCure;
    case Next::kSendOnceMore:
      heard_before_.refused = true;
      written_ = false;
      return Step::kSend;
    default:
      return End(reading_.if_absent);
  }
}

SafeExchange::Step SafeExchange::Cure() {
  patience_.Begin();
  if (patience_.Over()) {
    if (!ending_.ReportAndRetry()) return End({Outcome::kRefused, ending_.Condition()});
    patience_.Anew();
  }
  library_.platform.GetClock().Sleep(kBetweenLooksMs);
  if (!OpenInTime(library_, line_, patience_, true) || !line_.Rest()) return Step::kCure;
  if (!HasBook()) {
    const auto reply = AskOn(line_, library_, CountersQuestion());
    return reply.answered && CanPrint(WordsOf(reply.fields)) ? Step::kSend : Step::kCure;
  }
  const auto found = Consult();
  if (!found.answered) return Step::kCure;
  if (found.finding == Finding::kDisagree) return End({Outcome::kUnknown, found.cause});
  if (found.finding == Finding::kDone) {
    ending_.BooksTold();
    ending_.TakeBooks(frame_.header, found.fields);
    return End({Outcome::kDone, ending_.Condition()});
  }
  return CanPrint(WordsOf(found.fields)) ? Step::kSend : Step::kCure;
}

SafeExchange::Step SafeExchange::End(const Verdict& verdict) {
  written_ = false;
  ending_.End(verdict, Told::kNothing);
  return Step::kEnd;
}

}  // namespace

bool SendSafely(Library& library, const std::string& command) {
  SafeExchange exchange(library, command);
  try {
    return exchange.Run();
  } catch (const std::exception& error) {
    return exchange.Fail(error);
  }
}

}  // namespace kestra
