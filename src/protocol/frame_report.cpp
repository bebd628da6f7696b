#include "protocol/frame_report.hpp"

#include <utility>

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

void FrameReport::Judge(std::string_view waiting) {
  heard_ += waiting;
  const auto heard = Listen(heard_, header_);
  if (!heard.answer.empty()) Learn(FieldsOf(heard.answer));
  Conclude(JudgeHeard(heard, heard_.find_first_not_of(kDc2) != std::string::npos, errand_));
}

void FrameReport::Fail(const Failure& failure) {
  if (!concluded_) {
    // It may fail behind its answer: in acknowledging it.
    const bool answered = sent_ && !Listen(heard_, header_).answer.empty();
    const auto outcome = sent_ ? Outcome::kUnknown : Outcome::kNotSent;
    answered ? Judge({}) : Conclude({outcome, CauseOf(failure)});
  }
  End();
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
