#include "protocol/status.hpp"

#include <algorithm>

#include "frame/failure.hpp"

namespace kestra {
namespace {

// The slots of one digit's flags, lowest weight first.
using Digito = std::array<std::size_t, 4>;
// The digits of a word from the last to the first.
using Disposicion = std::array<Digito, 4>;

constexpr Disposicion kFiscal = {{{0, 1, 2, 3}, {4, 5, 6, 7}, {8, 9, 10, 11}, {12, 13, 14, 15}}};

// Kept as is: "out of paper" (0x4000) lives in slot 13 and its neighbour (0x2000) in slot 14;
// verdict, messages and report all read the slots so.
constexpr Disposicion kImpresora = {{{0, 1, 2, 3}, {4, 5, 6, 7}, {8, 9, 10, 11}, {12, 14, 13, 15}}};

void Decodificar(std::string_view palabra, const Disposicion& disposicion, Marcas& marcas) {
  auto posicion = disposicion.size();
  for (const auto& slots : disposicion) {
    --posicion;
    const auto digito = posicion < palabra.size() ? palabra.substr(posicion, 1) : "";
    const auto bits = ValorDigitoHex(digito);
    for (std::size_t k = 0; k < slots.size(); ++k) marcas[slots[k]] = bits[k];
  }
}

}  // namespace

std::array<Booleano, 4> ValorDigitoHex(std::string_view digito) {
  constexpr std::string_view kMayusculas = "0123456789ABCDEF";
  constexpr std::string_view kMinusculas = "0123456789abcdef";
  if (digito.size() != 1) throw TipoNoCoincide();
  const auto valor = std::min(kMayusculas.find(digito), kMinusculas.find(digito));
  if (valor == std::string_view::npos) throw TipoNoCoincide();
  std::array<Booleano, 4> bits{};
  for (std::size_t k = 0; k < bits.size(); ++k) bits[k] = ABooleano(((valor >> k) & 1) != 0);
  return bits;
}

void DecodificarImpresora(std::string_view palabra, Marcas& marcas) {
  Decodificar(palabra, kImpresora, marcas);
}

void DecodificarFiscal(std::string_view palabra, Marcas& marcas) {
  Decodificar(palabra, kFiscal, marcas);
}

bool EstaMarcada(const Condicion& condicion, const Marcas& impresora, const Marcas& fiscal) {
  const auto& marcas = condicion.palabra == Palabra::kImpresora ? impresora : fiscal;
  return marcas[condicion.slot] != kFalso;
}

bool HayFalla(const Marcas& impresora, const Marcas& fiscal) {
  return std::any_of(kCondiciones.begin(), kCondiciones.end(), [&](const Condicion& condicion) {
    return condicion.falla && EstaMarcada(condicion, impresora, fiscal);
  });
}

std::vector<std::string_view> MensajesDeEstado(const Marcas& impresora, const Marcas& fiscal) {
  std::vector<std::string_view> mensajes;
  for (const auto& condicion : kCondiciones) {
    if (!EstaMarcada(condicion, impresora, fiscal)) continue;
    for (const auto mensaje : {condicion.mensaje, condicion.otro_mensaje}) {
      if (!mensaje.empty()) mensajes.push_back(mensaje);
    }
  }
  return mensajes;
}

}  // namespace kestra
