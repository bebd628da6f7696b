#include <algorithm>
#include <chrono>

#include "campaigns/crashes/days.hpp"
#include "campaigns/crashes/telling.hpp"

// Days of many documents and many troubles.

namespace kestra::crashes {
namespace {

constexpr int kTries = 20;

// What comes next, in bytes of the line and in moments of the host: every third document has something.
constexpr std::size_t kBytes = 80, kMoments = 1500, kCalmCalls = 18;
constexpr std::array kBreakages{Breakage::kCut, Breakage::kUnplugged, Breakage::kPowerless};

struct Kind {
  std::string_view family, open, close;
  bool fiscal;
};
constexpr std::array kKinds{
    Kind{"TQ", R"(EP_AbrirComprobanteFiscal "FC" "B" "" "" "" "" "F" "" "" "" "" "" 1)",
         R"(EP_CerrarComprobanteFiscal "FC" "B" out)", true},
    Kind{
        "TF",
        R"(EP_AbrirComprobanteFiscal "FC" "A" "Sur" "" "CUIT" "30000000007" "I" "Calle 1" "" "" "" "" 1)",
        R"(EP_CerrarComprobanteFiscal "FC" "A" out)", true},
    Kind{"TF",
         R"(EP_AbrirComprobanteFiscal "NC" "B" "Juan" "" "DNI" "12345678" "F" "" "" "" "" "" 1)",
         R"(EP_CerrarComprobanteFiscal "NC" "B" out)", true},
    Kind{
        "FC",
        R"(EP_AbrirComprobanteFiscal "FC" "A" "Sur" "" "CUIT" "30000000007" "I" "Calle 1" "" "" "" "" 1)",
        R"(EP_CerrarComprobanteFiscal "FC" "A" out)", true},
    Kind{
        "FC",
        R"(EP_AbrirComprobanteNoFiscalHomologado "RT" "R" "Sur" "" "CUIT" "30000000007" "I" "Calle 1" "" "" "" "" 1)",
        R"(EP_CerrarComprobanteNoFiscalHomologado "RT" "R")", false},
};

}  // namespace

CanonicalDocument AnyDay(std::mt19937_64& random, std::size_t documents) {
  const auto chance = [&](std::size_t below) { return random() % below; };
  constexpr std::array kFamilies{"TQ", "TF", "FC"};
  const auto which = chance(kFamilies.size());
  CanonicalDocument day{"a day",
                        static_cast<impresora::Family>(1U << which),
                        {{"TipoComprobante", kFamilies[which]}},
                        {}};
  const auto add = [&](std::string words) { day.calls.push_back(std::move(words)); };
  // As the guide advises: a closing in doubt is known by the counters.
  add("EP_Numeracion out");
  for (std::size_t i = 0; i < documents; ++i) {
    const Kind* kind = nullptr;
    while (kind == nullptr || kind->family != kFamilies[which])
      kind = &kKinds[chance(kKinds.size())];
    add(std::string(kind->open));
    const auto items = 1 + chance(4);
    for (std::size_t n = 0; n < items; ++n) {
      add("EP_ImprimirItem \"Articulo " + std::to_string(chance(900)) + "\" " +
          std::to_string(1 + chance(9)) + " " + std::to_string(100 + chance(4000)) +
          " 21 0 \"\" \"\" \"\"");
    }
    if (chance(5) == 0) add("EP_ImprimirTextoFiscal \"Promo " + std::to_string(i) + "\"");
    if (kind->fiscal && chance(4) == 0) add("EP_RecargoGeneral \"Envio\" 15");
    if (kind->fiscal && chance(2) == 0)
      add("EP_ImprimirPago \"Efectivo\" " + std::to_string(50 + chance(999)));
    add(chance(12) == 0 ? "EP_Cancelar" : std::string(kind->close));
  }
  add("EP_ReporteZ");
  return day;
}

// Something, with luck nothing.
void Telling::Befall() {
  if (Chance(kCalmCalls) == 0) shop_.Host().DieIn(Chance(kMoments));
  if (Chance(kCalmCalls) != 0) return;
  auto& world = shop_.World();
  const auto direction = Chance(2) == 0 ? Direction::kToPrinter : Direction::kToHost;
  const auto carried =
      (direction == Direction::kToPrinter ? world.ToPrinter() : world.ToHost()).Carried();
  const auto mended =
      Chance(3) == 0 ? std::optional<line_faults::Micros>(std::chrono::seconds(3)) : std::nullopt;
  world.Break({direction, carried + Chance(kBytes), kBreakages[Chance(kBreakages.size())]}, mended);
}

// Each call is made until its till, or the one that comes after it, knows that it is done.
void Telling::Weather() {
  random_.seed(*disaster_.storm);
  for (call_ = 0; call_ < story_.good_.size() && report_.ending != Ending::kWrong; ++call_) {
    report_.ending = Ending::kPassed;
    Begin();
    Befall();
    bool well = CallWell(), doubted = false;
    for (int i = 0; !well && i < kTries && report_.ending != Ending::kWrong; ++i) {
      disaster_.at_once = Chance(2) == 0;
      disaster_.asks = Chance(2) == 0;
      disaster_.printer_too = Chance(4) == 0;
      disaster_.again = Chance(4) == 0 ? Chance(kMoments) : kNever;
      Recover();
      Learn();
      ++report_.met[static_cast<std::size_t>(report_.ending)];
      doubted =
          doubted || report_.ending == Ending::kUnknown || report_.ending == Ending::kUnlearnt;
      const auto& asked = Good().deeds;
      const bool done = report_.ending != Ending::kRepeated && !asked.empty() &&
                        std::find(deeds_.begin(), deeds_.end(), asked.back()) != deeds_.end();
      if (!done) Befall();
      well = done || CallWell();
      if (!well) continue;
      deeds_ = shop_.DeedsFrom(mark_);
      if (doubted) report_.ending = Ending::kUnknown;
      if (!DoneOnce()) Wrong("in the end the call was not done once");
    }
    if (!well) Wrong("made again and again, the call never ended well");
  }
}

}  // namespace kestra::crashes
