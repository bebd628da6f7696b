#include "worker/fate.hpp"

#include <algorithm>

namespace puerta {
namespace {

constexpr std::string_view kOpenings = "@`H";
constexpr std::size_t kNumberDigits = 8;
constexpr std::size_t kNumberField = 2;  // of an answer, behind the two status words

// By which commands a call that ends a job is seen in the journal.
struct EndRow {
  std::string_view call;
  std::string_view commands;
  std::string_view lines = "";  // commands of the lines before it, all of which belong to it
};
constexpr std::array kEnds{
    EndRow{"EP_CerrarComprobanteFiscal", "Ee"},
    EndRow{"EP_CerrarComprobanteNoFiscalHomologado", "Ee"},
    EndRow{"EP_CerrarComprobanteNoFiscal", "J", "I"},
    EndRow{"EP_SetEncabezado", "]", "]"},
    EndRow{"EP_ReporteX", "9"},
    EndRow{"EP_ReporteZ", "9"},
    EndRow{"EP_ReporteZporFechas", ":"},
    EndRow{"EP_ReporteZporNumeros", ";"},
    EndRow{"EP_AbrirCajonDeDinero", "{"},
    EndRow{"EP_CambiarFechaHora", "X"},
    EndRow{"EP_Cancelar", "Dd"},
};

bool IsAmong(const Sent& sent, std::string_view commands) {
  return !sent.command.empty() && commands.find(sent.command[0]) != std::string_view::npos;
}

const Sent* LastOf(const Evidence& evidence, std::string_view commands) {
  const auto found = std::find_if(evidence.sent.rbegin(), evidence.sent.rend(),
                                  [commands](const Sent& sent) { return IsAmong(sent, commands); });
  return found == evidence.sent.rend() ? nullptr : &*found;
}

// Each line, and none that says that some are missing.
bool HasAllLines(const Plan& plan, const EndRow& end, const Evidence& evidence) {
  if (end.lines.empty()) return true;
  const auto ended = [](const Sent& sent) {
    return sent.command.find(kIncomplete) != std::string::npos;
  };
  if (std::any_of(evidence.sent.begin(), evidence.sent.end(), ended)) return false;
  const auto wanted = std::count_if(plan.calls.begin(), plan.calls.end(),
                                    [](const Call& call) { return call.line > 0; });
  return wanted == std::count_if(evidence.sent.begin(), evidence.sent.end(), [&](const Sent& sent) {
           return IsAmong(sent, end.lines) && sent.MayBeDone();
         });
}

std::string NumberOf(const Sent& sent) {
  const bool there = sent.answer.size() > kNumberField;
  const bool whole = there && sent.answer[kNumberField].size() == kNumberDigits;
  return whole ? sent.answer[kNumberField] : "";
}

std::optional<std::int64_t> Moved(const Counters& before, const Counters& now, std::size_t place) {
  if (!before[place] || !now[place]) return std::nullopt;
  return *now[place] - *before[place];
}

// A cancelled document takes a number too, and is counted as cancelled.
Verdict ByCounters(const Plan& plan, const Counters& before, const Counters& now) {
  const auto moved = plan.counter ? Moved(before, now, *plan.counter) : std::nullopt;
  if (moved == 0) return {Fate::kNotDone};
  // A page that was closed half-way counts as well.
  if (moved != 1 || plan.counter == kNonFiscal) return {Fate::kUnknown};
  const std::string number = EightDigits(*now[*plan.counter]);
  if (plan.counter == kClosings) return {Fate::kDone, number};
  const auto cancelled = Moved(before, now, kCancelled);
  if (cancelled == 1) return {Fate::kNotDone};
  return cancelled == 0 ? Verdict{Fate::kDone, number} : Verdict{Fate::kUnknown};
}

Verdict Numbered(const Plan& plan, const Sent& end, const Counters& before, const Counters& now) {
  const auto own = NumberOf(end);
  return own.empty() ? Verdict{Fate::kDone, ByCounters(plan, before, now).number}
                     : Verdict{Fate::kDone, own};
}

}  // namespace

bool HasOpened(const Evidence& evidence, bool was_open_before) {
  const Sent* const opening = LastOf(evidence, kOpenings);
  if (evidence.whole) return opening != nullptr && opening->MayBeDone();
  return !was_open_before;
}

bool HasDoneNothing(const Evidence& evidence) {
  return evidence.whole && std::none_of(evidence.sent.begin(), evidence.sent.end(),
                                        [](const Sent& sent) { return sent.MayBeDone(); });
}

Verdict FateOf(const Plan& plan, const Evidence& evidence, const Counters& before,
               const Counters& now) {
  const auto name = plan.calls.empty() ? std::string_view() : plan.calls.back().name;
  const auto* const end = FindRow(kEnds, [name](const EndRow& row) { return row.call == name; });
  if (end == nullptr) return {Fate::kUnknown};
  if (!evidence.whole) return ByCounters(plan, before, now);
  const Sent* const last = LastOf(evidence, end->commands);
  if (last == nullptr || !last->MayBeDone() || !HasAllLines(plan, *end, evidence))
    return {Fate::kNotDone};
  return last->IsDone() ? Numbered(plan, *last, before, now) : ByCounters(plan, before, now);
}

std::string EightDigits(std::int64_t number) {
  const auto digits = std::to_string(number);
  return digits.size() < kNumberDigits ? std::string(kNumberDigits - digits.size(), '0') + digits
                                       : digits;
}

}  // namespace puerta
