#pragma once

#include <array>
#include <string_view>

namespace kestra::golden {

struct Setting {
  std::string_view key;
  std::string_view value;
};

// The Fiscal.ini that every case starts from: a ticket-invoice printer, everything logged, no
// questions. Lengths and digit counts differ from each other so that a mix-up shows.
inline constexpr std::array kBaseConfiguration{
    Setting{"ImpresoraPuerto", "1"},
    Setting{"ImpresoraConfig", "9600"},
    Setting{"TipoComprobante", "TF"},
    Setting{"ModeloNombre", "Modelo de prueba"},
    Setting{"TipoIVA", "I"},
    Setting{"CanDecimales", "2"},
    Setting{"CanMaxima", "9999"},
    Setting{"LonObsFac", "41"},
    Setting{"LonLinFac", "42"},
    Setting{"LonPagFac", "43"},
    Setting{"LonLinNoF", "44"},
    Setting{"LonLinPag", "45"},
    Setting{"ErrorMostrar", "1"},
    Setting{"MostrarComandos", "0"},
    Setting{"EmiteTIC", "1"},
    Setting{"EmiteTIF", "1"},
    Setting{"EmiteFAC", "0"},
    Setting{"EmiteRTO", "0"},
    Setting{"EmitePAG", "0"},
    Setting{"EmiteCRE", "0"},
    Setting{"EmiteDEB", "0"},
    Setting{"EntCantidad", "5"},
    Setting{"DecCantidad", "3"},
    Setting{"EntPrecio", "7"},
    Setting{"DecPrecio", "2"},
    Setting{"IncluirPuntoPrecio", "0"},
    Setting{"EntDesc", "9"},
    Setting{"DecDesc", "2"},
    Setting{"EntIVA", "2"},
    Setting{"DecIVA", "2"},
    Setting{"EntImpInt", "6"},
    Setting{"DecImpInt", "8"},
    Setting{"EntPercepcion", "8"},
    Setting{"DecPercepcion", "2"},
    Setting{"LonDescripcionT", "20"},
    Setting{"LonTextoFiscalT", "24"},
    Setting{"LonEncabezadoT", "38"},
    Setting{"LonTextoNoFiscalT", "30"},
    Setting{"LonDatosClienteT", "26"},
    Setting{"LonDescripcionF", "28"},
    Setting{"LonTextoFiscalF", "32"},
    Setting{"LonEncabezadoF", "46"},
    Setting{"LonTextoNoFiscalF", "36"},
    Setting{"LonDatosClienteF", "40"},
    Setting{"Transporte", "0"},
    Setting{"AjusteRedondeo", "0"},
    Setting{"QuitarCaracNoValidos", "0"},
    Setting{"MostrarRespuestas", "0"},
    Setting{"CPI", "12"},
    Setting{"LogComandos", "1"},
    Setting{"UtilizaTransporte", "0"},
    Setting{"DelayComandos", "0"},
};

static_assert(kBaseConfiguration.size() == 52);

}  // namespace kestra::golden
