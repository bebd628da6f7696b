#include "worker/outcome.hpp"

#include <kestra/kestra.h>

#include <array>

namespace puerta {
namespace {

constexpr std::array kFates{"hecho", "no_hecho", "no_se_sabe"};

bool IsPlainPage(const Plan& plan) {
  return !plan.calls.empty() && plan.calls.back().name == "EP_CerrarComprobanteNoFiscal";
}

// What a job that was not done says, when no call has said why.
std::string WordsFor(const Plan& plan, const Cleared& cleared, const std::string& why) {
  std::string words = why.empty() ? "Se interrumpió y no se hizo." : why;
  if (cleared.cancelled)
    words +=
        IsPlainPage(plan) ? " La página quedó incompleta." : " El comprobante quedó cancelado.";
  return words;
}

Json Undecided(const Report& why) {
  auto outcome =
      OutcomeJson(Fate::kUnknown,
                  {.outcome = KESTRA_DESENLACE_DESCONOCIDO, .cause = why.cause, .text = why.text});
  outcome["definitivo"] = false;
  return outcome;
}

Report ReportOf(const Plan& plan, const Cleared& cleared, Report failed) {
  constexpr auto kUnsure =
      "Se interrumpió y no se sabe si se hizo: mire el papel antes de repetirlo.";
  if (cleared.verdict.fate == Fate::kDone) return {.outcome = KESTRA_DESENLACE_HECHO};
  if (cleared.verdict.fate == Fate::kUnknown) {
    failed.outcome = KESTRA_DESENLACE_DESCONOCIDO;
    if (failed.text.empty()) failed.text = kUnsure;
    return failed;
  }
  const bool was_sent =
      failed.outcome != KESTRA_DESENLACE_RECHAZADO && failed.outcome != KESTRA_DESENLACE_NO_ENVIADO;
  if (was_sent) failed.outcome = KESTRA_DESENLACE_NO_HECHO;
  failed.text = WordsFor(plan, cleared, failed.text);
  return failed;
}

}  // namespace

bool IsDone(const Report& report) {
  return report.outcome == KESTRA_DESENLACE_HECHO;
}

Json OutcomeJson(Fate fate, const Report& report) {
  return {{"estado", kFates.at(static_cast<std::size_t>(fate))},
          {"definitivo", true},
          {"desenlace", report.outcome},
          {"causa", report.cause},
          {"texto", report.text}};
}

Json NotDone(Report report) {
  if (report.outcome == KESTRA_DESENLACE_NADA || IsDone(report))
    report.outcome = KESTRA_DESENLACE_NO_ENVIADO;
  return OutcomeJson(Fate::kNotDone, report);
}

Json OutcomeOf(const Plan& plan, const Cleared& cleared, const Report& failed) {
  if (!cleared.settled) return Undecided(cleared.why);
  auto outcome = OutcomeJson(cleared.verdict.fate, ReportOf(plan, cleared, failed));
  outcome["datos"] = plan.told;
  if (!cleared.verdict.number.empty()) outcome["datos"]["numero"] = cleared.verdict.number;
  return outcome;
}

Json CountersJson(const Counters& counters) {
  Json shown = Json::array();
  for (const auto& row : kCounterRows) {
    if (!counters[row.place]) continue;
    Json one{{"clase", row.kind}, {"numero", EightDigits(*counters[row.place])}};
    if (!row.letter.empty()) one["letra"] = row.letter;
    shown.push_back(one);
  }
  return shown;
}

}  // namespace puerta
