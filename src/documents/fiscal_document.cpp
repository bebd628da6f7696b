#include "documents/document_kinds.hpp"
#include "documents/fiscal_document.hpp"
#include "operation/operation.hpp"
#include "state/log.hpp"

namespace kestra {
namespace {

std::int32_t OpenTicket(Library& library, const FiscalKind& kind, std::string_view letter) {
  if (letter != "B" && letter != "C") {
    library.platform.GetOperator().Message(
        "Solo pueden emitirse Comprobantes Ticket a Consumidor Final", "", kBoxOk);
    return kFailure;
  }
  return Send(library, Command(kOpen.ticket).Field(kind.at_opening));
}

}  // namespace

std::int32_t AbrirComprobanteFiscal(Library& library, const OpeningArguments& arguments) {
  LastError(library.state) = 0;
  auto opening = PrepareOpening(library, arguments);
  DefaultCopies(opening);
  // Kept as is: the second line of the name never reaches the printer.
  opening.line2 = " ";
  if (!Confirm(library, OpeningQuestion("EP_AbrirComprobanteFiscal", opening))) return kFailure;
  DefaultAddress(opening);

  const auto* kind = FindFiscalKind(library.state.TipoComprobante, opening.kind);
  if (kind == nullptr) return kFailure;
  EscribirLog(library, kind->log);
  if (kind->family == kTicketFamily) return OpenTicket(library, *kind, opening.letter);
  if (kind->at_opening == kNoLetter) return kFailure;
  return Send(library, OpeningCommand(library.state, opening,
                                      {.kind_letter = kind->at_opening,
                                       .copies_from_host = kind->copies_from_host,
                                       .field_5 = kind->field_5,
                                       .issuer_vat = "I",
                                       .field_13 = kind->field_13}));
}

}  // namespace kestra
