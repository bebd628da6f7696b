#include "documents/operations.hpp"

#include "documents/document_kinds.hpp"
#include "fields/text_field.hpp"
#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kNumberLength = 8;

bool IsForFinalConsumer(Library& library, std::string_view letter) {
  if (letter == "B" || letter == "C") return true;
  library.platform.GetOperator().Message(
      "Solo pueden emitirse Comprobantes Ticket a Consumidor Final", "", kBoxOk);
  return false;
}

Outgoing OpeningOf(const FiscalKind& kind, const State& state, const Opening& opening) {
  if (kind.family == kTicketFamily) return Command(kOpen.ticket).Field(kind.at_opening);
  if (kind.at_opening == kNoLetter) return NoCommand{};
  return OpeningCommand(state, opening,
                        {.kind_letter = kind.at_opening,
                         .copies_from_host = kind.copies_from_host,
                         .field_5 = kind.field_5,
                         .issuer_vat = "I",
                         .field_13 = kind.field_13});
}

}  // namespace

std::int32_t AbrirComprobanteFiscal(Library& library, const OpeningArguments& arguments) {
  LastError(library.state) = 0;
  auto opening = PrepareOpening(library, arguments);
  DefaultCopies(opening);
  // Kept as is: the second line of the name never reaches the printer.
  opening.line2 = " ";
  Operation operation{.call = OpeningQuestion("EP_AbrirComprobanteFiscal", opening)};
  DefaultAddress(opening);
  const auto* kind = FindFiscalKind(library.state.TipoComprobante, opening.kind);
  if (kind == nullptr) return Run(library, operation);
  operation.log = kind->log;
  operation.command = OpeningOf(*kind, library.state, opening);
  if (kind->family == kTicketFamily) {
    operation.before = [&] { return IsForFinalConsumer(library, opening.letter); };
    operation.otherwise = Cause::kConsumerOnly;
  }
  return Run(library, operation);
}

std::int32_t ImprimirTextoFiscal(Library& library, const char* text) {
  return ImprimirTextoFiscalInterna(library,
                                    Clean(library.state, LeerCadena(library.texts, text, 26)));
}

std::int32_t ImprimirTextoFiscalInterna(Library& library, std::string_view text) {
  return Run(library, {.call = Call("EP_ImprimirTextoFiscal", {text}),
                       .log = " - Comando : EP_ImprimirTextoFiscal",
                       .command = Command('A').Field(text)});
}

std::int32_t CerrarComprobanteFiscal(Library& library, const char* kind, const char* letter,
                                     char* number) {
  const auto kind_read = LeerCadena(library.texts, kind, 2);
  const auto letter_read = LeerCadena(library.texts, letter, 1);
  const auto* row = FindFiscalKind(library.state.TipoComprobante, kind_read);
  // Kept as is: "Cerrrar", which is what operators have always read.
  Operation operation{.call = QuotedCall("EP_CerrrarComprobanteFiscal", {kind_read, letter_read}),
                      .log = " - Comando : EP_CerrarComprobanteFiscal"};
  if (row != nullptr) operation.command = ClosingCommand(row->family, row->at_closing, letter_read);
  const auto result = Run(library, operation);
  // In the safe mode no number is told but the document's own.
  if (library.certainty.settings.ModoSeguro == 1 && result != kSuccess) return result;
  // Kept as is: the host's buffer is written whatever happened, with the field that the last answer
  // left.
  DevolverCadena(library.texts, number, FixedWidth(library.state.Respuesta[0], kNumberLength),
                 kNumberLength);
  return result;
}

std::int32_t Cancelar(Library& library) {
  return Run(library, {.call = "EP_CancelarDocumento()",
                       .log = " - Comando : EP_Cancelar()",
                       .command = TotalsCommand(library.state, {kNoText, kNoText, "C"})});
}

}  // namespace kestra
