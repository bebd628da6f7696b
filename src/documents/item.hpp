#pragma once

#include <cstdint>

#include "frame/library.hpp"

namespace kestra {

// The arguments of the two item operations, as the host passes them.
struct ArgumentosDeItem {
  const char* descripcion;  // 50 bytes
  double cantidad;
  double precio;
  double iva;
  double impuestos_internos;
  const char* extra1;  // 22 bytes, as the others
  const char* extra2;
  const char* extra3;
};

std::int32_t ImprimirItem(Biblioteca& k, const ArgumentosDeItem& argumentos);
std::int32_t AnularItem(Biblioteca& k, const ArgumentosDeItem& argumentos);

}  // namespace kestra
