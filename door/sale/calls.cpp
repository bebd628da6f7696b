#include "sale/calls.hpp"

namespace puerta {
namespace {

std::string At(const std::vector<std::string>& texts, std::size_t index) {
  return index < texts.size() ? texts[index] : "";
}

Call Opening(const Sale& sale) {
  const auto& who = sale.customer;
  return {.name = sale.kind->homologated ? "EP_AbrirComprobanteNoFiscalHomologado"
                                         : "EP_AbrirComprobanteFiscal",
          .texts = {std::string(sale.kind->type), sale.letter, who.name, who.name_more, who.id_kind,
                    who.id_number, std::string(1, who.condition), At(who.address, 0),
                    At(who.address, 1), At(who.address, 2), At(who.lines, 0), At(who.lines, 1)},
          .numbers = {sale.copies}};
}

Call Item(const Line& line, int number) {
  if (line.is_text)
    return {.name = "EP_ImprimirTextoFiscal", .texts = {line.description}, .line = number};
  return {.name = "EP_ImprimirItem",
          .texts = {line.description, At(line.extras, 0), At(line.extras, 1), At(line.extras, 2)},
          .amounts = {line.quantity, line.price, line.rate, line.internal},
          .line = number};
}

Call Perceived(const Perception& perception) {
  return {.name = "EP_EspecificarPercepcionGlobal",
          .texts = {perception.description, perception.on_iva ? "I" : "O"},
          .amounts = {perception.amount, perception.rate}};
}

Call Closing(const Sale& sale) {
  return {.name = sale.kind->homologated ? "EP_CerrarComprobanteNoFiscalHomologado"
                                         : "EP_CerrarComprobanteFiscal",
          .texts = {std::string(sale.kind->type), sale.letter}};
}

void AddNamed(std::vector<Call>& calls, std::string_view name,
              const std::vector<NamedAmount>& amounts) {
  for (const auto& one : amounts)
    calls.push_back({.name = name, .texts = {one.description}, .amounts = {one.amount}});
}

}  // namespace

std::vector<Call> CallsOf(const Sale& sale) {
  std::vector<Call> calls{Opening(sale)};
  int number = 0;
  for (const auto& line : sale.lines) calls.push_back(Item(line, ++number));
  AddNamed(calls, "EP_DescuentoGeneral", sale.discounts);
  AddNamed(calls, "EP_RecargoGeneral", sale.surcharges);
  for (const auto& perception : sale.perceptions) calls.push_back(Perceived(perception));
  AddNamed(calls, "EP_ImprimirPago", sale.payments);
  calls.push_back(Closing(sale));
  return calls;
}

}  // namespace puerta
