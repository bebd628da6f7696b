#include "documents/operations.hpp"

#include <array>

#include "documents/document_kinds.hpp"
#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"

namespace kestra {
namespace {

struct HomologatedKind {
  std::string_view family;
  std::string_view kind;
  std::string_view log;
  std::string_view letter;
  bool copies_from_host;  // else "1"
  std::string_view field_5;
};
constexpr std::array kOpenings = {
    HomologatedKind{"FC", "NC", " - Comando : EP_AbrirComprobanteNoFiscalHomologado(FC/NC)", "N",
                    true, "F"},
    HomologatedKind{"FC", "RT", " - Comando : EP_AbrirComprobanteNoFiscalHomologado(FC/RT)", "E",
                    true, "F"},
    HomologatedKind{"FC", "CT", " - Comando : EP_AbrirComprobanteNoFiscalHomologado(FC/CT)", "C",
                    true, "F"},
    HomologatedKind{"TF", "NC", " - Comando : EP_AbrirComprobanteNoFiscalHomologado(TF/NC)", "M",
                    false, "P"},
};

struct Closing {
  std::string_view family;
  std::string_view kind;
  std::string_view letter;
};
constexpr std::array kClosings = {
    Closing{"FC", "NC", "N"}, Closing{"FC", "RT", "E"}, Closing{"FC", "CT", "C"},
    Closing{"TF", "FC", "T"}, Closing{"TF", "ND", "D"}, Closing{"TF", "NC", "M"},
    Closing{"TQ", "FC", "T"},
};

}  // namespace

std::int32_t AbrirComprobanteNoFiscalHomologado(Library& library,
                                                const OpeningArguments& arguments) {
  auto opening = PrepareOpening(library, arguments);
  Operation operation{.call = OpeningQuestion("EP_AbrirComprobanteNoFiscalHomologado", opening)};
  DefaultCopies(opening);
  DefaultAddress(opening);
  const auto& state = library.state;
  const auto* kind = FindRow(kOpenings, state.TipoComprobante, opening.kind);
  if (kind == nullptr) return Run(library, operation);
  operation.log = kind->log;
  operation.command = OpeningCommand(state, opening,
                                     {.kind_letter = kind->letter,
                                      .copies_from_host = kind->copies_from_host,
                                      .field_5 = kind->field_5,
                                      .issuer_vat = state.TipoIVA,
                                      .field_13 = "N"});
  return Run(library, operation);
}

std::int32_t CerrarComprobanteNoFiscalHomologado(Library& library, const char* kind,
                                                 const char* mark) {
  const auto type = LeerCadena(library.texts, kind, 2);
  const auto letter = LeerCadena(library.texts, mark, 1);
  const auto* closing = FindRow(kClosings, library.state.TipoComprobante, type);
  // Kept as is: "Cerrrar", which is what operators have always read.
  Operation operation{.call = QuotedCall("EP_CerrrarComprobanteNoFiscalHomologado", {type, letter}),
                      .log = " - Comando : EP_CerrarComprobanteNoFiscalHomologado"};
  if (closing != nullptr) {
    operation.command = ClosingCommand(closing->family, closing->letter, letter);
  }
  return Run(library, operation);
}

std::int32_t AbrirComprobanteNoFiscal(Library& library) {
  return Run(library, {.call = "EP_AbrirComprobanteNoFiscal()",
                       .log = " - Comando : EP_AbrirComprobanteNoFiscal()",
                       .command = Command('H')});
}

std::int32_t ImprimirTextoNoFiscal(Library& library, const char* text) {
  const auto& state = library.state;
  const auto length = LengthForFamily(state, state.LonTextoNoFiscalT, state.LonTextoNoFiscalF);
  const auto field = Clean(state, TextField(library, LeerCadena(library.texts, text, 120), length));
  return Run(library, {.call = Call("EP_ImprimirTextoNoFiscal", {field}),
                       .log = " - Comando : EP_ImprimirTextoNoFiscal()",
                       .command = Command('I').Field(field)});
}

std::int32_t CerrarComprobanteNoFiscal(Library& library) {
  return Run(library, {.call = "EP_CerrarComprobanteNoFiscal()",
                       .log = " - Comando : EP_CerrarComprobanteNoFiscal()",
                       .command = Command('J').Field("T")});
}

}  // namespace kestra
