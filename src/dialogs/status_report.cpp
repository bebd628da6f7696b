#include "dialogs/status_report.hpp"

namespace kestra {

InformeEstados ArmarInforme(const Estado& estado) {
  InformeEstados informe{estado.EstadoImpresora, estado.EstadoFiscal, {}};
  for (const auto& condicion : kCondiciones) {
    informe.filas.push_back(
        {.grupo = static_cast<std::int32_t>(condicion.palabra),
         .numero = condicion.fila,
         .error = condicion.clase == Clase::kError,
         .encendida = EstaMarcada(condicion, estado.BitImpresora, estado.BitFiscal),
         .texto = condicion.texto,
         .ayuda = condicion.ayuda});
  }
  return informe;
}

}  // namespace kestra
