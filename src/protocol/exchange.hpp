#pragma once

#include <cstdint>

namespace kestra {

struct Library;

// Sends ComandoActual to the printer and waits for its answer, which goes to RespuestaActual and,
// split and judged, to the fields that the operations read. 0: the printer accepted the command; 1:
// it did not, or there was no exchange. ComandoActual is left framed.
std::int32_t Enviar(Library& library);

}  // namespace kestra
