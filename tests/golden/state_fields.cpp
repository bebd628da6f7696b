#include "golden/state_fields.hpp"

#include <array>
#include <cstddef>
#include <stdexcept>
#include <variant>

#include "golden/visible.hpp"

namespace kestra::golden {
namespace {

using Member = std::variant<std::int32_t State::*, std::int16_t State::*, std::string State::*,
                            std::array<Boolean, 16> State::*>;

struct Field {
  std::string_view name;
  Member member;
};

constexpr std::array kFields{
    Field{"ImpresoraPuerto", &State::ImpresoraPuerto},
    Field{"CanDecimales", &State::CanDecimales},
    Field{"CanMaxima", &State::CanMaxima},
    Field{"LonObsFac", &State::LonObsFac},
    Field{"LonLinFac", &State::LonLinFac},
    Field{"LonPagFac", &State::LonPagFac},
    Field{"LonLinNoF", &State::LonLinNoF},
    Field{"LonLinPag", &State::LonLinPag},
    Field{"ErrorMostrar", &State::ErrorMostrar},
    Field{"MostrarComandos", &State::MostrarComandos},
    Field{"MostrarRespuestas", &State::MostrarRespuestas},
    Field{"LogComandos", &State::LogComandos},
    Field{"EmiteTIC", &State::EmiteTIC},
    Field{"EmiteTIF", &State::EmiteTIF},
    Field{"EmiteFAC", &State::EmiteFAC},
    Field{"EmiteRTO", &State::EmiteRTO},
    Field{"EmitePAG", &State::EmitePAG},
    Field{"EmiteCRE", &State::EmiteCRE},
    Field{"EmiteDEB", &State::EmiteDEB},
    Field{"LonDescripcionF", &State::LonDescripcionF},
    Field{"LonTextoFiscalF", &State::LonTextoFiscalF},
    Field{"LonEncabezadoF", &State::LonEncabezadoF},
    Field{"LonTextoNoFiscalF", &State::LonTextoNoFiscalF},
    Field{"LonDatosClienteF", &State::LonDatosClienteF},
    Field{"LonDescripcionT", &State::LonDescripcionT},
    Field{"LonTextoFiscalT", &State::LonTextoFiscalT},
    Field{"LonEncabezadoT", &State::LonEncabezadoT},
    Field{"LonTextoNoFiscalT", &State::LonTextoNoFiscalT},
    Field{"LonDatosClienteT", &State::LonDatosClienteT},
    Field{"UtilizaTransporte", &State::UtilizaTransporte},
    Field{"DelayComandos", &State::DelayComandos},
    Field{"EntCantidad", &State::EntCantidad},
    Field{"DecCantidad", &State::DecCantidad},
    Field{"EntPrecio", &State::EntPrecio},
    Field{"DecPrecio", &State::DecPrecio},
    Field{"EntDesc", &State::EntDesc},
    Field{"DecDesc", &State::DecDesc},
    Field{"EntIVA", &State::EntIVA},
    Field{"DecIVA", &State::DecIVA},
    Field{"EntImpInt", &State::EntImpInt},
    Field{"DecImpInt", &State::DecImpInt},
    Field{"EntPercepcion", &State::EntPercepcion},
    Field{"DecPercepcion", &State::DecPercepcion},
    Field{"IncluirPuntoPrecio", &State::IncluirPuntoPrecio},
    Field{"CPI", &State::CPI},
    Field{"Transporte", &State::Transporte},
    Field{"AjusteRedondeo", &State::AjusteRedondeo},
    Field{"QuitarCaracNoValidos", &State::QuitarCaracNoValidos},
    Field{"UltimoError", &State::UltimoError},
    Field{"EnviaComando", &State::EnviaComando},
    Field{"NroSecuencia", &State::NroSecuencia},
    Field{"NroSecuenciaAnterior", &State::NroSecuenciaAnterior},
    Field{"Reintentar", &State::Reintentar},
    Field{"ImpresoraConfig", &State::ImpresoraConfig},
    Field{"ModeloNombre", &State::ModeloNombre},
    Field{"TipoComprobante", &State::TipoComprobante},
    Field{"TipoIVA", &State::TipoIVA},
    Field{"ComandoActual", &State::ComandoActual},
    Field{"RespuestaActual", &State::RespuestaActual},
    Field{"EstadoImpresora", &State::EstadoImpresora},
    Field{"EstadoFiscal", &State::EstadoFiscal},
    Field{"Respuestas", &State::Respuestas},
    Field{"RespuestaCompleta", &State::RespuestaCompleta},
    Field{"BitImpresora", &State::BitImpresora},
    Field{"BitFiscal", &State::BitFiscal},
};

std::string Show(std::int32_t number) {
  return std::to_string(number);
}

std::string Show(const std::string& text) {
  return '"' + Visible(text) + '"';
}

std::string Show(const std::array<Boolean, 16>& flags) {
  std::string slots;
  for (std::size_t slot = 0; slot < flags.size(); ++slot) {
    if (flags.at(slot) != kFalse) slots += (slots.empty() ? "" : " ") + std::to_string(slot);
  }
  return slots.empty() ? "none" : slots;
}

std::string ShowLayout(const State& state) {
  std::string values;
  for (const std::int32_t value : state.DisposicionModelo) {
    values += (values.empty() ? "" : " ") + std::to_string(value);
  }
  return values;
}

std::string ShowAnswerFields(const State& state) {
  std::string fields;
  for (const std::string& field : state.Respuesta) {
    fields += (fields.empty() ? "" : " ") + Show(field);
  }
  return fields;
}

}  // namespace

std::string ShowField(const State& state, std::string_view name) {
  if (name == "Respuesta") return ShowAnswerFields(state);
  if (name == "DisposicionModelo") return ShowLayout(state);
  if (name == "Puerto") return state.Puerto ? "set" : "none";
  for (const Field& field : kFields) {
    if (field.name != name) continue;
    return std::visit([&](auto member) { return Show(state.*member); }, field.member);
  }
  throw std::invalid_argument("no such field " + std::string(name));
}

}  // namespace kestra::golden
