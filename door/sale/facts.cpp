#include "sale/facts.hpp"

#include <algorithm>
#include <array>

#include "sale/ini.hpp"

namespace puerta {
namespace {

struct DigitsRow {
  const char* name;
  std::string_view integers, decimals;  // keys
  Digits Facts::*where;
};
constexpr std::array kDigits{
    DigitsRow{"cantidad", "EntCantidad", "DecCantidad", &Facts::quantity},
    DigitsRow{"precio", "EntPrecio", "DecPrecio", &Facts::price},
    DigitsRow{"iva", "EntIVA", "DecIVA", &Facts::rate},
    DigitsRow{"impuestos_internos", "EntImpInt", "DecImpInt", &Facts::internal},
    DigitsRow{"importe", "EntDesc", "DecDesc", &Facts::amount},
    DigitsRow{"percepcion", "EntPercepcion", "DecPercepcion", &Facts::perception},
};

// The library reads no more of a text than `most`, whatever the file says.
struct LengthRow {
  const char* name;
  std::string_view on_rolls, on_forms;  // keys
  int most;
  int Facts::*where;
};
constexpr std::array kLengths{
    LengthRow{"descripcion", "LonDescripcionT", "LonDescripcionF", 50, &Facts::description},
    LengthRow{"descuento", "LonTextoFiscalT", "LonTextoFiscalF", 80, &Facts::correction},
    LengthRow{"encabezado", "LonEncabezadoT", "LonEncabezadoF", 120, &Facts::header},
    LengthRow{"no_fiscal", "LonTextoNoFiscalT", "LonTextoNoFiscalF", 120, &Facts::plain_text},
    LengthRow{"cliente", "LonDatosClienteT", "LonDatosClienteF", 40, &Facts::customer},
};

int NumberOf(const Json& object, const char* name, int otherwise) {
  return object.is_object() ? object.value(name, otherwise) : otherwise;
}

const Json& MemberOf(const Json& object, const char* name) {
  static const Json kNone;
  const auto found = object.is_object() ? object.find(name) : object.end();
  return found == object.end() ? kNone : *found;
}

}  // namespace

Json FactsOf(std::string_view ini) {
  const std::string family = IniValue(ini, "TipoComprobante").value_or("").substr(0, 2);
  const std::string issuer = IniValue(ini, "TipoIVA").value_or("").substr(0, 1);
  Json facts{{"familia", family},
             {"condicion_iva", issuer.empty() ? "I" : issuer},
             {"modelo", IniValue(ini, "ModeloNombre").value_or("")},
             {"translitera", IniNumber(ini, "Transliterar", 0) == 1},
             {"modo_seguro", IniNumber(ini, "ModoSeguro", 0) == 1},
             {"diario", IniValue(ini, "Diario").value_or("")}};
  for (const auto& row : kDigits) {
    facts["digitos"][row.name] = {{"enteros", IniNumber(ini, row.integers, 0)},
                                  {"decimales", IniNumber(ini, row.decimals, 0)}};
  }
  const bool roll = family == "TQ" || family == "TF";
  for (const auto& row : kLengths) {
    const int length = IniNumber(ini, roll ? row.on_rolls : row.on_forms, 0);
    facts["largos"][row.name] = std::min(length, row.most);
  }
  return facts;
}

Facts ReadFacts(const Json& json) {
  Facts facts;
  facts.family = TextOf(json, "familia");
  facts.issuer = TextOf(json, "condicion_iva", "I").substr(0, 1)[0];
  facts.respells = json.is_object() ? json.value("translitera", true) : true;
  for (const auto& row : kDigits) {
    const auto& pair = MemberOf(MemberOf(json, "digitos"), row.name);
    auto& digits = facts.*row.where;
    digits.integers = NumberOf(pair, "enteros", digits.integers);
    digits.decimals = NumberOf(pair, "decimales", digits.decimals);
  }
  for (const auto& row : kLengths)
    facts.*row.where = NumberOf(MemberOf(json, "largos"), row.name, facts.*row.where);
  return facts;
}

}  // namespace puerta
