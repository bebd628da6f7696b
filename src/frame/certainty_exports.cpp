// What became of the last call, and questions that print nothing. None of them shows a box.

#include <cstddef>
#include <cstdint>

#include "device/printer_books.hpp"
#include "frame/export_guard.hpp"
#include "kestra/kestra.h"
#include "operation/host_buffer.hpp"
#include "state/causes.hpp"
#include "state/journal.hpp"

using kestra::Export;
using kestra::HandOver;
using kestra::InTurn;
using kestra::kRefused;
using kestra::Library;

namespace {

constexpr std::int32_t kNotKnown = -1;

}  // namespace

int32_t KESTRA_CALL Kestra_Desenlace() {
  return InTurn(kRefused, [](const Library& library) {
    return static_cast<std::int32_t>(library.certainty.report.outcome);
  });
}

int32_t KESTRA_CALL Kestra_Causa() {
  return InTurn(kRefused, [](const Library& library) {
    return static_cast<std::int32_t>(library.certainty.report.cause);
  });
}

int32_t KESTRA_CALL Kestra_CausaTexto(char* texto, int32_t longitud) {
  return InTurn(kRefused, [=](const Library& library) {
    const auto& report = library.certainty.report;
    return HandOver(library.texts, texto, kestra::CauseText(report.cause, report.outcome),
                    longitud);
  });
}

int32_t KESTRA_CALL Kestra_Respuesta(int32_t numero, char* texto, int32_t longitud) {
  return InTurn(kRefused, [=](const Library& library) {
    const auto& answer = library.certainty.report.answer;
    const bool known = numero >= 1 && static_cast<std::size_t>(numero) <= answer.size();
    return HandOver(library.texts, texto, known ? answer[static_cast<std::size_t>(numero - 1)] : "",
                    longitud);
  });
}

int32_t KESTRA_CALL Kestra_Intentos() {
  return InTurn(kRefused, [](const Library& library) { return library.certainty.report.attempts; });
}

int32_t KESTRA_CALL Kestra_Estado() {
  return Export(__func__, 1, kRefused, [](Library& library) { return kestra::AskStatus(library); });
}

int32_t KESTRA_CALL Kestra_DocumentoAbierto() {
  return InTurn(kRefused, [](const Library& library) {
    return kestra::OpenDocument(library.certainty.ledger);
  });
}

int32_t KESTRA_CALL Kestra_Subtotal(char* texto, int32_t longitud) {
  return Export(__func__, 0, kRefused, [=](Library& library) {
    return HandOver(library.texts, texto, kestra::AskTotal(library), longitud);
  });
}

int32_t KESTRA_CALL Kestra_Numeracion(int32_t clase, int32_t letra, char* texto, int32_t longitud) {
  return Export(__func__, 0, kRefused, [=](Library& library) {
    return HandOver(library.texts, texto, kestra::AskNumber(library, clase, letra), longitud);
  });
}

int32_t KESTRA_CALL Kestra_Pendiente(char* texto, int32_t longitud) {
  return InTurn(kRefused, [=](Library& library) {
    const bool known = kestra::KnowsJournal(library);
    const auto& pending = library.certainty.pending;
    HandOver(library.texts, texto, pending ? pending->call : "", longitud);
    if (pending) return 1;
    return known ? 0 : kNotKnown;
  });
}

int32_t KESTRA_CALL Kestra_Resolver() {
  return Export(__func__, KESTRA_DESENLACE_DESCONOCIDO, kRefused,
                [](Library& library) { return kestra::Settle(library); });
}

int32_t KESTRA_CALL Kestra_ResolverNumero(char* texto, int32_t longitud) {
  return InTurn(kRefused, [=](const Library& library) {
    return HandOver(library.texts, texto, library.certainty.settled_number, longitud);
  });
}

int32_t KESTRA_CALL Kestra_Olvidar() {
  return Export(__func__, 0, kRefused, [](Library& library) { return kestra::Forget(library); });
}
