#include "frame/configuration.hpp"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "fields/ansi.hpp"
#include "fields/integer_text.hpp"
#include "fields/text_field.hpp"
#include "frame/failure.hpp"
#include "frame/fiscal_ini.hpp"
#include "frame/library.hpp"

namespace kestra {
namespace {

using Numero = std::int32_t Estado::*;
using Corto = std::int16_t Estado::*;

// Texts that are kept in their own way.
struct Velocidad {};       // a number, kept as text for the port's settings
struct TextoRecortado {};  // ModeloNombre
struct TextoFijo {         // cut or padded; `si_vacio` stands for an empty one
  std::size_t longitud;
  std::string_view si_vacio;
};

// One key of the file and the field that it fills.
struct Clave {
  std::string_view nombre;
  std::variant<Numero, Corto, Velocidad, TextoRecortado, TextoFijo> conversion;
  std::string Estado::*texto = nullptr;              // the field of a text conversion
  std::optional<std::int16_t> si_no_es_numero = {};  // only the last keys may be left out
};

constexpr std::array kClaves = {
    Clave{"ImpresoraPuerto", &Estado::ImpresoraPuerto},
    Clave{"ImpresoraConfig", Velocidad{}, &Estado::ImpresoraConfig},
    Clave{"TipoComprobante", TextoFijo{2, ""}, &Estado::TipoComprobante},
    Clave{"ModeloNombre", TextoRecortado{}, &Estado::ModeloNombre},
    Clave{"TipoIVA", TextoFijo{1, "I"}, &Estado::TipoIVA},
    Clave{"CanDecimales", &Estado::CanDecimales},
    Clave{"CanMaxima", &Estado::CanMaxima},
    Clave{"LonObsFac", &Estado::LonObsFac},
    Clave{"LonLinFac", &Estado::LonLinFac},
    Clave{"LonPagFac", &Estado::LonPagFac},
    Clave{"LonLinNoF", &Estado::LonLinNoF},
    Clave{"LonLinPag", &Estado::LonLinPag},
    Clave{"ErrorMostrar", &Estado::ErrorMostrar},
    Clave{"MostrarComandos", &Estado::MostrarComandos},
    Clave{"EmiteTIC", &Estado::EmiteTIC},
    Clave{"EmiteTIF", &Estado::EmiteTIF},
    Clave{"EmiteFAC", &Estado::EmiteFAC},
    Clave{"EmiteRTO", &Estado::EmiteRTO},
    Clave{"EmitePAG", &Estado::EmitePAG},
    Clave{"EmiteCRE", &Estado::EmiteCRE},
    Clave{"EmiteDEB", &Estado::EmiteDEB},
    Clave{"EntCantidad", &Estado::EntCantidad},
    Clave{"DecCantidad", &Estado::DecCantidad},
    Clave{"EntPrecio", &Estado::EntPrecio},
    Clave{"DecPrecio", &Estado::DecPrecio},
    Clave{"IncluirPuntoPrecio", &Estado::IncluirPuntoPrecio},
    Clave{"EntDesc", &Estado::EntDesc},
    Clave{"DecDesc", &Estado::DecDesc},
    Clave{"EntIVA", &Estado::EntIVA},
    Clave{"DecIVA", &Estado::DecIVA},
    Clave{"EntImpInt", &Estado::EntImpInt},
    Clave{"DecImpInt", &Estado::DecImpInt},
    Clave{"EntPercepcion", &Estado::EntPercepcion},
    Clave{"DecPercepcion", &Estado::DecPercepcion},
    Clave{"LonDescripcionT", &Estado::LonDescripcionT},
    Clave{"LonTextoFiscalT", &Estado::LonTextoFiscalT},
    Clave{"LonEncabezadoT", &Estado::LonEncabezadoT},
    Clave{"LonTextoNoFiscalT", &Estado::LonTextoNoFiscalT},
    Clave{"LonDatosClienteT", &Estado::LonDatosClienteT},
    Clave{"LonDescripcionF", &Estado::LonDescripcionF},
    Clave{"LonTextoFiscalF", &Estado::LonTextoFiscalF},
    Clave{"LonEncabezadoF", &Estado::LonEncabezadoF},
    Clave{"LonTextoNoFiscalF", &Estado::LonTextoNoFiscalF},
    Clave{"LonDatosClienteF", &Estado::LonDatosClienteF},
    Clave{"Transporte", &Estado::Transporte},
    Clave{"AjusteRedondeo", &Estado::AjusteRedondeo},
    Clave{"QuitarCaracNoValidos", &Estado::QuitarCaracNoValidos},
    Clave{"MostrarRespuestas", &Estado::MostrarRespuestas},
    Clave{"CPI", &Estado::CPI, nullptr, 12},
    Clave{"LogComandos", &Estado::LogComandos, nullptr, 0},
    Clave{"UtilizaTransporte", &Estado::UtilizaTransporte, nullptr, 0},
    Clave{"DelayComandos", &Estado::DelayComandos, nullptr, 0},
};
static_assert(kClaves.size() == 52);

consteval bool SinRepetir() {
  for (std::size_t i = 0; i < kClaves.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (kClaves[i].nombre == kClaves[j].nombre) return false;
    }
  }
  return true;
}
static_assert(SinRepetir());

// Stores one key's text in its field, each conversion in its own way.
struct Guardar {
  Estado& estado;
  const Clave& clave;
  const std::string& texto;

  [[nodiscard]] bool UsarReserva() const { return clave.si_no_es_numero && !EsNumero(texto); }

  void operator()(Numero campo) const {
    estado.*campo = UsarReserva() ? *clave.si_no_es_numero : ANumero(texto);
  }
  void operator()(Corto campo) const {
    estado.*campo = UsarReserva() ? *clave.si_no_es_numero : ANumeroCorto(texto);
  }
  void operator()(Velocidad) const { estado.*clave.texto = std::to_string(ANumero(texto)); }
  void operator()(TextoRecortado) const { estado.*clave.texto = Recortar(texto); }
  void operator()(const TextoFijo& fijo) const {
    const bool vacio = Recortar(texto).empty();
    estado.*clave.texto = Fijar(vacio ? fijo.si_vacio : texto, fijo.longitud);
  }
};

}  // namespace

std::string LeerValorIni(Biblioteca& k, std::string_view clave) {
  return k.platform.GetProfile().Read(kSeccion, clave, kArchivoDeConfiguracion);
}

void Lee_Ini(Biblioteca& k) {
  std::string_view linea;
  try {
    for (const auto& clave : kClaves) {
      linea = clave.nombre;
      const auto texto = LeerValorIni(k, clave.nombre);
      std::visit(Guardar{k.estado, clave, texto}, clave.conversion);
    }
  } catch (const Falla& falla) {
    k.platform.GetOperator().Message(
        TextoDeFalla(falla)
            .append(" en Leer_Ini - Módulo DLLSupport - Lee_Ini - Linea: "_ansi)
            .append(linea),
        "", kBoxOk);
  }
}

}  // namespace kestra
