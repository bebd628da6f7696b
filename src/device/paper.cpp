#include "device/paper.hpp"

#include "frame/operation.hpp"

namespace kestra {

std::int32_t CortaPapel(Biblioteca& k) {
  return Operar(k, "EP_CortaPapel()", " - Comando : EP_CortaPapel()", Comando('K'));
}

std::int32_t AvanzaPapel(Biblioteca& k, std::int16_t lineas) {
  return Operar(k, "EP_AvanzaPapel()", " - Comando : EP_AvanzaPapel()", Comando('R').Campo(lineas));
}

}  // namespace kestra
