#include "protocol/frame_report.hpp"

#include <utility>

#include "base/failure.hpp"
#include "protocol/ledger.hpp"
#include "protocol/packet.hpp"
#include "protocol/question.hpp"
#include "protocol/verdict.hpp"
#include "state/library.hpp"

namespace kestra {

FrameReport::FrameReport(Library& library, std::string command)
    : library_(library), command_(std::move(command)), errand_(ErrandOf(command_)) {}

void FrameReport::Begin() {
  concluded_ = false;
  sent_ = false;
  heard_.clear();
}

void FrameReport::Sending(std::string_view header) {
  header_ = header;
  sent_ = true;
  NoteSending(library_);
  NoteSoFar(library_, AfterRepetition(verdict_, {Outcome::kUnknown, Cause::kAbandoned}), errand_);
}

// What there is no memory for is as if the line had spoilt it.
void FrameReport::Heard(std::string_view bytes) noexcept {
  WithoutFailing([&] { heard_ += bytes; });
}

void FrameReport::Judge(std::string_view waiting) noexcept {
  Heard(waiting);
  Conclude(Known({}));
}

// It may fail behind its answer: in acknowledging it.
void FrameReport::Fail(const Failure& failure) noexcept {
  if (!concluded_) {
    const auto cause = CauseOf(failure);
    Conclude(sent_ ? Known({Outcome::kUnknown, cause}) : Verdict{Outcome::kNotSent, cause});
  }
  End();
}

// Where no answer came `without_answer` says what happened, or else what the line brought does.
Verdict FrameReport::Known(const Verdict& without_answer) noexcept {
  Verdict verdict{Outcome::kUnknown, Cause::kNoMemory};
  WithoutFailing([&] {
    const auto heard = Listen(heard_, header_);
    if (!heard.answer.empty()) Learn(FieldsOf(heard.answer));
    const bool told = heard.answer.empty() && without_answer.outcome != Outcome::kNothingAsked;
    const bool leftover = heard_.find_first_not_of(kDc2) != std::string::npos;
    verdict = told ? without_answer : JudgeHeard(heard, leftover, errand_);
  });
  return verdict;
}

void FrameReport::End() {
  NoteVerdict(library_, verdict_, errand_);
  if (verdict_.outcome != Outcome::kUnknown) return;
  // Nobody knows what the printer is doing now, until it is asked.
  auto& ledger = library_.certainty.ledger;
  ledger.open.reset();
  ledger.lines.reset();
  ledger.paid.reset();
  ledger.total.reset();
}

// What the answer says of the document in hand.
void FrameReport::Learn(const Fields& answer) {
  NoteAnswer(library_, answer);
  const bool done = JudgeWords(WordsOf(answer), errand_).outcome == Outcome::kDone;
  if (done) Enter(library_.certainty.ledger, command_, library_.state);
  kestra::Learn(library_, command_, answer);
}

// A question that is not answered has had nothing done.
void FrameReport::Conclude(Verdict verdict) {
  const bool asks = errand_ == Errand::kQuestion;
  if (asks && verdict.outcome == Outcome::kUnknown) verdict.outcome = Outcome::kNotDone;
  verdict_ = asks ? verdict : AfterRepetition(verdict_, verdict);
  concluded_ = true;
  NoteSoFar(library_, verdict_, errand_);
}

}  // namespace kestra
