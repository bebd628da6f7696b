#include "documents/item.hpp"

#include <array>
#include <string>
#include <utility>

#include "documents/document_kinds.hpp"
#include "documents/fiscal_text.hpp"
#include "documents/transport_sheet.hpp"
#include "fields/text_field.hpp"
#include "frame/command_log.hpp"
#include "frame/host_buffer.hpp"
#include "frame/operation.hpp"

namespace kestra {
namespace {

constexpr std::string_view kVacio(&kCampoVacio, 1);

constexpr std::string_view kVenta = "M";
constexpr std::string_view kDevolucion = "R";
constexpr std::string_view kAnulacion = "m";

struct Item {
  std::string descripcion;
  std::string cantidad;
  std::string precio;
  std::string iva;
  std::string impuestos_internos;
  std::array<std::string, 3> extras;
  std::string bultos;  // packages
  std::string_view calificador;
};

// The two fields in which parallel commands differ on purpose.
struct Rellenos {
  std::string_view familia;
  std::string_view calificador;
  std::string_view campo_7 = "0000";
  std::string_view campo_11 = kVacio;  // kBultos: the packages again
};
constexpr std::string_view kBultos = "bultos";
constexpr std::array kRellenos = {
    Rellenos{.familia = "FC", .calificador = kVenta, .campo_7 = "00000000", .campo_11 = kBultos},
    Rellenos{.familia = "FC", .calificador = kDevolucion},
    Rellenos{.familia = "FC", .calificador = kAnulacion, .campo_7 = "00000000", .campo_11 = "0000"},
    Rellenos{.familia = "TF", .calificador = kVenta},
    Rellenos{.familia = "TF", .calificador = kDevolucion},
    Rellenos{.familia = "TF", .calificador = kAnulacion},
    Rellenos{.familia = "TQ", .calificador = kVenta},
    Rellenos{.familia = "TQ", .calificador = kDevolucion},
    Rellenos{.familia = "TQ", .calificador = kAnulacion},
};

const Rellenos* BuscarRellenos(std::string_view familia, std::string_view calificador) {
  for (const auto& fila : kRellenos) {
    if (fila.familia == familia && fila.calificador == calificador) return &fila;
  }
  return nullptr;
}

Digitos DigitosDeCantidad(const Estado& estado) {
  return {estado.EntCantidad, estado.DecCantidad};
}

Item Preparar(Biblioteca& k, const ArgumentosDeItem& a) {
  const auto& estado = k.estado;
  const auto largo = LargoSegunFamilia(estado, estado.LonDescripcionT, estado.LonDescripcionF);
  const auto linea = [&](const char* texto, std::int32_t bytes) {
    return Limpiar(estado, CampoTexto(k, LeerCadena(texto, bytes), largo));
  };
  Item item;
  item.descripcion = linea(a.descripcion, 50);
  item.cantidad = CampoNumero(k, a.cantidad, DigitosDeCantidad(estado));
  item.precio =
      CampoNumero(k, a.precio, {estado.EntPrecio, estado.DecPrecio, estado.IncluirPuntoPrecio});
  item.iva = CampoNumero(k, a.iva, {estado.EntIVA, estado.DecIVA});
  item.impuestos_internos =
      CampoNumero(k, a.impuestos_internos, {estado.EntImpInt, estado.DecImpInt});
  item.extras = {linea(a.extra1, 22), linea(a.extra2, 22), linea(a.extra3, 22)};
  item.bultos = CampoNumero(k, a.cantidad, {4, 0});
  return item;
}

std::string Pregunta(std::string_view nombre, const Item& item) {
  return LlamadaEntreComillas(
      nombre, {item.descripcion, item.cantidad, item.precio, item.iva, item.impuestos_internos,
               item.extras[0], item.extras[1], item.extras[2]});
}

Comando ComandoDeItem(const Rellenos& rellenos, const Item& item) {
  Comando comando(ByteDeFamilia(rellenos.familia, kItem));
  comando.Campo(item.descripcion)
      .Campo(item.cantidad)
      .Campo(item.precio)
      .Campo(item.iva)
      .Campo(item.calificador)
      .Campo(item.bultos)
      .Campo(rellenos.campo_7);
  if (rellenos.familia != kFamiliaTicket) {
    for (const auto& extra : item.extras) comando.Campo(extra);
    comando.Campo(rellenos.campo_11 == kBultos ? item.bultos : rellenos.campo_11);
  }
  comando.Campo(item.impuestos_internos);
  return comando;
}

// A ticket has no place for extra lines: they go before the item as texts of their own.
void ImprimirExtras(Biblioteca& k, const Item& item) {
  for (const auto& extra : item.extras) {
    if (extra != kVacio) ImprimirTextoFiscalInterna(k, extra);
  }
}

std::int32_t MandarItem(Biblioteca& k, const Item& item) {
  const auto familia = k.estado.TipoComprobante;
  const auto* rellenos = BuscarRellenos(familia, item.calificador);
  if (rellenos == nullptr) return kFracaso;
  if (familia == kFamiliaFormulario && k.estado.UtilizaTransporte == 1 && !HayLugarParaItem(k)) {
    return kFracaso;
  }
  if (familia == kFamiliaTicket) ImprimirExtras(k, item);
  return Mandar(k, ComandoDeItem(*rellenos, item));
}

}  // namespace

std::int32_t ImprimirItem(Biblioteca& k, const ArgumentosDeItem& argumentos) {
  auto item = Preparar(k, argumentos);
  item.calificador = kVenta;
  if (argumentos.cantidad < 0) {
    // Kept as is: the packages go on carrying the sign.
    item.cantidad = CampoNumero(k, -argumentos.cantidad, DigitosDeCantidad(k.estado));
    item.calificador = kDevolucion;
  }
  if (!Confirmar(k, Pregunta("EP_ImprimirItem", item))) return kFracaso;
  EscribirLog(k, " - Comando : EP_ImprimirItem");
  return MandarItem(k, item);
}

std::int32_t AnularItem(Biblioteca& k, const ArgumentosDeItem& argumentos) {
  auto item = Preparar(k, argumentos);
  item.calificador = kAnulacion;
  if (!Confirmar(k, Pregunta("EP_AnularItem", item))) return kFracaso;
  EscribirLog(k, " - Comando : EP_AnularItem");
  return MandarItem(k, item);
}

}  // namespace kestra
