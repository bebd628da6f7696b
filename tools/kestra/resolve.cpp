#include <array>
#include <cstddef>
#include <string>

#include <kestra/kestra.h>

#include "commands.hpp"
#include "json.hpp"
#include "library.hpp"
#include "this_system.hpp"

namespace kestra::tool {
namespace {

struct OutcomeRow {
  std::int32_t outcome;
  Exit exit;
  std::string_view code;
  std::string_view words;
};

constexpr std::array kOutcomes = {
    OutcomeRow{KESTRA_DESENLACE_HECHO, Exit::kGood, "hecho",
               "La impresora lo hizo. La caja no tiene que repetirlo: anotarlo como hecho."},
    OutcomeRow{KESTRA_DESENLACE_EN_PARTE, Exit::kFindings, "en-parte",
               "La hoja se dio vuelta y el ítem falta: repetirlo desde la caja."},
    OutcomeRow{KESTRA_DESENLACE_NO_HECHO, Exit::kFindings, "no-hecho",
               "La impresora no lo hizo. Si hace falta, repetirlo desde la caja."},
    OutcomeRow{KESTRA_DESENLACE_DESCONOCIDO, Exit::kRefused, "no-se-sabe",
               "Los datos de la impresora no lo muestran: comparar el papel con la caja."},
};

const OutcomeRow& RowOf(std::int32_t outcome) {
  for (const auto& row : kOutcomes) {
    if (row.outcome == outcome) return row;
  }
  return kOutcomes.back();
}

std::int32_t Pending(std::string& call) {
  std::int32_t pending = 0;
  call = TextFrom([&](char* text, std::int32_t length) {
    pending = Kestra_Pendiente(text, length);
    return pending;
  });
  return pending;
}

void RequireJournal() {
  if (ReadSetting("ModoSeguro") == "1" && !ReadSetting("Diario").empty()) return;
  throw Stop(Exit::kBadSettings,
             "sin ModoSeguro=1 y Diario en Fiscal.ini nada queda pendiente de un programa a otro");
}

Exit Tell(Console& console, const std::string& call, const OutcomeRow& row,
          const std::string& number) {
  if (console.WantsJson()) {
    Print(console,
          {{"llamada", call}, {"desenlace", row.code}, {"numero", number}, {"hacer", row.words}});
    return row.exit;
  }
  console.Line("Pendiente: " + call);
  console.Line(row.words);
  if (!number.empty()) console.Line("Número del comprobante: " + number);
  return row.exit;
}

}  // namespace

Exit RunResolve(const Request& request, Console& console) {
  RequireJournal();
  const LibraryAtWork library;
  std::string call;
  const auto pending = Pending(call);
  if (pending < 0) throw Stop(Exit::kBroken, "el diario no se puede leer: " + CauseInWords());
  if (pending == 0) {
    const OutcomeRow nothing = {0, Exit::kGood, "nada", "No hay nada pendiente."};
    if (console.WantsJson()) return Tell(console, "", nothing, "");
    return console.Line(nothing.words), Exit::kGood;
  }
  if (request.Has("--olvidar")) {
    Kestra_Olvidar();
    const OutcomeRow dropped = {0, Exit::kGood, "olvidado",
                                "Dejado de lado sin preguntar; queda en el diario."};
    return Tell(console, call, dropped, "");
  }
  const auto outcome = Kestra_Resolver();
  std::string still;
  if (Pending(still) == 1)
    throw Stop(Exit::kNoAnswer, "sigue pendiente " + call + ": " + CauseInWords());
  return Tell(console, call, RowOf(outcome), TextFrom([](char* text, std::int32_t length) {
                return Kestra_ResolverNumero(text, length);
              }));
}

}  // namespace kestra::tool
