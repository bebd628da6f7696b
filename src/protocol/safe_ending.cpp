#include "protocol/safe_ending.hpp"

#include <utility>

#include "base/ansi.hpp"
#include "dialogs/conditions.hpp"
#include "protocol/answer_check.hpp"
#include "protocol/books.hpp"
#include "protocol/exchange.hpp"
#include "protocol/ledger.hpp"
#include "protocol/question.hpp"
#include "protocol/strict_answer.hpp"
#include "protocol/verdict.hpp"
#include "state/journal.hpp"
#include "state/library.hpp"

namespace kestra {
namespace {

constexpr auto kRetry = "Error de Comunicación con la fiscal. Reintentar?\r\r"_ansi;

}  // namespace

SafeEnding::SafeEnding(Library& library, std::string command)
    : library_(library), command_(std::move(command)) {
  library_.state.ComandoActual = command_;
  // So that nothing can fail once the outcome is known.
  spare_ = command_;
  library_.certainty.accepted.reserve(library_.certainty.accepted.size() + 1);
}

Pending SafeEnding::Intent(double sent) const {
  const auto& certainty = library_.certainty;
  return {.call = certainty.report.call,
          .command = command_,
          .accepted = certainty.accepted,
          .before = certainty.ledger,
          .sent = sent};
}

void SafeEnding::TakeAnswer(std::string answer, const Fields& fields) {
  answer_ = std::move(answer);
  fields_ = fields;
}

void SafeEnding::TakeBooks(std::string_view header, const Fields& fields) {
  answer_ = AnswerOf(header, fields);
  fields_ = fields;
}

Cause SafeEnding::Condition() const {
  return JudgeWords(WordsOf(fields_)).cause;
}

bool SafeEnding::OperatorInsists(const Verdict& verdict) {
  const auto text = std::string(kRetry) + CauseText(verdict.cause, verdict.outcome);
  const auto answer = library_.platform.GetOperator().Message(text, "Error !", kBoxYesNo);
  return answer == kAnswerYes;
}

bool SafeEnding::ReportAndRetry() {
  ShowAnswer(library_, answer_);
  reported_ = true;
  library_.state.Reintentar = kFalse;
  ReportConditions(library_);
  return library_.state.Reintentar != kFalse;
}

void SafeEnding::EnterDone() noexcept {
  auto& certainty = library_.certainty;
  if (!entered_) Enter(certainty.ledger, command_, library_.state);
  EnterNumber(certainty.ledger, command_, fields_[2]);
  if (MethodOf(command_).method == Method::kQuestion) return;
  certainty.accepted.push_back(std::move(spare_));
}

// A call that is made again although no doubt is left of it: what is done of it is not done again either.
void SafeEnding::KeepParts(const Verdict& verdict) noexcept {
  auto& certainty = library_.certainty;
  const bool ends = verdict.outcome == Outcome::kNotSent || verdict.outcome == Outcome::kNotDone ||
                    verdict.outcome == Outcome::kRefused;
  if (!ends || certainty.accepted.empty() || certainty.settled) return;
  WithoutFailing([&] {
    Settled parts{.call = certainty.report.call,
                  .done = certainty.accepted,
                  .command = command_,
                  .verdict = verdict,
                  .answer = {}};
    certainty.settled = std::move(parts);
  });
}

// Nothing here waits for anybody.
void SafeEnding::Remember(const Verdict& verdict, Keep keep) noexcept {
  ended_ = true;
  done_ = verdict.outcome == Outcome::kDone;
  if (done_) EnterDone();
  if (!answer_.empty()) {
    NoteAnswer(library_, fields_);
    Learn(library_, command_, fields_);
  }
  const auto errand = ErrandOf(command_);
  NoteVerdict(library_, verdict, errand);
  library_.certainty.unheard = verdict.outcome == Outcome::kUnknown;
  if (errand == Errand::kQuestion) return;
  if (keep == Keep::kPending && library_.certainty.pending) return;
  library_.certainty.pending.reset();
  KeepParts(verdict);
  JournalResult(library_, verdict);
}

void SafeEnding::End(const Verdict& verdict, Told told, Keep keep) {
  Remember(verdict, keep);
  if (!answer_.empty()) {
    library_.state.Reintentar = kFalse;
    if (!reported_) ShowAnswer(library_, answer_);
    if (!reported_ && !library_.certainty.report.reported) ReportConditions(library_);
    return ShowCommand();
  }
  library_.state.RespuestaActual = kCommunicationError;
  if (told == Told::kNothing) Tell(verdict);
}

void SafeEnding::EndDoneBefore(const Fields& fields) {
  ended_ = done_ = true;
  NoteVerdict(library_, {Outcome::kDone, Cause::kNone});
  library_.certainty.accepted.push_back(std::move(spare_));
  if (fields[0].empty()) return;
  NoteAnswer(library_, fields);
  ShowAnswer(library_, AnswerOf(" " + command_.substr(0, 1), fields));
}

void SafeEnding::EndUnsent(const Verdict& verdict) {
  ended_ = true;
  NoteVerdict(library_, verdict, ErrandOf(command_));
  KeepParts(verdict);
  library_.state.RespuestaActual = kCommunicationError;
  Tell(verdict);
}

void SafeEnding::Tell(const Verdict& verdict) {
  const auto text = "Error en el comando Enviar\r\r" + CauseText(verdict.cause, verdict.outcome);
  library_.platform.GetOperator().Message(text, "", kBoxOk);
}

void SafeEnding::ShowCommand() {
  if (library_.state.MostrarComandos == 0) return;
  std::string text = "Comando enviado:" + library_.state.ComandoActual;
  text.append("\r /OK: ").append(done_ ? "True" : "False");
  library_.platform.GetOperator().Message(text, "", kBoxOk);
}

}  // namespace kestra
