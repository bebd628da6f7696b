#include "worker/clearing.hpp"

#include <kestra/causas.h>
#include <kestra/kestra.h>

#include <array>

namespace puerta {
namespace {

class Clearing {
 public:
  Clearing(Library& library, const std::string& journal, const Plan& plan, const Before& before)
      : library_(library), journal_(journal), plan_(plan), before_(before) {}

  Cleared Run() {
    if (!before_.known) return {.verdict = {Fate::kNotDone}};
    if (auto report = library_.Start(); !IsDone(report)) return Later(report);
    if (library_.IsPending()) {
      const auto report = library_.Resolve();
      if (library_.IsPending()) return Later(report);
    }
    if (HasDoneNothing(Evidenced())) return {.verdict = {Fate::kNotDone}};
    if (const auto report = library_.Ask(); !IsDone(report)) return Later(report);
    bool cancelled = false;
    if (library_.IsOpen() && HasOpened(Evidenced(), before_.open)) {
      const auto report = Cancel();
      if (!IsDone(report)) return Later(report);
      cancelled = true;
      if (const auto state = library_.Ask(); !IsDone(state)) return Later(state);
    }
    return {.verdict = FateOf(plan_, Evidenced(), before_.counters, library_.ReadCounters()),
            .cancelled = cancelled};
  }

 private:
  static bool IsDone(const Report& report) { return report.outcome == KESTRA_DESENLACE_HECHO; }
  static Cleared Later(const Report& report) { return {.settled = false, .why = report}; }

  Evidence Evidenced() const { return EvidenceOf(journal_, before_.intent); }

  bool IsPlainPage() const {
    return !plan_.calls.empty() && plan_.calls.back().name == "EP_CerrarComprobanteNoFiscal";
  }

  // A page without fiscal value cannot be cancelled: it says so itself, and ends.
  Report Cancel() {
    if (!IsPlainPage()) return library_.Make({.name = "EP_Cancelar"});
    library_.Make({.name = "EP_ImprimirTextoNoFiscal", .texts = {std::string(kIncomplete)}});
    return library_.Make({.name = "EP_CerrarComprobanteNoFiscal"});
  }

  Library& library_;
  const std::string& journal_;
  const Plan& plan_;
  const Before& before_;
};

}  // namespace

Json ToJson(const Before& before) {
  Json counters = Json::array();
  for (const auto& counter : before.counters) counters.push_back(counter ? Json(*counter) : Json());
  return {{"intento", before.intent}, {"abierto", before.open}, {"contadores", counters}};
}

Before ReadBefore(const Json& told) {
  Before before;
  if (!told.is_object()) return before;
  before.known = true;
  before.intent = told.value("intento", std::int64_t{-1});
  before.open = told.value("abierto", false);
  const auto counters = told.value("contadores", Json::array());
  for (std::size_t i = 0; i < counters.size() && i < before.counters.size(); ++i)
    if (counters[i].is_number_integer()) before.counters[i] = counters[i].get<std::int64_t>();
  return before;
}

Cleared Clear(Library& library, const std::string& journal, const Plan& plan,
              const Before& before) {
  return Clearing(library, journal, plan, before).Run();
}

}  // namespace puerta
