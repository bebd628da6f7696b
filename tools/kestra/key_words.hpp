#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "frame/keys.hpp"

namespace kestra::tool {

// Which families read a key.
enum class Reads : std::uint8_t { kNobody, kAll, kTickets, kForms };

// What a key of Fiscal.ini is for, and what a new file gets for it where the printer does not tell.
struct KeyWords {
  std::string_view name;
  std::string_view usual;
  std::string_view what;
  Reads reads = Reads::kAll;
};

inline constexpr std::array kKeyWords = {
    KeyWords{"ImpresoraPuerto", "1", "Puerto serie, de 1 a 256: el 1 es COM1, o /dev/ttyS0"},
    KeyWords{"ImpresoraConfig", "9600", "Velocidad de la línea, en bits por segundo"},
    KeyWords{"TipoComprobante", "TQ", "Familia: TQ tiques, TF tique-facturas, FC formularios"},
    KeyWords{"ModeloNombre", "",
             "Modelo de la impresora; TM300AF cambia la disposición de la numeración"},
    KeyWords{"TipoIVA", "I", "Condición del emisor ante el IVA, una letra"},
    KeyWords{"CanDecimales", "2", "Tiene que estar; nadie la usa", Reads::kNobody},
    KeyWords{"CanMaxima", "999", "Tiene que estar; nadie la usa", Reads::kNobody},
    KeyWords{"LonObsFac", "40", "Tiene que estar; nadie la usa", Reads::kNobody},
    KeyWords{"LonLinFac", "20", "Tiene que estar; nadie la usa", Reads::kNobody},
    KeyWords{"LonPagFac", "1", "Tiene que estar; nadie la usa", Reads::kNobody},
    KeyWords{"LonLinNoF", "40", "Tiene que estar; nadie la usa", Reads::kNobody},
    KeyWords{"LonLinPag", "40", "Tiene que estar; nadie la usa", Reads::kNobody},
    KeyWords{"ErrorMostrar", "1",
             "1: muestra el informe de estados cuando la impresora rechaza un comando"},
    KeyWords{"MostrarComandos", "0",
             "1: pregunta «Envia?» antes de cada operación; solo para probar"},
    KeyWords{"EmiteTIC", "1", "Tiene que estar; nadie la usa", Reads::kNobody},
    KeyWords{"EmiteTIF", "1", "Tiene que estar; nadie la usa", Reads::kNobody},
    KeyWords{"EmiteFAC", "1", "Tiene que estar; nadie la usa", Reads::kNobody},
    KeyWords{"EmiteRTO", "1", "Tiene que estar; nadie la usa", Reads::kNobody},
    KeyWords{"EmitePAG", "1", "Tiene que estar; nadie la usa", Reads::kNobody},
    KeyWords{"EmiteCRE", "1", "Tiene que estar; nadie la usa", Reads::kNobody},
    KeyWords{"EmiteDEB", "1", "Tiene que estar; nadie la usa", Reads::kNobody},
    KeyWords{"EntCantidad", "5", "Dígitos enteros de la cantidad de un ítem"},
    KeyWords{"DecCantidad", "3", "Decimales de la cantidad de un ítem"},
    KeyWords{"EntPrecio", "7", "Dígitos enteros del precio unitario"},
    KeyWords{"DecPrecio", "2", "Decimales del precio unitario"},
    KeyWords{"IncluirPuntoPrecio", "0", "1: manda el punto decimal en el precio"},
    KeyWords{"EntDesc", "7", "Dígitos enteros de descuentos, recargos y pagos"},
    KeyWords{"DecDesc", "2", "Decimales de descuentos, recargos y pagos"},
    KeyWords{"EntIVA", "2", "Dígitos enteros de la tasa de IVA"},
    KeyWords{"DecIVA", "2", "Decimales de la tasa de IVA"},
    KeyWords{"EntImpInt", "7", "Dígitos enteros de los impuestos internos"},
    KeyWords{"DecImpInt", "2", "Decimales de los impuestos internos"},
    KeyWords{"EntPercepcion", "7", "Dígitos enteros de las percepciones"},
    KeyWords{"DecPercepcion", "2", "Decimales de las percepciones"},
    KeyWords{"LonDescripcionT", "26", "Ancho de la descripción de un ítem, en TQ y TF",
             Reads::kTickets},
    KeyWords{"LonTextoFiscalT", "26", "Ancho de la descripción de un descuento, en TQ y TF",
             Reads::kTickets},
    KeyWords{"LonEncabezadoT", "40", "Ancho de una línea de encabezado, en TQ y TF",
             Reads::kTickets},
    KeyWords{"LonTextoNoFiscalT", "40", "Ancho de una línea no fiscal, en TQ y TF",
             Reads::kTickets},
    KeyWords{"LonDatosClienteT", "40", "Ancho de los datos del cliente, en TQ y TF",
             Reads::kTickets},
    KeyWords{"LonDescripcionF", "26", "Ancho de la descripción de un ítem, en FC", Reads::kForms},
    KeyWords{"LonTextoFiscalF", "26", "Ancho de la descripción de un descuento, en FC",
             Reads::kForms},
    KeyWords{"LonEncabezadoF", "40", "Ancho de una línea de encabezado, en FC", Reads::kForms},
    KeyWords{"LonTextoNoFiscalF", "40", "Ancho de una línea no fiscal, en FC", Reads::kForms},
    KeyWords{"LonDatosClienteF", "40", "Ancho de los datos del cliente, en FC", Reads::kForms},
    KeyWords{"Transporte", "0", "Tiene que estar; nadie la usa", Reads::kNobody},
    KeyWords{"AjusteRedondeo", "0", "1: habilita EP_AjusteRedondeo, en TQ y TF"},
    KeyWords{"QuitarCaracNoValidos", "1", "1: cambia por - las letras que la impresora no acepta"},
    KeyWords{"MostrarRespuestas", "0", "1: muestra los campos de cada respuesta; solo para probar"},
    KeyWords{"CPI", "12", "Caracteres por pulgada que se piden al abrir facturas y notas"},
    KeyWords{"LogComandos", "1", "1: escribe fiscal.log"},
    KeyWords{"UtilizaTransporte", "0",
             "1: en FC, pregunta antes de cada ítem si hay lugar en la hoja"},
    KeyWords{"DelayComandos", "0", "Milisegundos de espera antes de cada trama"},
};

// Those that an installation may have beside them.
inline constexpr std::array kAddedKeyWords = {
    KeyWords{"ModoSeguro", "",
             "1: el resultado 0 quiere decir hecho, y lo dudoso se averigua en la impresora"},
    KeyWords{"ReconoceRepetidas", "",
             "1: la impresora contesta una trama repetida sin hacerla de nuevo"},
    KeyWords{"PacienciaSegura", "",
             "Segundos que una llamada espera a una impresora que no contesta, de 1 a 3600"},
    KeyWords{"ControlarTotal", "",
             "1: antes de cerrar compara el total de la impresora con la suma aceptada"},
    KeyWords{"Diario", "", "Archivo del diario, para saber tras un corte qué quedó pendiente"},
    KeyWords{"DiarioDias", "", "Días que se guardan los diarios anteriores"},
    KeyWords{"DiarioObligatorio", "", "1: sin diario no se abre ningún comprobante"},
    KeyWords{"LogMaximo", "", "Bytes de fiscal.log como máximo; 0 es sin límite"},
    KeyWords{"EsperaPuerto", "",
             "Segundos que se espera un puerto que otro programa tiene abierto, de 0 a 3600"},
    KeyWords{"TextosTerminados", "", "1: los textos terminan en cero; 2: además son UTF-8"},
    KeyWords{"Transliterar", "",
             "1: lo que la impresora no acepta sale con las letras más parecidas"},
};

inline constexpr KeyWords kDeviceWords = {
    "ImpresoraDispositivo", "",
    "Dispositivo o dirección tcp:EQUIPO:PUERTO, en lugar de ImpresoraPuerto"};

// In the order in which a file has them.
template <typename Visit>
void ForEachWords(Visit visit) {
  for (const auto& words : kKeyWords) visit(words);
  visit(kDeviceWords);
  for (const auto& words : kAddedKeyWords) visit(words);
}

template <typename Words, typename Keys>
constexpr bool SameNames(const Words& words, const Keys& keys) {
  return std::equal(words.begin(), words.end(), keys.begin(), keys.end(),
                    [](const auto& a, const auto& b) { return a.name == b.name; });
}
static_assert(SameNames(kKeyWords, keys::kKeys),
              "each key is explained, in the order of their reading");
static_assert(SameNames(kAddedKeyWords, keys::kAddedKeys), "so is each that may be added");

}  // namespace kestra::tool
