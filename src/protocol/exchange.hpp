#pragma once

#include <string>

namespace kestra {

struct Library;

// Sends a command and waits for its answer, which goes to RespuestaActual and, split and judged, to the
// fields that the operations read. True: the printer accepted the command; false: it did not, or there
// was no exchange. ComandoActual is left framed.
bool Enviar(Library& library, const std::string& command);

}  // namespace kestra
