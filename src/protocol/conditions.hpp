#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fields/ansi.hpp"

namespace kestra {

enum class Palabra : std::int32_t { kImpresora = 0, kFiscal = 1 };
enum class Clase : std::int32_t { kInformacion = 0, kError = 1 };

// One condition of a status word: its part in the verdict on a command, the messages of the status
// query and its row in the status report. Where the columns differ they do so on purpose.
struct Condicion {
  Palabra palabra;
  std::size_t slot;               // of BitImpresora or BitFiscal
  bool falla;                     // fails the command
  std::string_view mensaje;       // box of the status query; none when empty
  std::int32_t fila;              // number of the row, as in its control's name
  Clase clase;                    // kind of the row
  std::string_view texto;         // caption of the row
  std::string_view ayuda;         // hint of the row
  std::string_view otro_mensaje;  // a second box for the same condition
};

// The printer's slot that says "out of paper".
constexpr std::size_t kSinPapel = 13;
// The fiscal slot that says "memory nearly full".
constexpr std::size_t kMemoriaCasiLlena = 8;
// The slot of either word that says "something is set".
constexpr std::size_t kResumen = 15;

namespace ayudas {
inline constexpr auto kControlador = "Error del controlador. Consulte a su técnico fiscal."_ansi;
inline constexpr auto kEnLinea =
    "Verificar que se encuentre en modo \"En Linea\" el controlador fiscal."_ansi;
inline constexpr auto kPapel =
    "Verifique el abastecimiento y la colocacion correcta del "
    "papel, si se repite consulte a su técnico fiscal."_ansi;
inline constexpr auto kInterna = "Información Interna."_ansi;
inline constexpr auto kInternaTerminal = "Información interna."_ansi;
inline constexpr auto kTecnico = "Consulte a su técnico fiscal."_ansi;
inline constexpr auto kErrorInterno = "Error interno."_ansi;
inline constexpr auto kQuitarCaracteres =
    "Verificar que se encuentre activado \"Quitar caracateres no "
    "validos\" en la configuración"_ansi;
inline constexpr auto kTrabado =
    "Verificar que no se encuentre trabado un comprobante fiscal."_ansi;
inline constexpr auto kLimites =
    "Las cantidades o montos de la factura no son soportados. Verificar limites."_ansi;
inline constexpr auto kCierreZ =
    "Debe hacer un cierre de la jornada (Cierre Z), ya que pasaron mas de 24 hs."_ansi;
}  // namespace ayudas

// In the order of the status report, which is also that of the messages.
// Kept as is: "Bateria Baja" fails a command but is an information row, the rows of missing paper
// are error rows but fail none, and an open document is told twice.
inline constexpr std::array kCondiciones = {
    Condicion{.palabra = Palabra::kImpresora,
              .slot = 2,
              .falla = true,
              .mensaje = "Error y/o falla de impresora"_ansi,
              .fila = 2,
              .clase = Clase::kError,
              .texto = "Error y/o falla de impresora"_ansi,
              .ayuda = ayudas::kControlador,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kImpresora,
              .slot = 3,
              .falla = true,
              .mensaje = "Impresora fuera de linea"_ansi,
              .fila = 3,
              .clase = Clase::kError,
              .texto = "Impresora fuera de linea"_ansi,
              .ayuda = ayudas::kEnLinea,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kImpresora,
              .slot = 4,
              .falla = false,
              .mensaje = {},
              .fila = 4,
              .clase = Clase::kError,
              .texto = "Falta Papel del diario"_ansi,
              .ayuda = ayudas::kPapel,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kImpresora,
              .slot = 5,
              .falla = false,
              .mensaje = {},
              .fila = 5,
              .clase = Clase::kError,
              .texto = "Falta Papel de tickets"_ansi,
              .ayuda = ayudas::kPapel,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kImpresora,
              .slot = 6,
              .falla = false,
              .mensaje = "Buffer de impresora lleno"_ansi,
              .fila = 6,
              .clase = Clase::kInformacion,
              .texto = "Buffer de impresora lleno"_ansi,
              .ayuda = ayudas::kInterna,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kImpresora,
              .slot = 7,
              .falla = false,
              .mensaje = "Buffer de impresora vacio"_ansi,
              .fila = 7,
              .clase = Clase::kInformacion,
              .texto = "Buffer de impresora vacio"_ansi,
              .ayuda = ayudas::kInterna,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kImpresora,
              .slot = 8,
              .falla = false,
              .mensaje = "Entrada de hojas sueltas frontal preparada"_ansi,
              .fila = 8,
              .clase = Clase::kInformacion,
              .texto = "Entrada de hojas sueltas frontal preparada"_ansi,
              .ayuda = ayudas::kInterna,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kImpresora,
              .slot = 9,
              .falla = false,
              .mensaje = "Hoja suelta frontal preparada"_ansi,
              .fila = 9,
              .clase = Clase::kInformacion,
              .texto = "Hoja suelta frontal preparada"_ansi,
              .ayuda = ayudas::kInterna,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kImpresora,
              .slot = 13,
              .falla = false,
              .mensaje = "Impresora sin papel"_ansi,
              .fila = 14,
              .clase = Clase::kError,
              .texto = "Impresora sin papel"_ansi,
              .ayuda = ayudas::kPapel,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kFiscal,
              .slot = 0,
              .falla = true,
              .mensaje = "Error de comprobacion de memoria fiscal"_ansi,
              .fila = 0,
              .clase = Clase::kError,
              .texto = "Error de comprobacion de memoria fiscal"_ansi,
              .ayuda = ayudas::kControlador,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kFiscal,
              .slot = 1,
              .falla = true,
              .mensaje = "Error de comprobacion de memoria de trabajo"_ansi,
              .fila = 1,
              .clase = Clase::kError,
              .texto = "Error de comprobacion de memoria de trabajo"_ansi,
              .ayuda = ayudas::kControlador,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kFiscal,
              .slot = 2,
              .falla = true,
              .mensaje = "Bateria Baja"_ansi,
              .fila = 2,
              .clase = Clase::kInformacion,
              .texto = "Bateria Baja"_ansi,
              .ayuda = ayudas::kTecnico,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kFiscal,
              .slot = 3,
              .falla = true,
              .mensaje = "Comando no reconocido"_ansi,
              .fila = 3,
              .clase = Clase::kError,
              .texto = "Comando no reconocido"_ansi,
              .ayuda = ayudas::kErrorInterno,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kFiscal,
              .slot = 4,
              .falla = true,
              .mensaje = "Campo de datos invalido"_ansi,
              .fila = 4,
              .clase = Clase::kError,
              .texto = "Campo de datos invalido"_ansi,
              .ayuda = ayudas::kQuitarCaracteres,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kFiscal,
              .slot = 5,
              .falla = true,
              .mensaje = "Comando no valido para estado fiscal"_ansi,
              .fila = 5,
              .clase = Clase::kError,
              .texto = "Comando no valido para estado fiscal"_ansi,
              .ayuda = ayudas::kTrabado,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kFiscal,
              .slot = 6,
              .falla = true,
              .mensaje = "Desbordamiento de totales"_ansi,
              .fila = 6,
              .clase = Clase::kError,
              .texto = "Desbordamiento de totales"_ansi,
              .ayuda = ayudas::kLimites,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kFiscal,
              .slot = 7,
              .falla = true,
              .mensaje = "Memoria Fiscal llena"_ansi,
              .fila = 7,
              .clase = Clase::kError,
              .texto = "Memoria Fiscal llena"_ansi,
              .ayuda = ayudas::kControlador,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kFiscal,
              .slot = 8,
              .falla = false,
              .mensaje = "Memoria Fiscal casi llena"_ansi,
              .fila = 8,
              .clase = Clase::kInformacion,
              .texto = "Memoria Fiscal casi llena (restan menos de 30 cierres)"_ansi,
              .ayuda = ayudas::kTecnico,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kFiscal,
              .slot = 9,
              .falla = false,
              .mensaje = {},
              .fila = 9,
              .clase = Clase::kInformacion,
              .texto = "Terminal Fiscal Certificada"_ansi,
              .ayuda = ayudas::kInternaTerminal,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kFiscal,
              .slot = 10,
              .falla = false,
              .mensaje = {},
              .fila = 10,
              .clase = Clase::kInformacion,
              .texto = "Terminal Fiscal Fiscalizada"_ansi,
              .ayuda = ayudas::kInternaTerminal,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kFiscal,
              .slot = 11,
              .falla = true,
              .mensaje = "Es necesario hacer un cierre de la jornada (pasaron mas de "
                         "24 hs)"_ansi,
              .fila = 11,
              .clase = Clase::kError,
              .texto = "Es necesario hacer un cierre de la jornada (pasaron mas de "
                       "24 hs)"_ansi,
              .ayuda = ayudas::kCierreZ,
              .otro_mensaje = {}},
    Condicion{.palabra = Palabra::kFiscal,
              .slot = 12,
              .falla = false,
              .mensaje = "Documento fiscal abierto"_ansi,
              .fila = 12,
              .clase = Clase::kInformacion,
              .texto = "Documento fiscal abierto"_ansi,
              .ayuda = ayudas::kInterna,
              .otro_mensaje = "Documento Fiscal abierto o Documento No Fiscal abierto que "
                              "se emite por el rollo de papel"_ansi},
    Condicion{.palabra = Palabra::kFiscal,
              .slot = 13,
              .falla = false,
              .mensaje = "Factura o Impresión en hoja suelta inicializada"_ansi,
              .fila = 13,
              .clase = Clase::kInformacion,
              .texto = "Factura o Impresión en hoja suelta inicializada"_ansi,
              .ayuda = ayudas::kInterna,
              .otro_mensaje = {}},
};
static_assert(kCondiciones.size() == 23);

}  // namespace kestra
