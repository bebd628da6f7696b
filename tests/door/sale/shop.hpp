// Printers and requests that the cases begin with.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "sale/check.hpp"
#include "sale/facts.hpp"

namespace puerta {

inline Json FactsOfFamily(const std::string& family, const std::string& more = "") {
  return FactsOf(
      "[Epson_Fiscal]\nTipoComprobante=" + family +
      "\nTipoIVA=I\nEntCantidad=5\nDecCantidad=3\nEntPrecio=7\nDecPrecio=2\nEntDesc=7\nDecDesc=2\n"
      "EntIVA=2\nDecIVA=2\nEntImpInt=7\nDecImpInt=2\nEntPercepcion=7\nDecPercepcion=2\n"
      "LonDescripcionT=26\nLonTextoFiscalT=26\nLonEncabezadoT=40\nLonTextoNoFiscalT="
      "40\nLonDatosClienteT=40\n"
      "LonDescripcionF=30\nLonTextoFiscalF=26\nLonEncabezadoF=40\nLonTextoNoFiscalF="
      "40\nLonDatosClienteF=40\n" +
      more);
}

inline Json Ticket() {
  return Json::parse(R"({"tipo": "tique", "renglones":
      [{"descripcion": "Cafe", "cantidad": "2", "precio": "150.00", "iva": "21.00"}]})");
}

inline Json InvoiceA() {
  return Json::parse(R"({"tipo": "factura", "letra": "A",
      "cliente": {"nombre": "Bazar Belgrano S.R.L.", "documento": {"tipo": "CUIT", "numero": "30123456781"},
                  "condicion_iva": "responsable_inscripto", "domicilio": ["Belgrano 123", "Rosario"]},
      "renglones": [{"descripcion": "Resma A4", "cantidad": "3", "precio": "4200.00", "iva": "21"},
                    {"descripcion": "Libro", "precio": "9500", "iva": "10.5", "extra": ["Tapa dura"]}],
      "descuentos": [{"descripcion": "Descuento", "monto": "500"}],
      "percepciones": [{"tipo": "otra", "descripcion": "IIBB", "monto": "310.50"}],
      "pagos": [{"descripcion": "Cuenta corriente", "monto": "26000"}]})");
}

// A change of a request: a place and what to put there; null takes it away.
struct Change {
  const char* place;
  Json value;
};

inline Json With(Json body, std::initializer_list<Change> changes) {
  for (const auto& change : changes) {
    const Json::json_pointer place(change.place);
    if (change.value.is_null()) {
      body[place.parent_pointer()].erase(place.back());
    } else {
      body[place] = change.value;
    }
  }
  return body;
}

// "pointer message" of each, in their order.
inline std::vector<std::string> Said(const std::vector<FieldError>& errors) {
  std::vector<std::string> said;
  said.reserve(errors.size());
  for (const auto& error : errors) said.push_back(error.pointer + " " + error.message);
  return said;
}

using Words = std::vector<std::string>;

}  // namespace puerta
