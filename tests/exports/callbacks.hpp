#pragma once

#include <cstdint>

#include "kestra/kestra.h"

namespace kestra::exports {

// The record of a host that answers the dialogs itself, by its members of these names.
template <typename Host>
struct Callbacks {
  static std::int32_t KESTRA_CALL Message(void* host, const char* text, const char* title,
                                          std::int32_t style) {
    return static_cast<Host*>(host)->Message(text, title, style);
  }
  static std::int32_t KESTRA_CALL Report(void* host, const char* printer, const char* fiscal,
                                         const KestraFila* rows, std::int32_t count) {
    return static_cast<Host*>(host)->Report(printer, fiscal, rows, count);
  }
  static void KESTRA_CALL MemoryFull(void* host) { static_cast<Host*>(host)->MemoryFull(); }
};

template <typename Host>
KestraOperador RecordOf(Host& host) {
  using Own = Callbacks<Host>;
  return {sizeof(KestraOperador), &host, Own::Message, Own::Report, Own::MemoryFull};
}

}  // namespace kestra::exports
