#include "golden/state_fields.hpp"

#include <array>
#include <cstddef>
#include <stdexcept>
#include <variant>

#include "golden/visible.hpp"

namespace kestra::golden {
namespace {

using Member = std::variant<std::int32_t Estado::*, std::int16_t Estado::*, std::string Estado::*,
                            std::array<Booleano, 16> Estado::*>;

struct Field {
  std::string_view name;
  Member member;
};

constexpr std::array kFields{
    Field{"ImpresoraPuerto", &Estado::ImpresoraPuerto},
    Field{"CanDecimales", &Estado::CanDecimales},
    Field{"CanMaxima", &Estado::CanMaxima},
    Field{"LonObsFac", &Estado::LonObsFac},
    Field{"LonLinFac", &Estado::LonLinFac},
    Field{"LonPagFac", &Estado::LonPagFac},
    Field{"LonLinNoF", &Estado::LonLinNoF},
    Field{"LonLinPag", &Estado::LonLinPag},
    Field{"ErrorMostrar", &Estado::ErrorMostrar},
    Field{"MostrarComandos", &Estado::MostrarComandos},
    Field{"MostrarRespuestas", &Estado::MostrarRespuestas},
    Field{"LogComandos", &Estado::LogComandos},
    Field{"EmiteTIC", &Estado::EmiteTIC},
    Field{"EmiteTIF", &Estado::EmiteTIF},
    Field{"EmiteFAC", &Estado::EmiteFAC},
    Field{"EmiteRTO", &Estado::EmiteRTO},
    Field{"EmitePAG", &Estado::EmitePAG},
    Field{"EmiteCRE", &Estado::EmiteCRE},
    Field{"EmiteDEB", &Estado::EmiteDEB},
    Field{"LonDescripcionF", &Estado::LonDescripcionF},
    Field{"LonTextoFiscalF", &Estado::LonTextoFiscalF},
    Field{"LonEncabezadoF", &Estado::LonEncabezadoF},
    Field{"LonTextoNoFiscalF", &Estado::LonTextoNoFiscalF},
    Field{"LonDatosClienteF", &Estado::LonDatosClienteF},
    Field{"LonDescripcionT", &Estado::LonDescripcionT},
    Field{"LonTextoFiscalT", &Estado::LonTextoFiscalT},
    Field{"LonEncabezadoT", &Estado::LonEncabezadoT},
    Field{"LonTextoNoFiscalT", &Estado::LonTextoNoFiscalT},
    Field{"LonDatosClienteT", &Estado::LonDatosClienteT},
    Field{"UtilizaTransporte", &Estado::UtilizaTransporte},
    Field{"DelayComandos", &Estado::DelayComandos},
    Field{"EntCantidad", &Estado::EntCantidad},
    Field{"DecCantidad", &Estado::DecCantidad},
    Field{"EntPrecio", &Estado::EntPrecio},
    Field{"DecPrecio", &Estado::DecPrecio},
    Field{"EntDesc", &Estado::EntDesc},
    Field{"DecDesc", &Estado::DecDesc},
    Field{"EntIVA", &Estado::EntIVA},
    Field{"DecIVA", &Estado::DecIVA},
    Field{"EntImpInt", &Estado::EntImpInt},
    Field{"DecImpInt", &Estado::DecImpInt},
    Field{"EntPercepcion", &Estado::EntPercepcion},
    Field{"DecPercepcion", &Estado::DecPercepcion},
    Field{"IncluirPuntoPrecio", &Estado::IncluirPuntoPrecio},
    Field{"CPI", &Estado::CPI},
    Field{"Transporte", &Estado::Transporte},
    Field{"AjusteRedondeo", &Estado::AjusteRedondeo},
    Field{"QuitarCaracNoValidos", &Estado::QuitarCaracNoValidos},
    Field{"UltimoError", &Estado::UltimoError},
    Field{"EnviaComando", &Estado::EnviaComando},
    Field{"NroSecuencia", &Estado::NroSecuencia},
    Field{"NroSecuenciaAnterior", &Estado::NroSecuenciaAnterior},
    Field{"Reintentar", &Estado::Reintentar},
    Field{"ImpresoraConfig", &Estado::ImpresoraConfig},
    Field{"ModeloNombre", &Estado::ModeloNombre},
    Field{"TipoComprobante", &Estado::TipoComprobante},
    Field{"TipoIVA", &Estado::TipoIVA},
    Field{"ComandoActual", &Estado::ComandoActual},
    Field{"RespuestaActual", &Estado::RespuestaActual},
    Field{"EstadoImpresora", &Estado::EstadoImpresora},
    Field{"EstadoFiscal", &Estado::EstadoFiscal},
    Field{"Respuestas", &Estado::Respuestas},
    Field{"RespuestaCompleta", &Estado::RespuestaCompleta},
    Field{"BitImpresora", &Estado::BitImpresora},
    Field{"BitFiscal", &Estado::BitFiscal},
};

std::string Show(std::int32_t number) {
  return std::to_string(number);
}

std::string Show(const std::string& text) {
  return '"' + Visible(text) + '"';
}

std::string Show(const std::array<Booleano, 16>& flags) {
  std::string slots;
  for (std::size_t slot = 0; slot < flags.size(); ++slot) {
    if (flags.at(slot) != kFalso) slots += (slots.empty() ? "" : " ") + std::to_string(slot);
  }
  return slots.empty() ? "none" : slots;
}

std::string ShowLayout(const Estado& state) {
  std::string values;
  for (const std::int32_t value : state.DisposicionModelo) {
    values += (values.empty() ? "" : " ") + std::to_string(value);
  }
  return values;
}

std::string ShowAnswerFields(const Estado& state) {
  std::string fields;
  for (const std::string& field : state.Respuesta) {
    fields += (fields.empty() ? "" : " ") + Show(field);
  }
  return fields;
}

}  // namespace

std::string ShowField(const Estado& state, std::string_view name) {
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
