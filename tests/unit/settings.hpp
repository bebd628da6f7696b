#pragma once

#include <array>
#include <string_view>

namespace kestra::unit {

enum class Kind {
  kNumber,    // must be there; 32 bits
  kShort,     // must be there; 16 bits
  kOptional,  // may be left out; 32 bits
  kOptionalShort,
  kText,
};

struct Setting {
  std::string_view key;
  Kind kind;
  std::string_view value;  // of the shop that the tests play in
};

// The keys of Fiscal.ini in the order in which they are read.
inline constexpr std::array kSettings{
    Setting{"ImpresoraPuerto", Kind::kNumber, "1"},
    Setting{"ImpresoraConfig", Kind::kNumber, "9600"},
    Setting{"TipoComprobante", Kind::kText, "TQ"},
    Setting{"ModeloNombre", Kind::kText, "Modelo"},
    Setting{"TipoIVA", Kind::kText, "I"},
    Setting{"CanDecimales", Kind::kNumber, "2"},
    Setting{"CanMaxima", Kind::kNumber, "999"},
    Setting{"LonObsFac", Kind::kNumber, "31"},
    Setting{"LonLinFac", Kind::kNumber, "32"},
    Setting{"LonPagFac", Kind::kNumber, "33"},
    Setting{"LonLinNoF", Kind::kNumber, "34"},
    Setting{"LonLinPag", Kind::kNumber, "35"},
    Setting{"ErrorMostrar", Kind::kNumber, "1"},
    Setting{"MostrarComandos", Kind::kNumber, "0"},
    Setting{"EmiteTIC", Kind::kNumber, "1"},
    Setting{"EmiteTIF", Kind::kNumber, "1"},
    Setting{"EmiteFAC", Kind::kNumber, "1"},
    Setting{"EmiteRTO", Kind::kNumber, "1"},
    Setting{"EmitePAG", Kind::kNumber, "1"},
    Setting{"EmiteCRE", Kind::kNumber, "1"},
    Setting{"EmiteDEB", Kind::kNumber, "1"},
    Setting{"EntCantidad", Kind::kShort, "5"},
    Setting{"DecCantidad", Kind::kShort, "3"},
    Setting{"EntPrecio", Kind::kShort, "7"},
    Setting{"DecPrecio", Kind::kShort, "2"},
    Setting{"IncluirPuntoPrecio", Kind::kShort, "0"},
    Setting{"EntDesc", Kind::kShort, "9"},
    Setting{"DecDesc", Kind::kShort, "2"},
    Setting{"EntIVA", Kind::kShort, "2"},
    Setting{"DecIVA", Kind::kShort, "2"},
    Setting{"EntImpInt", Kind::kShort, "7"},
    Setting{"DecImpInt", Kind::kShort, "8"},
    Setting{"EntPercepcion", Kind::kShort, "8"},
    Setting{"DecPercepcion", Kind::kShort, "2"},
    Setting{"LonDescripcionT", Kind::kNumber, "20"},
    Setting{"LonTextoFiscalT", Kind::kNumber, "24"},
    Setting{"LonEncabezadoT", Kind::kNumber, "38"},
    Setting{"LonTextoNoFiscalT", Kind::kNumber, "30"},
    Setting{"LonDatosClienteT", Kind::kNumber, "26"},
    Setting{"LonDescripcionF", Kind::kNumber, "28"},
    Setting{"LonTextoFiscalF", Kind::kNumber, "32"},
    Setting{"LonEncabezadoF", Kind::kNumber, "46"},
    Setting{"LonTextoNoFiscalF", Kind::kNumber, "36"},
    Setting{"LonDatosClienteF", Kind::kNumber, "40"},
    Setting{"Transporte", Kind::kNumber, "0"},
    Setting{"AjusteRedondeo", Kind::kNumber, "0"},
    Setting{"QuitarCaracNoValidos", Kind::kNumber, "0"},
    Setting{"MostrarRespuestas", Kind::kNumber, "0"},
    Setting{"CPI", Kind::kOptionalShort, "12"},
    Setting{"LogComandos", Kind::kOptional, "1"},
    Setting{"UtilizaTransporte", Kind::kOptional, "0"},
    Setting{"DelayComandos", Kind::kOptional, "0"},
};
static_assert(kSettings.size() == 52);

}  // namespace kestra::unit
