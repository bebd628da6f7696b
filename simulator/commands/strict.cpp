// What a strict printer refuses.
#include "commands/strict.hpp"

#include <algorithm>
#include <array>

#include "fiscal/conditions.hpp"
#include "fiscal/cuit.hpp"
#include "fiscal/identity.hpp"
#include "machine/status.hpp"
#include "text/text.hpp"

namespace impresora {
namespace {

// ---- Any command ----

template <class Wrong>
bool AnyField(const Demand& r, FieldKind kind, Wrong wrong) {
  return std::any_of(r.row.fields.begin(), r.row.fields.end(), [&](const FieldRow& field) {
    return field.kind == kind && wrong(field.name);
  });
}

bool HasForeignCharacter(const Demand& r) {
  return AnyField(r, FieldKind::kText, [&r](std::string_view name) {
    const std::string_view text = r.fields.Text(name);
    return !std::all_of(text.begin(), text.end(), IsOnDevice);
  });
}

bool HasForeignRate(const Demand& r) {
  return AnyField(r, FieldKind::kRate,
                  [&r](std::string_view name) { return !IsIvaRate(r.fields.Number(name)); });
}

// ---- Documents with a customer ----

// Delivery notes and the like; null when the printer's family has no such kind, which is refused
// anyway.
const DocumentKind* KindOf(const Demand& r) {
  return FindKind(r.fields.Letter("tipo"), r.machine.settings.family);
}

bool Sells(const Demand& r) {
  const DocumentKind* const kind = KindOf(r);
  return kind != nullptr && kind->sales_sign != 0;
}

const IvaCondition* CustomerOf(const Demand& r) {
  return FindIvaCondition(r.fields.Letter("IVA del cliente"));
}

const IdentityKind* IdentityOf(const Demand& r) {
  return FindIdentityKind(r.fields.Text("tipo de documento"));
}

bool HasForeignIssuer(const Demand& r) {
  const IvaCondition* const issuer = FindIvaCondition(r.fields.Letter("IVA del emisor"));
  return issuer == nullptr || !issuer->issues;
}

bool HasForeignCustomer(const Demand& r) {
  return CustomerOf(r) == nullptr;
}

bool HasForeignLetter(const Demand& r) {
  const char condition = r.fields.Letter("IVA del cliente");
  const std::string_view letters = LettersFor(r.machine.settings.owner_iva, condition);
  return Sells(r) && letters.find(r.fields.Letter("letra")) == std::string_view::npos;
}

bool HasInvoicesLetter(const Demand& r) {
  constexpr std::string_view kLetters = "RX";
  return !Sells(r) && kLetters.find(r.fields.Letter("letra")) == std::string_view::npos;
}

// A customer may show nothing; what is shown has a name.
bool HasForeignIdentity(const Demand& r) {
  const bool nothing =
      Trim(r.fields.Text("tipo de documento")).empty() && IsNoNumber(r.fields.Text("documento"));
  return !nothing && IdentityOf(r) == nullptr;
}

bool HasWrongNumber(const Demand& r) {
  const IdentityKind* const kind = IdentityOf(r);
  return kind != nullptr && !HasShapeOf(*kind, r.fields.Text("documento"));
}

bool HasWrongCheckDigit(const Demand& r) {
  const IdentityKind* const kind = IdentityOf(r);
  return kind != nullptr && kind->is_cuit && !IsCuit(Trim(r.fields.Text("documento")));
}

bool LacksCuit(const Demand& r) {
  const IvaCondition* const customer = CustomerOf(r);
  const IdentityKind* const kind = IdentityOf(r);
  return Sells(r) && customer != nullptr && customer->needs_cuit &&
         (kind == nullptr || kind->name != "CUIT");
}

bool LacksName(const Demand& r) {
  return Sells(r) && r.fields.Letter("letra") == 'A' && Trim(r.fields.Text("nombre")).empty();
}

// ---- The clock ----

// A clock that forgot the time stands behind what has been recorded with it.
bool IsBehindItsBooks(const Demand& r) {
  const Machine& m = r.machine;
  const std::int64_t closed = m.closings.empty() ? 0 : m.closings.back().moment;
  return m.now < std::max(closed, m.day.opened.value_or(0));
}

constexpr std::string_view kOpening = "`";

constexpr std::array<StrictRule, 12> kRules{{
    {"carácter fuera de la tabla de la impresora", "", kInvalidField, HasForeignCharacter},
    {"tasa de IVA que no existe", "", kInvalidField, HasForeignRate},
    {"condición ante el IVA del emisor desconocida", kOpening, kInvalidField, HasForeignIssuer},
    {"condición ante el IVA del cliente desconocida", kOpening, kInvalidField, HasForeignCustomer},
    {"letra que el emisor no da a esa condición", kOpening, kInvalidField, HasForeignLetter},
    {"remito o comprobante de caja con letra de factura", kOpening, kInvalidField,
     HasInvoicesLetter},
    {"tipo de documento desconocido", kOpening, kInvalidField, HasForeignIdentity},
    {"número que no es de ese tipo de documento", kOpening, kInvalidField, HasWrongNumber},
    {"dígito verificador del CUIT o CUIL", kOpening, kInvalidField, HasWrongCheckDigit},
    {"esa condición ante el IVA pide CUIT", kOpening, kInvalidField, LacksCuit},
    {"letra A sin nombre del cliente", kOpening, kInvalidField, LacksName},
    {"reloj detrás de lo registrado", "@`9", kWrongState, IsBehindItsBooks},
}};

}  // namespace

std::span<const StrictRule> StrictRules() {
  return kRules;
}

const StrictRule* BrokenRule(const Demand& demand) {
  const char byte = static_cast<char>(demand.row.byte);
  for (const StrictRule& rule : kRules) {
    const bool looks = rule.commands.empty() || rule.commands.find(byte) != std::string_view::npos;
    if (looks && rule.broken(demand)) return &rule;
  }
  return nullptr;
}

}  // namespace impresora
