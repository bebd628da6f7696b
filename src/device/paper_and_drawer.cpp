#include "device/paper.hpp"

#include "operation/operation.hpp"

namespace kestra {

std::int32_t CortaPapel(Library& library) {
  return Operate(library, "EP_CortaPapel()", " - Comando : EP_CortaPapel()", Command('K'));
}

std::int32_t AvanzaPapel(Library& library, std::int16_t lines) {
  return Operate(library, "EP_AvanzaPapel()", " - Comando : EP_AvanzaPapel()",
                 Command('R').Field(lines));
}

}  // namespace kestra
