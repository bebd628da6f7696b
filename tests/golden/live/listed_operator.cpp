#include "golden/live/listed_operator.hpp"

#include "exports/exports.hpp"
#include "kestra/kestra.h"

namespace kestra::live {
namespace {

FakeOperator& PersonOf(void* context) {
  return *static_cast<FakeOperator*>(context);
}

std::int32_t KESTRA_CALL Message(void* context, const char* text, const char* title,
                                 std::int32_t style) {
  return PersonOf(context).Message(text, title, style);
}

std::int32_t KESTRA_CALL StatusReport(void* context, const char* printer, const char* fiscal,
                                      const KestraFila* rows, std::int32_t count) {
  Report report{.printer = printer, .fiscal = fiscal, .rows = {}};
  for (std::int32_t i = 0; i < count; ++i) {
    report.rows.push_back({.group = rows[i].grupo,
                           .number = rows[i].numero,
                           .error = rows[i].clase != 0,
                           .lit = rows[i].encendida != 0,
                           .text = rows[i].texto,
                           .hint = rows[i].ayuda});
  }
  return PersonOf(context).StatusReport(report) ? 1 : 0;
}

void KESTRA_CALL MemoryFull(void* context) {
  PersonOf(context).MemoryFull();
}

void TakePlace(const KestraOperador* record) {
  exports::Call(exports::Find("Kestra_DefinirOperador"), {exports::Value{.pointer = record}});
}

}  // namespace

ListedOperator::ListedOperator() {
  const KestraOperador record{.tamano = sizeof(KestraOperador),
                              .contexto = &person_,
                              .mensaje = &Message,
                              .informe_estados = &StatusReport,
                              .memoria_llena = &MemoryFull};
  TakePlace(&record);
}

ListedOperator::~ListedOperator() {
  TakePlace(nullptr);
}

}  // namespace kestra::live
