#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "state/library.hpp"

// The keys of Fiscal.ini, for the library that reads them and for the tool that explains them.
namespace kestra::keys {

using LongField = std::int32_t State::*;
using ShortField = std::int16_t State::*;

// Texts that are kept in their own way.
struct Speed {};        // a number, kept as text for the port's settings
struct TrimmedText {};  // ModeloNombre
struct FixedText {      // cut or padded; `if_empty` stands for an empty one
  std::size_t length;
  std::string_view if_empty;
};

// One key of the file and the field that it fills.
struct Key {
  std::string_view name;
  std::variant<LongField, ShortField, Speed, TrimmedText, FixedText> conversion;
  std::string State::*text = nullptr;             // the field of a text conversion
  std::optional<std::int16_t> if_no_number = {};  // only the last keys may be left out
};

inline constexpr std::array kKeys = {
    Key{"ImpresoraPuerto", &State::ImpresoraPuerto},
    Key{"ImpresoraConfig", Speed{}, &State::ImpresoraConfig},
    Key{"TipoComprobante", FixedText{2, ""}, &State::TipoComprobante},
    Key{"ModeloNombre", TrimmedText{}, &State::ModeloNombre},
    Key{"TipoIVA", FixedText{1, "I"}, &State::TipoIVA},
    Key{"CanDecimales", &State::CanDecimales},
    Key{"CanMaxima", &State::CanMaxima},
    Key{"LonObsFac", &State::LonObsFac},
    Key{"LonLinFac", &State::LonLinFac},
    Key{"LonPagFac", &State::LonPagFac},
    Key{"LonLinNoF", &State::LonLinNoF},
    Key{"LonLinPag", &State::LonLinPag},
    Key{"ErrorMostrar", &State::ErrorMostrar},
    Key{"MostrarComandos", &State::MostrarComandos},
    Key{"EmiteTIC", &State::EmiteTIC},
    Key{"EmiteTIF", &State::EmiteTIF},
    Key{"EmiteFAC", &State::EmiteFAC},
    Key{"EmiteRTO", &State::EmiteRTO},
    Key{"EmitePAG", &State::EmitePAG},
    Key{"EmiteCRE", &State::EmiteCRE},
    Key{"EmiteDEB", &State::EmiteDEB},
    Key{"EntCantidad", &State::EntCantidad},
    Key{"DecCantidad", &State::DecCantidad},
    Key{"EntPrecio", &State::EntPrecio},
    Key{"DecPrecio", &State::DecPrecio},
    Key{"IncluirPuntoPrecio", &State::IncluirPuntoPrecio},
    Key{"EntDesc", &State::EntDesc},
    Key{"DecDesc", &State::DecDesc},
    Key{"EntIVA", &State::EntIVA},
    Key{"DecIVA", &State::DecIVA},
    Key{"EntImpInt", &State::EntImpInt},
    Key{"DecImpInt", &State::DecImpInt},
    Key{"EntPercepcion", &State::EntPercepcion},
    Key{"DecPercepcion", &State::DecPercepcion},
    Key{"LonDescripcionT", &State::LonDescripcionT},
    Key{"LonTextoFiscalT", &State::LonTextoFiscalT},
    Key{"LonEncabezadoT", &State::LonEncabezadoT},
    Key{"LonTextoNoFiscalT", &State::LonTextoNoFiscalT},
    Key{"LonDatosClienteT", &State::LonDatosClienteT},
    Key{"LonDescripcionF", &State::LonDescripcionF},
    Key{"LonTextoFiscalF", &State::LonTextoFiscalF},
    Key{"LonEncabezadoF", &State::LonEncabezadoF},
    Key{"LonTextoNoFiscalF", &State::LonTextoNoFiscalF},
    Key{"LonDatosClienteF", &State::LonDatosClienteF},
    Key{"Transporte", &State::Transporte},
    Key{"AjusteRedondeo", &State::AjusteRedondeo},
    Key{"QuitarCaracNoValidos", &State::QuitarCaracNoValidos},
    Key{"MostrarRespuestas", &State::MostrarRespuestas},
    Key{"CPI", &State::CPI, nullptr, 12},
    Key{"LogComandos", &State::LogComandos, nullptr, 0},
    Key{"UtilizaTransporte", &State::UtilizaTransporte, nullptr, 0},
    Key{"DelayComandos", &State::DelayComandos, nullptr, 0},
};
static_assert(kKeys.size() == 52);

consteval bool NoneRepeated() {
  for (std::size_t i = 0; i < kKeys.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (kKeys[i].name == kKeys[j].name) return false;
    }
  }
  return true;
}
static_assert(NoneRepeated());

// The keys that an installation may have beside those. What is no number, or out of its range, is as if it
// were not there.
struct AddedKey {
  std::string_view name;
  std::variant<std::int32_t SafeSettings::*, std::string SafeSettings::*,
               std::int32_t TextSettings::*>
      field;
  std::int32_t least = 0;
  std::int32_t most = 1;
};

inline constexpr std::int32_t kAnyNumber = std::numeric_limits<std::int32_t>::max();
inline constexpr std::array kAddedKeys = {
    AddedKey{"ModoSeguro", &SafeSettings::ModoSeguro},
    AddedKey{"ReconoceRepetidas", &SafeSettings::ReconoceRepetidas},
    AddedKey{"PacienciaSegura", &SafeSettings::PacienciaSegura, 1, 3600},
    AddedKey{"ControlarTotal", &SafeSettings::ControlarTotal},
    AddedKey{"Diario", &SafeSettings::Diario},
    AddedKey{"DiarioDias", &SafeSettings::DiarioDias, 0, kAnyNumber},
    AddedKey{"DiarioObligatorio", &SafeSettings::DiarioObligatorio},
    AddedKey{"LogMaximo", &SafeSettings::LogMaximo, 0, kAnyNumber},
    AddedKey{"EsperaPuerto", &SafeSettings::EsperaPuerto, 0, 3600},
    AddedKey{"TextosTerminados", &TextSettings::TextosTerminados, 0, kTextModes - 1},
    AddedKey{"Transliterar", &TextSettings::Transliterar},
};

}  // namespace kestra::keys
