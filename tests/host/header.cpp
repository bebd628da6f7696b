// The public header as a C++ host reads it.
#include <kestra/kestra.h>

static_assert(sizeof(KestraFila) == 4 * sizeof(int32_t) + 2 * sizeof(const char*), "layout");
static_assert(sizeof(KestraOperador) == 5 * sizeof(void*), "layout");

int32_t HeaderProbe();

int32_t HeaderProbe() {
  int32_t(KESTRA_CALL * start)() = &EP_Init;
  const KestraOperador operador = {sizeof(KestraOperador), nullptr, nullptr, nullptr, nullptr};
  Kestra_DefinirOperador(&operador);
  return start != nullptr ? 1 : 0;
}
