#include "worker/states.hpp"

#include <array>
#include <charconv>

namespace puerta {
namespace {

constexpr unsigned kDocumentOpen = 0x1000;
constexpr unsigned kPaper = 0x4030;  // journal, receipt, or none at all

struct Condition {
  bool fiscal;
  unsigned bit;
  int cause;  // a number of KestraCausa
  const char* text;
};

// The gravest first: it is the one that is told when there is room for one.
constexpr std::array kConditions{
    Condition{false, 0x4000, 414, "La impresora no tiene papel."},
    Condition{false, 0x0008, 403, "La impresora está fuera de línea."},
    Condition{false, 0x0004, 402, "La impresora avisa un error o una falla."},
    Condition{true, 0x0001, 500, "Falló la comprobación de la memoria fiscal."},
    Condition{true, 0x0002, 501, "Falló la comprobación de la memoria de trabajo."},
    Condition{true, 0x0080, 507, "La memoria fiscal está llena."},
    Condition{true, 0x0800, 511, "Hace falta un cierre Z: pasaron más de 24 horas."},
    Condition{true, 0x0004, 502, "La impresora tiene la batería baja."},
    Condition{false, 0x0020, 405, "Falta papel de tickets."},
    Condition{false, 0x0010, 404, "Falta papel del diario."},
    Condition{true, 0x0100, 508, "La memoria fiscal está casi llena."},
};

unsigned WordOf(std::string_view digits) {
  unsigned word = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), word, 16);
  return word;
}

Json ConditionsOf(unsigned printer, unsigned fiscal) {
  Json conditions = Json::array();
  for (const auto& row : kConditions) {
    if (((row.fiscal ? fiscal : printer) & row.bit) != 0)
      conditions.push_back({{"causa", row.cause}, {"texto", row.text}});
  }
  return conditions;
}

}  // namespace

Json StateJson(const Heard& heard) {
  Json state{{"contesta", heard.answers}, {"causa", heard.cause}, {"texto", heard.text}};
  state["condiciones"] = Json::array();
  if (!heard.answers) return state;
  const unsigned printer = WordOf(heard.printer);
  const unsigned fiscal = WordOf(heard.fiscal);
  state["palabras"] = {{"impresora", heard.printer}, {"fiscal", heard.fiscal}};
  state["papel"] = (printer & kPaper) != 0 ? "falta" : "hay";
  state["documento_abierto"] = (fiscal & kDocumentOpen) != 0;
  state["condiciones"] = ConditionsOf(printer, fiscal);
  const auto& conditions = state["condiciones"];
  state["causa"] = conditions.empty() ? Json(0) : conditions[0]["causa"];
  state["texto"] = conditions.empty() ? Json("") : conditions[0]["texto"];
  return state;
}

Json NewsOf(const Json& state) {
  Json news = state;
  news.erase("palabras");
  news.erase("documento_abierto");
  return news;
}

}  // namespace puerta
