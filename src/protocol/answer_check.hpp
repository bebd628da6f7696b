#pragma once

#include <string>

#include "protocol/command.hpp"

namespace kestra {

struct Library;

// Puts a query in the work string, where it stays when there is no exchange.
void AnnounceQuery(Library& library, const Command& query);

// Splits RespuestaActual into EstadoImpresora, EstadoFiscal and the data fields.
void SepararRespuesta(Library& library);

void LimpiarBits(Library& library);

// Decodes both status words into the flags. Throws Failure for a word that is not hexadecimal.
void DecodificarEstados(Library& library);

// Makes an answer the last one: splits and decodes it, and lists it where MostrarRespuestas is 1.
void ShowAnswer(Library& library, const std::string& answer);

// Shows the status report, once, for a printer that is out of paper or has a condition that the base
// verdict calls a failure.
void ReportConditions(Library& library);

// Splits, decodes, lists and judges the last answer; shows the status report when the printer is
// out of paper or refused the command. True: the answer carries no error.
bool ListarRespuestas(Library& library);

}  // namespace kestra
