#include "worker/library.hpp"

#include <kestra/kestra.h>

#include <array>
#include <charconv>

namespace puerta {
namespace {

constexpr std::int32_t kUtf8 = 2;
constexpr std::int32_t kNo = 7;
constexpr std::int32_t kOk = 1;
constexpr int kDocumentMask = 0xFF;
constexpr int kFirstData = 3;  // field of an answer, behind the two status words

template <class Ask>
std::string TextBy(Ask ask) {
  std::string text(1024, '\0');
  const std::int32_t length = ask(text.data(), static_cast<std::int32_t>(text.size()));
  return length <= 0 ? "" : text.c_str();
}

// ---- What is called, by the name of a call ----

using Number = char*;  // receives up to eight bytes

struct Row {
  std::string_view name;
  std::int32_t (*make)(const Call& call, Number number);
};

const char* Text(const Call& call, std::size_t index) {
  return call.texts.at(index).c_str();
}

double Amount(const Call& call, std::size_t index) {
  return ToDouble(call.amounts.at(index));
}

template <auto Function>
std::int32_t Open(const Call& c, Number) {
  return Function(Text(c, 0), Text(c, 1), Text(c, 2), Text(c, 3), Text(c, 4), Text(c, 5),
                  Text(c, 6), Text(c, 7), Text(c, 8), Text(c, 9), Text(c, 10), Text(c, 11),
                  c.numbers.at(0));
}

template <auto Function>
std::int32_t Named(const Call& c, Number) {
  return Function(Text(c, 0), Amount(c, 0));
}

template <auto Function>
std::int32_t Plain(const Call&, Number) {
  return Function();
}

template <auto Function>
std::int32_t OneText(const Call& c, Number) {
  return Function(Text(c, 0));
}

constexpr std::array kRows{
    Row{"EP_AbrirComprobanteFiscal", Open<EP_AbrirComprobanteFiscal>},
    Row{"EP_AbrirComprobanteNoFiscalHomologado", Open<EP_AbrirComprobanteNoFiscalHomologado>},
    Row{"EP_ImprimirItem",
        [](const Call& c, Number) {
          return EP_ImprimirItem(Text(c, 0), Amount(c, 0), Amount(c, 1), Amount(c, 2), Amount(c, 3),
                                 Text(c, 1), Text(c, 2), Text(c, 3));
        }},
    Row{"EP_ImprimirTextoFiscal", OneText<EP_ImprimirTextoFiscal>},
    Row{"EP_DescuentoGeneral", Named<EP_DescuentoGeneral>},
    Row{"EP_RecargoGeneral", Named<EP_RecargoGeneral>},
    Row{"EP_EspecificarPercepcionGlobal",
        [](const Call& c, Number) {
          return EP_EspecificarPercepcionGlobal(Text(c, 0), Amount(c, 0), Amount(c, 1), Text(c, 1));
        }},
    Row{"EP_ImprimirPago", Named<EP_ImprimirPago>},
    Row{"EP_CerrarComprobanteFiscal",
        [](const Call& c, Number number) {
          return EP_CerrarComprobanteFiscal(Text(c, 0), Text(c, 1), number);
        }},
    Row{"EP_CerrarComprobanteNoFiscalHomologado",
        [](const Call& c, Number) {
          return EP_CerrarComprobanteNoFiscalHomologado(Text(c, 0), Text(c, 1));
        }},
    Row{"EP_Cancelar", Plain<EP_Cancelar>},
    Row{"EP_AbrirComprobanteNoFiscal", Plain<EP_AbrirComprobanteNoFiscal>},
    Row{"EP_ImprimirTextoNoFiscal", OneText<EP_ImprimirTextoNoFiscal>},
    Row{"EP_CerrarComprobanteNoFiscal", Plain<EP_CerrarComprobanteNoFiscal>},
    Row{"EP_ReporteX", Plain<EP_ReporteX>},
    Row{"EP_ReporteZ", Plain<EP_ReporteZ>},
    Row{"EP_ReporteZporFechas",
        [](const Call& c, Number) { return EP_ReporteZporFechas(Text(c, 0), Text(c, 1), 0); }},
    Row{"EP_ReporteZporNumeros",
        [](const Call& c, Number) {
          return EP_ReporteZporNumeros(c.numbers.at(0), c.numbers.at(1), 0);
        }},
    Row{"EP_AbrirCajonDeDinero",
        [](const Call& c, Number) { return EP_AbrirCajonDeDinero(c.numbers.at(0)); }},
    Row{"EP_CambiarFechaHora",
        [](const Call& c, Number) { return EP_CambiarFechaHora(Text(c, 0), Text(c, 1)); }},
    Row{"EP_ObtenerFechaHora", [](const Call&, Number) { return EP_ObtenerFechaHora(nullptr); }},
    Row{"EP_SetEncabezado",
        [](const Call& c, Number) {
          return EP_SetEncabezado(Text(c, 0), c.numbers.at(0), c.numbers.at(1));
        }},
};

// A start with such a cause is none: keys that were not read, a journal that cannot be.
bool PreventsStart(int cause) {
  constexpr int kJournal = 7;
  return cause == KESTRA_CAUSA_CLAVE_ILEGIBLE || cause / 100 == kJournal;
}

Report LastReport() {
  return {
      .outcome = Kestra_Desenlace(), .cause = Kestra_Causa(), .text = TextBy(Kestra_CausaTexto)};
}

// ---- The operator: nobody stands before the door ----

std::int32_t KESTRA_CALL OnMessage(void* context, const char* text, const char*,
                                   std::int32_t style) {
  const bool question = style != 0;
  (*static_cast<Notice*>(context))(text, question);
  return question ? kNo : kOk;
}

std::int32_t KESTRA_CALL OnStates(void*, const char*, const char*, const KestraFila*,
                                  std::int32_t) {
  return 0;
}

void KESTRA_CALL OnFullMemory(void* context) {
  (*static_cast<Notice*>(context))("La memoria fiscal está casi llena.", false);
}

}  // namespace

Library::Library(Notice notice) : notice_(std::move(notice)) {
  Kestra_Textos(kUtf8);
  const KestraOperador operator_record{.tamano = sizeof(KestraOperador),
                                       .contexto = &notice_,
                                       .mensaje = OnMessage,
                                       .informe_estados = OnStates,
                                       .memoria_llena = OnFullMemory};
  Kestra_DefinirOperador(&operator_record);
}

Library::~Library() {
  EP_Kill();
  Kestra_DefinirOperador(nullptr);
}

Report Library::Start() {
  if (started_) return {.outcome = KESTRA_DESENLACE_HECHO};
  const bool ready = EP_Init() == 1;
  auto report = LastReport();
  started_ = ready && !PreventsStart(report.cause);
  report.outcome = started_ ? KESTRA_DESENLACE_HECHO : KESTRA_DESENLACE_NO_ENVIADO;
  return report;
}

Report Library::Make(const Call& call) {
  const auto* const row = FindNamed(kRows, call.name);
  if (row == nullptr) return {.outcome = KESTRA_DESENLACE_NO_ENVIADO};
  std::array<char, 9> number{};
  row->make(call, number.data());
  auto report = LastReport();
  report.number = number.data();
  return report;
}

Report Library::Ask() {
  const bool answered = Kestra_Estado() == 0;
  auto report = LastReport();
  if (answered) report.outcome = KESTRA_DESENLACE_HECHO;
  return report;
}

Report Library::Resolve() {
  Kestra_Resolver();
  return LastReport();
}

bool Library::IsPending() {
  return Kestra_Pendiente(nullptr, 0) != 0;
}

std::string Library::Answer(int field) const {
  return TextBy(
      [field](char* text, std::int32_t size) { return Kestra_Respuesta(field, text, size); });
}

bool Library::IsFirstAttempt() const {
  return Kestra_Intentos() == 1;
}

Heard Library::Listen() const {
  Heard heard{.printer = Answer(1), .fiscal = Answer(2)};
  heard.answers = !heard.printer.empty();
  if (heard.answers) return heard;
  const auto report = LastReport();
  heard.cause = report.cause;
  heard.text = report.text;
  return heard;
}

Counters Library::ReadCounters() const {
  Counters counters;
  for (std::size_t i = 0; i < counters.size(); ++i) {
    const auto text = Answer(kFirstData + static_cast<int>(i));
    std::int64_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (!text.empty() && read.ptr == text.data() + text.size()) counters[i] = number;
  }
  return counters;
}

bool Library::IsOpen() {
  if (Kestra_DocumentoAbierto() == KESTRA_DOCUMENTO_DESCONOCIDO) Ask();
  return (Kestra_DocumentoAbierto() & kDocumentMask) != KESTRA_DOCUMENTO_NINGUNO;
}

}  // namespace puerta
