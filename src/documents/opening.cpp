#include "documents/opening.hpp"

#include <utility>

#include "documents/document_kinds.hpp"
#include "fields/text_field.hpp"
#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"

namespace kestra {
namespace {

constexpr std::size_t kDocumentLength = 11;

std::string LineText(Library& library, const char* line) {
  const auto& state = library.state;
  auto field = TextField(library, LeerCadena(library.texts, line, 40),
                         LengthForFamily(state, state.LonDatosClienteT, state.LonDatosClienteF));
  return Clean(state, std::move(field));
}

}  // namespace

Opening PrepareOpening(Library& library, const OpeningArguments& a) {
  Opening opening;
  opening.letter = LeerCadena(library.texts, a.letter, 1);
  opening.kind = LeerCadena(library.texts, a.kind, 2);
  opening.document_type = LeerCadena(library.texts, a.document_type, 6);
  opening.document_number =
      PadLeft(TrimBlanks(LeerCadena(library.texts, a.document_number, kDocumentLength)),
              kDocumentLength, '0');
  opening.vat_condition = LeerCadena(library.texts, a.vat_condition, 1);
  opening.line1 = LineText(library, a.line1);
  opening.line2 = LineText(library, a.line2);
  opening.address = LineText(library, a.address);
  opening.line4 = LineText(library, a.line4);
  opening.line5 = LineText(library, a.line5);
  opening.line6 = LineText(library, a.line6);
  opening.line7 = LineText(library, a.line7);
  opening.copies = a.copies;
  return opening;
}

std::string OpeningQuestion(std::string_view name, const Opening& a) {
  return QuotedCall(name, {a.kind, a.letter, a.line1, a.line2, a.document_type, a.document_number,
                           a.vat_condition, a.address, a.line4, a.line5, a.line6, a.line7,
                           std::to_string(a.copies)});
}

void DefaultAddress(Opening& opening) {
  if (opening.address == std::string_view(&kEmptyField, 1)) opening.address = "SIN DOMICILIO";
}

void DefaultCopies(Opening& opening) {
  if (opening.copies == 0) opening.copies = 1;
}

Command OpeningCommand(const State& state, const Opening& opening, const OpeningTraits& traits) {
  return Command(kOpen.invoice)
      .Field(traits.kind_letter)
      .Field("C")
      .Field(opening.letter)
      .Field(traits.copies_from_host ? opening.copies : 1)
      .Field(traits.field_5)
      .Field(state.CPI)
      .Field(traits.issuer_vat)
      .Field(opening.vat_condition)
      .Field(opening.line1)
      .Field(opening.line2)
      .Field(TrimBlanks(opening.document_type))
      .Field(opening.document_number)
      .Field(traits.field_13)
      .Field(opening.address)
      .Field(opening.line4)
      .Field(opening.line5)
      .Field(opening.line6)
      .Field(opening.line7)
      .Field("C");
}

}  // namespace kestra
