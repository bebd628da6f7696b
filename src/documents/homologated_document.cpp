#include "documents/homologated_document.hpp"

#include <array>

#include "documents/closing.hpp"
#include "documents/document_kinds.hpp"
#include "fields/text_field.hpp"
#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"
#include "state/log.hpp"

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
  const auto question = OpeningQuestion("EP_AbrirComprobanteNoFiscalHomologado", opening);
  if (!Confirm(library, question)) return kFailure;
  DefaultCopies(opening);
  DefaultAddress(opening);
  const auto* kind = FindRow(kOpenings, library.state.TipoComprobante, opening.kind);
  if (kind == nullptr) return kFailure;
  EscribirLog(library, kind->log);
  return Send(library, OpeningCommand(library.state, opening,
                                      {.kind_letter = kind->letter,
                                       .copies_from_host = kind->copies_from_host,
                                       .field_5 = kind->field_5,
                                       .issuer_vat = library.state.TipoIVA,
                                       .field_13 = "N"}));
}

std::int32_t CerrarComprobanteNoFiscalHomologado(Library& library, const char* kind,
                                                 const char* mark) {
  const auto type = LeerCadena(kind, 2);
  const auto letter = LeerCadena(mark, 1);
  const auto call = QuotedCall("EP_CerrrarComprobanteNoFiscalHomologado", {type, letter});
  if (!Confirm(library, call)) return kFailure;
  EscribirLog(library, " - Comando : EP_CerrarComprobanteNoFiscalHomologado");
  const auto* closing = FindRow(kClosings, library.state.TipoComprobante, type);
  if (closing == nullptr) return kFailure;
  return Send(library, ClosingCommand(closing->family, closing->letter, letter));
}

}  // namespace kestra
