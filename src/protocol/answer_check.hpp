#pragma once

namespace kestra {

struct Biblioteca;

// Splits RespuestaActual into EstadoImpresora, EstadoFiscal and the data fields.
void SepararRespuesta(Biblioteca& k);

void LimpiarBits(Biblioteca& k);

// Decodes both status words into the flags. Throws Falla for a word that is not hexadecimal.
void DecodificarEstados(Biblioteca& k);

// Splits, decodes, lists and judges the last answer; shows the status report when the printer is
// out of paper or refused the command. True: the answer carries no error.
bool ListarRespuestas(Biblioteca& k);

// Asks the printer for its status and tells the operator each condition. True: nothing is set.
bool ObtenerEstado(Biblioteca& k);

}  // namespace kestra
