// Who a document is for.
#include "sale/letters.hpp"
#include "sale/sale.hpp"

namespace puerta {
namespace {

bool HasShapeOf(const IdentityKind& kind, std::string_view number) {
  const auto fits = [&kind](char c) {
    const bool digit = c >= '0' && c <= '9';
    const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    return digit || (kind.letters && letter);
  };
  return number.size() >= kind.least && number.size() <= kind.most &&
         std::all_of(number.begin(), number.end(), fits);
}

template <class Table>
std::string NamesOf(const Table& table) {
  std::string names;
  for (const auto& row : table) names += (names.empty() ? "" : ", ") + std::string(row.name);
  return names;
}

void ReadIdentity(Part part, Customer& customer) {
  customer.id_kind = part.Text("tipo", {.most = 6, .required = true});
  customer.id_number = part.Text("numero", {.most = 11, .required = true});
  part.NoteUnknown();
  if (customer.id_kind.empty() || customer.id_number.empty()) return;
  const auto* const kind = FindNamed(kIdentities, customer.id_kind);
  if (kind == nullptr) return part.Wrong("tipo", "se espera uno de " + NamesOf(kIdentities));
  if (!HasShapeOf(*kind, customer.id_number))
    return part.Wrong("numero", "no es un número de " + customer.id_kind);
  if (kind->is_cuit && !IsCuit(customer.id_number))
    part.Wrong("numero", "el dígito verificador no corresponde");
}

void ReadCondition(Part& part, Customer& customer) {
  const bool known = part.Has("condicion_iva");
  const auto name = part.Text("condicion_iva", {.most = 40});
  if (!known) return;
  const auto* const row = FindNamed(kConditions, name);
  customer.condition = row == nullptr ? '\0' : row->letter;
  if (row == nullptr)
    return part.Wrong("condicion_iva", "se espera una de " + NamesOf(kConditions));
  const bool shows_another = customer.id_kind.empty() || FindNamed(kIdentities, customer.id_kind);
  if (row->needs_cuit && customer.id_kind != "CUIT" && shows_another)
    part.Wrong("documento", "esa condición ante el IVA pide el CUIT");
}

}  // namespace

Customer ReadCustomer(Part part, const Facts& facts) {
  const TextRule rule{.most = facts.customer, .respells = facts.respells};
  Customer customer;
  customer.name = part.Text("nombre", rule);
  customer.name_more = part.Text("nombre2", rule);
  const bool shows_identity = part.Has("documento");
  auto identity = part.Object("documento");
  if (shows_identity) ReadIdentity(std::move(identity), customer);
  ReadCondition(part, customer);
  customer.address = part.Texts("domicilio", 3, rule);
  customer.lines = part.Texts("lineas", 2, rule);
  part.NoteUnknown();
  return customer;
}

}  // namespace puerta
