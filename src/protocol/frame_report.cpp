#include "protocol/frame_report.hpp"

#include "protocol/packet.hpp"
#include "protocol/verdict.hpp"
#include "state/library.hpp"

namespace kestra {

FrameReport::FrameReport(Library& library, std::string_view command)
    : library_(library), errand_(ErrandOf(command)) {}

void FrameReport::Begin() {
  concluded_ = false;
  sent_ = false;
  heard_.clear();
}

void FrameReport::Sending() {
  sent_ = true;
  NoteSending(library_);
  NoteSoFar(library_, AfterRepetition(verdict_, {Outcome::kUnknown, Cause::kAbandoned}), errand_);
}

void FrameReport::Judge(std::string_view header, std::string_view waiting) {
  heard_ += waiting;
  const auto heard = Listen(heard_, header);
  if (!heard.answer.empty()) NoteAnswer(library_, FieldsOf(heard.answer));
  Conclude(JudgeHeard(heard, heard_.find_first_not_of(kDc2) != std::string::npos));
}

void FrameReport::Fail(const Failure& failure) {
  const auto outcome = sent_ ? Outcome::kUnknown : Outcome::kNotSent;
  if (!concluded_) Conclude({outcome, CauseOf(failure)});
  End();
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
